/// Replays inputs of the fuzzer, the files named as arguments, without the fuzzer.
#include <cstdint>
#include <fstream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);

int main(int argc, char** argv)
{
    LLVMFuzzerInitialize(&argc, &argv);
    for (int i = 1; i < argc; ++i) {
        std::ifstream file(argv[i], std::ios::binary);
        const std::string input{std::istreambuf_iterator<char>(file), {}};
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
    }
}
