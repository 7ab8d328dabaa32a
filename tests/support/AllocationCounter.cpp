#include "support/AllocationCounter.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace
{

std::atomic<unsigned long> numAllocations{0};

void* allocate(std::size_t size)
{
    ++numAllocations;
    return std::malloc(size == 0 ? 1 : size);
}

void* allocateAligned(std::size_t size, std::align_val_t alignment)
{
    ++numAllocations;
    void* block = nullptr;
    return posix_memalign(&block, static_cast<std::size_t>(alignment), size) == 0 ? block : nullptr;
}

void* require(void* block)
{
    if (block == nullptr)
    {
        throw std::bad_alloc();
    }
    return block;
}

}  // namespace

unsigned long test::countAllocations()
{
    return numAllocations;
}

void* operator new(std::size_t size)
{
    return require(allocate(size));
}

void* operator new[](std::size_t size)
{
    return require(allocate(size));
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    return allocate(size);
}

void* operator new[](std::size_t size, const std::nothrow_t&) noexcept
{
    return allocate(size);
}

void* operator new(std::size_t size, std::align_val_t alignment)
{
    return require(allocateAligned(size, alignment));
}

void* operator new[](std::size_t size, std::align_val_t alignment)
{
    return require(allocateAligned(size, alignment));
}

void* operator new(std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept
{
    return allocateAligned(size, alignment);
}

void* operator new[](std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept
{
    return allocateAligned(size, alignment);
}

void operator delete(void* block) noexcept
{
    std::free(block);
}

void operator delete[](void* block) noexcept
{
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept
{
    std::free(block);
}

void operator delete[](void* block, std::size_t) noexcept
{
    std::free(block);
}

void operator delete(void* block, std::align_val_t) noexcept
{
    std::free(block);
}

void operator delete[](void* block, std::align_val_t) noexcept
{
    std::free(block);
}

void operator delete(void* block, std::size_t, std::align_val_t) noexcept
{
    std::free(block);
}

void operator delete[](void* block, std::size_t, std::align_val_t) noexcept
{
    std::free(block);
}
