/// Renders each input as text and as a file, and compares what is seen with what the model says.
#include <cstdint>
#include <string>

#include "heap.h"
#include "input.h"
#include "memory_files.h"
#include "model.h"
#include "observe.h"
#include "target.h"

namespace
{

void renew()
{
    fuzz::request.reset();
    fuzz::request.emplace();
    memory_files::switchOffPlainFiles();
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

std::string checkForLeaks(const std::string& bytes)
{
    std::string wrong;
    const bool leaks = heap::leaks([&] { wrong = check(bytes); });
    return leaks && wrong.empty() ? "it leaks" : wrong;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    fuzz::startPhp("include_path=");
    fuzz::enterModelWorld();
    renew();
    return fuzz::endAtExit();
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    return fuzz::tryInput(bytes, size, renew, checkForLeaks);
}
