#include "support/AllocationStandIn.h"

#include <cstdlib>
#include <new>

namespace
{

thread_local long theNumAllocations = 0;
thread_local long theNumToSucceed = -1;

}  // namespace

namespace test
{

long countAllocations()
{
    return theNumAllocations;
}

void setAllocationFailing(long numToSucceed)
{
    theNumToSucceed = numToSucceed;
}

}  // namespace test

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    ++theNumAllocations;
    const bool isFailing = theNumToSucceed >= 0 && theNumToSucceed-- == 0;
    return isFailing ? nullptr : std::malloc(size);
}

void* operator new(std::size_t size)
{
    void* const block = operator new(size, std::nothrow);
    if (block == nullptr)
    {
        throw std::bad_alloc();
    }
    return block;
}

void operator delete(void* block) noexcept
{
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept
{
    std::free(block);
}
