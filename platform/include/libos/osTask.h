#ifndef LIBOS_OSTASK_H
#define LIBOS_OSTASK_H

#include <libos/osTypes.h>

/// @file
/// Threads ("tasks") with a name, options and an exit status.

#ifdef __cplusplus
extern "C" {
#endif

/// How a thread is to be started, and how it was. 184 bytes where pointers have 64 bits.
typedef struct osTaskOptions_t
{
    char name[128];      ///< thread name, NUL-terminated
    int32_t priority;    ///< start priority; 0 = the system's normal one, greater is more urgent
    uint64_t stackSize;  ///< stack size in bytes; 0 = the system's default
    int32_t persist;     ///< flag; passed through
    int32_t joinable;    ///< flag; whether osTaskJoin() and osTaskDestroy() wait for the thread
    void* destroyHook;   ///< passed through
    uintptr_t user1;     ///< passed through
    uintptr_t user2;     ///< passed through
    void* reserved;      ///< passed through; the library keeps the task object here
} osTaskOptions_t;

/// How the system schedules a thread.
typedef enum osSchedPolicy_t
{
    OS_SCHED_NORMAL = 0,      ///< time sharing; the priority is remembered, not applied
    OS_SCHED_FIFO = 1,        ///< real time, runs until it blocks
    OS_SCHED_ROUND_ROBIN = 2  ///< real time, with time slices among equals
} osSchedPolicy_t;

/// A thread's work. @return its exit status
typedef int (*osTaskEntry_t)(void* arg);

/// Starts a thread that calls `entry(arg)`.
///
/// On a host the system shows a name of up to 15 characters as it is, and the first 7 and the last 7
/// of a longer one around a '~'.
/// @param entry the thread's work
/// @param options copied; null means all zero (hence not joinable). What the process may not have
///        (a priority without the privilege, an impossible stack size) is left at the system's default.
/// @param arg handed to `entry` as it is
/// @return the thread's handle, to be given to osTaskDestroy() once; null when no thread could be started
///         or `entry` is null
LIBOS_API osTaskHandle_t osTaskCreate(osTaskEntry_t entry, const osTaskOptions_t* options,
                                      void* arg);

/// Gives the handle back. Waits until the thread has ended, unless the calling thread is the task itself
/// or the task is not joinable. A thread that goes on keeps what it needs of the handle. Null: does nothing.
LIBOS_API void osTaskDestroy(osTaskHandle_t task);

/// Waits until a joinable thread has ended. May be called after its end, by several threads, and again
/// with the same result.
/// @return the exit status; -1, with osGetLastError() set, for null (EINVAL), a task that is not joinable
///         (EINVAL) and the calling thread itself (EDEADLK)
LIBOS_API int osTaskJoin(osTaskHandle_t task);

/// The calling thread's handle; null on a thread that osTaskCreate() did not make.
LIBOS_API osTaskHandle_t osTaskSelf(void);

/// The options with which a task was started (its priority is the current one). Null: an all-zero record.
LIBOS_API osTaskOptions_t osTaskGetOptions(osTaskHandle_t task);

/// Sets a task's priority. With OS_SCHED_NORMAL it is only remembered, for a later real-time policy.
/// @return non-zero on success; 0, with osGetLastError() set, when the process may not or for null
LIBOS_API int osTaskSetPriority(osTaskHandle_t task, int priority);

/// A task's priority as last set. Null: 0.
LIBOS_API int osTaskGetPriority(osTaskHandle_t task);

/// Sends a thread to sleep.
/// @param task null or the calling thread's own handle; anything else is refused
/// @param milliseconds 0 gives way to other threads that are ready to run
/// @return non-zero on success
LIBOS_API int osTaskSleep(osTaskHandle_t task, unsigned long milliseconds);

/// Sets a task's scheduling policy, with the priority that it has.
/// @return non-zero on success; 0, with osGetLastError() set, when the process may not, the thread has
///         ended, or for null
LIBOS_API int osSetSchedPolicy(osTaskHandle_t task, osSchedPolicy_t policy);

#ifdef __cplusplus
}
#endif

#endif
