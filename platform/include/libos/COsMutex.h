#ifndef LIBOS_COSMUTEX_H
#define LIBOS_COSMUTEX_H

#include <libos/osMutex.h>
#include <libstd/IntervalAndDuration.h>

/// A mutex together with the record of how long its latest acquisition took.
///
/// The object owns its handle. It does not lock by itself: utils::lock::Lock does, and keeps the timing
/// record. On a host the mutex is recursive and inherits priority.
///
/// Thread safety: the handle may be used by any thread; the timing record belongs to the thread that
/// holds the mutex.
class LIBOS_API COsMutex
{
  public:
    /// Creates the mutex. When the system refuses, the handle is null and every lock fails.
    COsMutex();

    /// Destroys the mutex, which nobody may hold.
    ~COsMutex();

    COsMutex(const COsMutex&) = delete;
    COsMutex& operator=(const COsMutex&) = delete;

    /// The handle for osMutexLock() and osMutexUnlock().
    osMutexHandle_t getHandle() const { return m_handle; }

    /// The timing record.
    generic::timing::IntervalAndDuration& getTiming() { return m_timing; }

  private:
    osMutexHandle_t m_handle;
    generic::timing::IntervalAndDuration m_timing;
};

#endif
