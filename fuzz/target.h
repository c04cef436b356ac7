#pragma once

#include <concepts>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>

#include "embed.h"
#include "input.h"

/// What the fuzzer's targets have in common.
namespace fuzz
{

/// The request that inputs are rendered in, one after the other.
inline std::optional<embed::Request> request;

/// Ends the request and PHP with the process.
/// @return 0, or something else when there is no place for that any more
inline int endAtExit()
{
    return std::atexit([] {
        request.reset();
        embed::stop();
    });
}

/// Checks an input, and aborts with a report of what is wrong with it.
/// @param renew begins a new request, now and then
/// @param check tells what is wrong; nothing is the empty text
/// @return what libFuzzer wants to hear
template <std::invocable Renew, std::invocable<const std::string&> Check>
int tryInput(const std::uint8_t* bytes, std::size_t size, Renew renew, Check check)
{
    constexpr int inputsPerRequest = 2000;
    static int inputs = 0;
    const std::string input(reinterpret_cast<const char*>(bytes), size);
    if (!isSmall(input))
        return 0;
    if (++inputs % inputsPerRequest == 0)
        renew();
    const std::string wrong = check(input);
    if (wrong.empty())
        return 0;
    std::fprintf(stderr, "%s\nfor the input:\n%s\n", wrong.c_str(), input.c_str());
    std::abort();
}

} // namespace fuzz
