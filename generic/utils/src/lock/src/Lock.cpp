#include <utils/lock/Lock.h>

namespace utils::lock
{

namespace
{
// To osMutexLock, 0 means: wait without limit.
constexpr int NO_LIMIT = 0;
}  // namespace

Lock::Lock(COsMutex& mutex) : m_mutex(mutex)
{
    generic::timing::IntervalAndDuration& timing = m_mutex.getTiming();
    timing.begin();
    osMutexLock(m_mutex.getHandle(), NO_LIMIT);
    timing.end();
    timing.output();
}

Lock::~Lock()
{
    osMutexUnlock(m_mutex.getHandle());
}

}  // namespace utils::lock
