#ifndef GENERIC_UTILS_LOCK_LOCK_H
#define GENERIC_UTILS_LOCK_LOCK_H

#include <libos/COsMutex.h>
#include <utils/export.h>

namespace utils::lock
{

/// Holds a platform mutex for the time of a scope.
///
///     const utils::lock::Lock guard(m_mutex);
///
/// The time spent waiting is kept in the mutex's own timing record.
///
/// Thread safety: a guard belongs to the thread that made it.
class GENERIC_UTILS_EXPORT Lock
{
  public:
    /// Waits without limit until the calling thread holds the mutex.
    /// @param mutex not owned; must outlive the guard
    explicit Lock(COsMutex& mutex);

    /// Releases the mutex.
    virtual ~Lock();

    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;

  private:
    COsMutex& m_mutex;
};

}  // namespace utils::lock

#endif
