#pragma once

#include <cstdint>

/// Every block that operator new and PHP's allocator hand out is counted here, and can be refused.
namespace heap
{

struct Blocks {
    std::int64_t cpp = 0;
    std::int64_t engine = 0;

    bool operator==(const Blocks&) const = default;
};

/// Those alive. Meant to be compared with each other.
Blocks alive();

/// Counts the engine's blocks from now on, which come from malloc (USE_ZEND_ALLOC=0).
void watchEngine();

/// PHP makes some things of a request's when they are first needed. What leaks does so each time.
template <typename Run>
bool leaks(Run run)
{
    for (int round = 0; round < 4; ++round) {
        const Blocks before = alive();
        run();
        if (alive() == before)
            return false;
    }
    return true;
}

} // namespace heap
