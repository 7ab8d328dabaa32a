#ifndef LIBOS_OSMUTEX_H
#define LIBOS_OSMUTEX_H

#include <libos/osTypes.h>

/// @file
/// Mutexes.

#ifdef __cplusplus
extern "C" {
#endif

/// Creates an unlocked mutex.
/// @return the mutex, or null when the system has no resources for it.
LIBOS_API osMutexHandle_t osMutexCreate(void);

/// Destroys an unlocked mutex. Null: does nothing.
LIBOS_API void osMutexDestroy(osMutexHandle_t mutex);

/// Locks a mutex for the calling thread.
/// @param mutex null fails
/// @param waitMs 0 = wait without limit; the only value that the library uses. On a host a positive
///        value bounds the wait in milliseconds.
/// @return non-zero when the calling thread holds the mutex; 0 otherwise, also for null.
LIBOS_API int osMutexLock(osMutexHandle_t mutex, int waitMs);

/// Unlocks a mutex once. Called by the thread that holds it.
/// @return non-zero on success; 0 when the caller does not hold it or `mutex` is null.
LIBOS_API int osMutexUnlock(osMutexHandle_t mutex);

#ifdef __cplusplus
}
#endif

#endif
