#ifndef TESTS_PLATFORM_COUNTEDMEMORY_H
#define TESTS_PLATFORM_COUNTEDMEMORY_H

#include <cstddef>

namespace test
{

/// What this program, its shared libraries included, takes from operator new. Linking the source file
/// replaces the operators.
struct CountedMemory
{
    /// Number of allocations so far.
    static size_t allocationCount();

    /// Bytes in use now, as the allocator hands them out.
    static size_t bytesInUse();

    /// Lets every allocation fail for the lifetime of the object.
    class Exhausted
    {
      public:
        Exhausted();
        ~Exhausted();
        Exhausted(const Exhausted&) = delete;
        Exhausted& operator=(const Exhausted&) = delete;
    };
};

}  // namespace test

#endif
