#include "CountedMemory.h"

#include <malloc.h>
#include <stdlib.h>

#include <atomic>
#include <new>

namespace
{

constinit std::atomic<size_t> allocations{0};
constinit std::atomic<size_t> bytes{0};
constinit std::atomic<bool> isExhausted{false};

void* count(void* memory)
{
    if (memory != nullptr)
    {
        ++allocations;
        bytes += malloc_usable_size(memory);
    }
    return memory;
}

void* allocate(size_t size)
{
    return isExhausted ? nullptr : count(malloc(size));
}

void* allocate(size_t size, std::align_val_t alignment)
{
    void* memory = nullptr;
    const bool isRefused =
        isExhausted || posix_memalign(&memory, static_cast<size_t>(alignment), size) != 0;
    return isRefused ? nullptr : count(memory);
}

void* orThrow(void* memory)
{
    if (memory == nullptr)
    {
        throw std::bad_alloc();
    }
    return memory;
}

void release(void* memory)
{
    if (memory != nullptr)
    {
        bytes -= malloc_usable_size(memory);
        free(memory);
    }
}

}  // namespace

void* operator new(size_t size)
{
    return orThrow(allocate(size));
}
void* operator new[](size_t size)
{
    return orThrow(allocate(size));
}
void* operator new(size_t size, const std::nothrow_t&) noexcept
{
    return allocate(size);
}
void* operator new[](size_t size, const std::nothrow_t&) noexcept
{
    return allocate(size);
}
void* operator new(size_t size, std::align_val_t alignment)
{
    return orThrow(allocate(size, alignment));
}
void* operator new(size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept
{
    return allocate(size, alignment);
}
void operator delete(void* memory) noexcept
{
    release(memory);
}
void operator delete[](void* memory) noexcept
{
    release(memory);
}
void operator delete(void* memory, size_t) noexcept
{
    release(memory);
}
void operator delete[](void* memory, size_t) noexcept
{
    release(memory);
}
void operator delete(void* memory, const std::nothrow_t&) noexcept
{
    release(memory);
}
void operator delete(void* memory, std::align_val_t) noexcept
{
    release(memory);
}
void operator delete(void* memory, size_t, std::align_val_t) noexcept
{
    release(memory);
}
void operator delete(void* memory, std::align_val_t, const std::nothrow_t&) noexcept
{
    release(memory);
}

namespace test
{

size_t CountedMemory::allocationCount()
{
    return allocations;
}

size_t CountedMemory::bytesInUse()
{
    return bytes;
}

CountedMemory::Exhausted::Exhausted()
{
    isExhausted = true;
}

CountedMemory::Exhausted::~Exhausted()
{
    isExhausted = false;
}

}  // namespace test
