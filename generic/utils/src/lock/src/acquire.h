#ifndef GENERIC_UTILS_LOCK_ACQUIRE_H
#define GENERIC_UTILS_LOCK_ACQUIRE_H

#include <libos/COsMutex.h>

namespace utils::lock
{

/// Waits without limit until the calling thread holds the mutex, and keeps the time in the mutex's
/// timing record. Every lock of the library is taken here.
/// @return whether the mutex is held
inline bool acquire(COsMutex& mutex)
{
    constexpr int noLimit = 0;  // as osMutexLock() understands it
    generic::timing::IntervalAndDuration& timing = mutex.getTiming();
    timing.begin();
    const bool isHeld = osMutexLock(mutex.getHandle(), noLimit) != 0;
    timing.end();
    timing.output();
    return isHeld;
}

}  // namespace utils::lock

#endif
