#include "Allocations.h"

#include <errno.h>
#include <malloc.h>
#include <stdlib.h>

#include <atomic>

// The C library's own, under the names that it keeps for programs that replace malloc().
// NOLINTBEGIN(bugprone-reserved-identifier): the C library's names
extern "C" {
void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* memory, size_t size);
void* __libc_memalign(size_t alignment, size_t size);
void __libc_free(void* memory);
}
// NOLINTEND(bugprone-reserved-identifier)

namespace bench
{

namespace
{

std::atomic<std::int64_t> theCount{0};
std::atomic<std::int64_t> theHeldBytes{0};

void* noteTaken(void* memory)
{
    if (memory != nullptr)
    {
        theCount.fetch_add(1, std::memory_order_relaxed);
        theHeldBytes.fetch_add(static_cast<std::int64_t>(malloc_usable_size(memory)),
                               std::memory_order_relaxed);
    }
    return memory;
}

void noteGiven(void* memory)
{
    if (memory != nullptr)
    {
        theHeldBytes.fetch_sub(static_cast<std::int64_t>(malloc_usable_size(memory)),
                               std::memory_order_relaxed);
    }
}

}  // namespace

Allocations allocationsNow()
{
    return {theCount.load(), theHeldBytes.load()};
}

}  // namespace bench

// Found by the dynamic linker before the C library's, by every shared library of the process.
extern "C" {
void* malloc(size_t size) noexcept
{
    return bench::noteTaken(__libc_malloc(size));
}

void* calloc(size_t count, size_t size) noexcept
{
    return bench::noteTaken(__libc_calloc(count, size));
}

void* realloc(void* memory, size_t size) noexcept
{
    bench::noteGiven(memory);
    return bench::noteTaken(__libc_realloc(memory, size));
}

void* memalign(size_t alignment, size_t size) noexcept
{
    return bench::noteTaken(__libc_memalign(alignment, size));
}

void* aligned_alloc(size_t alignment, size_t size) noexcept
{
    return bench::noteTaken(__libc_memalign(alignment, size));
}

int posix_memalign(void** memory, size_t alignment, size_t size) noexcept
{
    *memory = bench::noteTaken(__libc_memalign(alignment, size));
    return *memory == nullptr ? ENOMEM : 0;
}

void free(void* memory) noexcept
{
    bench::noteGiven(memory);
    __libc_free(memory);
}
}
