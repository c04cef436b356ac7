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
    text.reserve(text.size() + std::min(expected, most));
}

} // namespace zorvel
