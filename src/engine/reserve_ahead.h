#pragma once

#include <algorithm>
#include <cstddef>
#include <string>

namespace zorvel
{

/// Reserves room for bytes that are expected to follow. Large strings have to grow in few steps, as each of
/// them maps, faults in and unmaps its pages. What is reserved and never written costs only addresses where the
/// system overcommits memory; it is kept within bounds, since a guess may be wrong.
inline void reserveAhead(std::string& text, std::size_t expected)
{
    constexpr std::size_t most = std::size_t{64} << 20;
    // From 128 KiB on, glibc maps a block of its own. Freeing one raises that bound to its size, and what is below the
    // bound stays with the process.
    constexpr std::size_t mapped = std::size_t{128} << 10;
    constexpr std::size_t kept = std::size_t{192} << 10;
    const std::size_t capacity = text.size() + std::min(expected, most);
    text.reserve(capacity < mapped ? capacity : std::max(capacity, kept));
}

} // namespace zorvel
