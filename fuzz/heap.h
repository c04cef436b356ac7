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

/// Called ahead of each allocation: may throw, from operator new, or bail out, from the engine's.
using Hook = void (*)();
extern Hook beforeNew;
extern Hook beforeEngine;

} // namespace heap
