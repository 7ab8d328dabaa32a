#include "observer/MutexStandIn.h"

#include <dlfcn.h>

#include <utility>

#include <libos/osMutex.h>
#include <libstd/IntervalAndDuration.h>

namespace
{

// Fixed size, since calls are also recorded where memory must not be asked for.
constexpr std::size_t MAX_CALLS = 64;
thread_local const char* theCalls[MAX_CALLS];
thread_local std::size_t theNumCalls = 0;
thread_local int theNumHeldLocks = 0;
thread_local bool isLockFailing = false;

void record(const char* call)
{
    if (theNumCalls < MAX_CALLS)
    {
        theCalls[theNumCalls++] = call;
    }
}

template <typename Function>
Function* next(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

namespace test
{

std::vector<std::string> takeMutexCalls()
{
    std::vector<std::string> calls(theCalls, theCalls + theNumCalls);
    theNumCalls = 0;
    return calls;
}

int countHeldLocks()
{
    return theNumHeldLocks;
}

void setLockFailing(bool isFailing)
{
    isLockFailing = isFailing;
}

}  // namespace test

extern "C" {
int osMutexLock(osMutexHandle_t mutex, int waitMs)
{
    record(waitMs == 0 ? "lock 0" : "lock with a limit");
    if (isLockFailing)
    {
        return 0;
    }
    ++theNumHeldLocks;
    return next<int(osMutexHandle_t, int)>("osMutexLock")(mutex, waitMs);
}

int osMutexUnlock(osMutexHandle_t mutex)
{
    record("unlock");
    --theNumHeldLocks;
    return next<int(osMutexHandle_t)>("osMutexUnlock")(mutex);
}

void osMutexDestroy(osMutexHandle_t mutex)
{
    record("destroy");
    next<void(osMutexHandle_t)>("osMutexDestroy")(mutex);
}
}

namespace generic::timing
{

void IntervalAndDuration::begin()
{
    record("begin");
}

void IntervalAndDuration::end()
{
    record("end");
}

void IntervalAndDuration::output() const
{
    record("output");
}

}  // namespace generic::timing
