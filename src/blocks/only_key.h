#pragma once

#include <deque>
#include <string>

#include "engine/holders.h"

namespace zorvel
{

/// The key of a path that has no other, as the engine finds it soonest: hashed, and the very string of the data where
/// that is interned. None for any other path, and for a key that may be an index.
/// @throws Bailout when memory_limit is reached
inline StringRef onlyKeyOf(const std::deque<std::string>& path)
{
    if (path.size() != 1 || path.front().empty() || (path.front().front() >= '0' && path.front().front() <= '9'))
        return {};
    return StringRef::hashed(path.front());
}

} // namespace zorvel
