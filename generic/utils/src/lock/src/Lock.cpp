#include <utils/lock/Lock.h>

#include "lock/src/acquire.h"

namespace utils::lock
{

Lock::Lock(COsMutex& mutex) : m_mutex(mutex)
{
    acquire(m_mutex);
}

Lock::~Lock()
{
    osMutexUnlock(m_mutex.getHandle());
}

}  // namespace utils::lock
