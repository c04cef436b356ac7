#include "heap.h"

#include <cstdlib>
#include <new>

#include <php.h>

namespace heap
{

Hook beforeNew = nullptr;
Hook beforeEngine = nullptr;

namespace
{

Blocks blocks;

void* allocateNew(std::size_t size)
{
    if (beforeNew != nullptr)
        beforeNew();
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

void* allocateEngine(std::size_t size ZEND_FILE_LINE_DC ZEND_FILE_LINE_ORIG_DC)
{
    if (beforeEngine != nullptr)
        beforeEngine();
    ++blocks.engine;
    return std::malloc(size);
}

void* reallocateEngine(void* block, std::size_t size ZEND_FILE_LINE_DC ZEND_FILE_LINE_ORIG_DC)
{
    if (beforeEngine != nullptr)
        beforeEngine();
    blocks.engine += block == nullptr ? 1 : 0;
    return std::realloc(block, size);
}

void releaseEngine(void* block ZEND_FILE_LINE_DC ZEND_FILE_LINE_ORIG_DC)
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
