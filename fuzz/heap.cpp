#include "heap.h"

#include <cstdlib>
#include <new>

#include <php.h>

#include "faults.h"
#include "observe.h"

namespace heap
{

namespace
{

Blocks blocks;

void* allocateNew(std::size_t size)
{
    faults::reach(faults::Kind::New);
    void* block = std::malloc(size);
    if (block == nullptr)
        throw std::bad_alloc();
    ++blocks.cpp;
    return block;
}

void* tryAllocateNew(std::size_t size) noexcept
{
    try {
        return allocateNew(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

void release(void* block)
{
    blocks.cpp -= block != nullptr ? 1 : 0;
    std::free(block);
}

/// User code that the extension runs has frames of its own: what fails there is a fatal error of its.
void reachEngine()
{
    if (faults::isArmed() && fuzz::isExtensions(EG(current_execute_data)))
        faults::reach(faults::Kind::EngineAllocation);
}

/// A debug build of PHP tells where it is called from.
template <typename... Where>
void* allocateEngine(std::size_t size, Where...)
{
    reachEngine();
    ++blocks.engine;
    return std::malloc(size);
}

template <typename... Where>
void* reallocateEngine(void* block, std::size_t size, Where...)
{
    reachEngine();
    blocks.engine += block == nullptr ? 1 : 0;
    return std::realloc(block, size);
}

template <typename... Where>
void releaseEngine(void* block, Where...)
{
    blocks.engine -= block != nullptr ? 1 : 0;
    std::free(block);
}

} // namespace

Blocks alive()
{
    return blocks;
}

void watchEngine()
{
    zend_mm_set_custom_handlers(zend_mm_get_heap(), allocateEngine, releaseEngine, reallocateEngine);
}

} // namespace heap

// All of them, or a sanitizer's would be mixed with these; visible, for the standard library.
#pragma GCC visibility push(default)
void* operator new(std::size_t size)
{
    return heap::allocateNew(size);
}
void* operator new[](std::size_t size)
{
    return heap::allocateNew(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    return heap::tryAllocateNew(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept
{
    return heap::tryAllocateNew(size);
}
void operator delete(void* block) noexcept
{
    heap::release(block);
}
void operator delete[](void* block) noexcept
{
    heap::release(block);
}
void operator delete(void* block, std::size_t) noexcept
{
    heap::release(block);
}
void operator delete[](void* block, std::size_t) noexcept
{
    heap::release(block);
}
#pragma GCC visibility pop
