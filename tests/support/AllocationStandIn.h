#ifndef TESTS_SUPPORT_ALLOCATIONSTANDIN_H
#define TESTS_SUPPORT_ALLOCATIONSTANDIN_H

namespace test
{

/// Replaces operator new in a program that is linked with AllocationStandIn.cpp. All of it concerns
/// the calling thread only.

/// How often memory was asked for so far.
long countAllocations();

/// Makes one allocation fail.
/// @param numToSucceed how many succeed before it; negative: none fails
void setAllocationFailing(long numToSucceed);

}  // namespace test

#endif
