#pragma once

#include <cstddef>

#include "engine/guard.h"

namespace zorvel
{

/// Bounds by memory_limit what a call holds in memory that the engine does not know of.
class MemoryBound
{
public:
    /// To be called as something grows, with its size by now: the engine is asked now and then whether so much would
    /// fit. A page has to fit once more when it is finished, so that none fails for the question.
    /// @throws Bailout when it would not: the engine has raised its own fatal error
    void check(std::size_t size)
    {
        if (size >= next_)
            ask(size);
    }

private:
    /// A large block is mapped, but never touched.
    void ask(std::size_t size)
    {
        catchingBailout([size] { efree(emalloc(size)); });
        next_ = size + size / 4;
    }

    /// Smaller blocks the engine takes from chunks, which it keeps, and counts, when the block is freed.
    std::size_t next_ = std::size_t{4} << 20;
};

} // namespace zorvel
