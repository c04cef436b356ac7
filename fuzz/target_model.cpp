/// Renders each input as text and as a file, and compares what is seen with what the model says.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>

#include "embed.h"
#include "heap.h"
#include "input.h"
#include "memory_files.h"
#include "model.h"
#include "observe.h"

namespace
{

constexpr int mostInputs = 2000; // in one request

std::optional<embed::Request> request;
int inputs = 0;

void endRequest()
{
    request.reset();
    embed::stop();
}

void renew()
{
    request.reset();
    request.emplace();
    memory_files::switchOffPlainFiles();
    inputs = 0;
}

std::string told(const model::Outcome& outcome)
{
    return (outcome.page ? "page \"" + *outcome.page + "\"" : "null") + ", warning \"" + outcome.warning + "\"" +
           (outcome.threw ? ", thrown" : "") + ", " + std::to_string(outcome.conversions) + " conversions";
}

/// @return what is wrong
std::string compare(const fuzz::Input& input, const model::Value& data, bool inMemory)
{
    const std::string source = inMemory ? input.text : "in://1";
    const model::Outcome expected = model::render(source, inMemory, data, input.files);
    zval array = fuzz::toPhp(data);
    const fuzz::Seen seen = fuzz::observe(source, inMemory, &array);
    const bool isUnchanged = fuzz::isSame(array, data);
    zval_ptr_dtor(&array);
    if (seen.bailedOut)
        return "it bails out: " + seen.outcome.warning;
    if (!isUnchanged)
        return "the data has changed";
    return seen.outcome == expected ? "" : "the model says\n  " + told(expected) + "\nit is\n  " + told(seen.outcome);
}

std::string check(const std::string& bytes)
{
    const fuzz::Input input = fuzz::readInput(bytes);
    const model::Value data = fuzz::readData(input.data);
    memory_files::serve(&input.files);
    const std::string wrong = compare(input, data, true);
    return wrong.empty() ? compare(input, data, false) : wrong;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    fuzz::startPhp("include_path=");
    fuzz::enterModelWorld();
    renew();
    return std::atexit(endRequest);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const std::string input(reinterpret_cast<const char*>(bytes), size);
    if (!fuzz::isSmall(input))
        return 0;
    if (++inputs > mostInputs)
        renew();
    std::string wrong;
    if (heap::leaks([&] { wrong = check(input); }) && wrong.empty())
        wrong = "it leaks";
    if (wrong.empty())
        return 0;
    std::fprintf(stderr, "%s\nfor the input:\n%s\n", wrong.c_str(), input.c_str());
    std::abort();
}
