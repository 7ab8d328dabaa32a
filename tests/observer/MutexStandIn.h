#ifndef TESTS_OBSERVER_MUTEXSTANDIN_H
#define TESTS_OBSERVER_MUTEXSTANDIN_H

#include <string>
#include <vector>

namespace test
{

/// Stands between the library and the platform's mutexes, in a program that is linked with
/// MutexStandIn.cpp. All of it concerns the calling thread only.

/// What was called since the last call of this function: "begin", "lock <wait>", "end", "output",
/// "unlock", "destroy".
std::vector<std::string> takeMutexCalls();

/// How many locks are held.
int countHeldLocks();

/// Whether locking fails from now on.
void setLockFailing(bool isFailing);

}  // namespace test

#endif
