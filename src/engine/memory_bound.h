#pragma once

#include <cstddef>

#include "engine/guard.h"

namespace zorvel
{

/// Bounds by memory_limit what a call holds in memory that the engine does not know of.
class MemoryBound
{
public:
    /// To be called as something grows, with its size by now: from a megabyte on, the engine is asked now and then
    /// whether so much would fit. The page that is made of it has to fit as well, so that none fails for the question.
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

    std::size_t next_ = std::size_t{1} << 20;
};

} // namespace zorvel
