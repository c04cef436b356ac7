/// Renders each input in user.php, where data is of PHP's own making and its code turns against the call. The program
/// is compiled once per request, and a request ends when an input has spoilt it.
#include <cstdint>
#include <optional>
#include <string>

#include <zend_exceptions.h>

#include "embed.h"
#include "heap.h"
#include "input.h"
#include "observe.h"
#include "target.h"

namespace
{

void renew()
{
    zend_clear_exception();
    fuzz::request.reset();
    fuzz::request.emplace();
    embed::run("require '" ZORVEL_FUZZ_FOLDER "/user.php';");
}

/// @return what is wrong; nothing when the request has to end, too
std::optional<std::string> check(const std::string& input)
{
    zval text;
    zval wrong;
    ZVAL_STRINGL(&text, input.data(), input.size());
    const bool returned = fuzz::call("check", &wrong, 1, &text);
    zval_ptr_dtor(&text);
    if (!returned || EG(exception) != nullptr)
        return std::nullopt;
    std::string told(Z_STRVAL(wrong), Z_STRLEN(wrong));
    zval_ptr_dtor(&wrong);
    return told;
}

/// PHP makes some things of a request's when they are first needed: what leaks does so again.
std::string checkForLeaks(const std::string& input)
{
    for (int round = 0; round < 4; ++round) {
        const heap::Blocks before = heap::alive();
        const auto wrong = check(input);
        if (!wrong && heap::alive().cpp != before.cpp)
            return "it leaks when it does not return";
        if (!wrong)
            renew();
        if (!wrong || !wrong->empty() || heap::alive() == before)
            return wrong.value_or("");
    }
    return "it leaks";
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    fuzz::startPhp("allow_url_fopen=1\ndisplay_errors=0");
    renew();
    return fuzz::endAtExit();
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    return fuzz::tryInput(bytes, size, renew, checkForLeaks);
}
