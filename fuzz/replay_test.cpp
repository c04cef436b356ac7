#include <cstdint>
#include <filesystem>
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);

TEST(Corpus, HoldsNoFinding)
{
    const auto corpus = std::filesystem::path(__FILE__).parent_path() / "corpus";
    int inputs = 0;
    for (const auto& file : std::filesystem::directory_iterator(corpus)) {
        std::ostringstream bytes;
        bytes << std::ifstream(file.path(), std::ios::binary).rdbuf();
        const std::string input = bytes.str();
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
        ++inputs;
    }
    EXPECT_GE(inputs, 100);
}
