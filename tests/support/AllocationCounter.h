#ifndef TESTS_SUPPORT_ALLOCATIONCOUNTER_H
#define TESTS_SUPPORT_ALLOCATIONCOUNTER_H

namespace test
{

/// How often the process, its libraries included, has called operator new so far. Defined, with
/// the operators that count, in AllocationCounter.cpp, which a test program adds to its sources.
unsigned long countAllocations();

}  // namespace test

#endif
