#ifndef TESTS_EXTERNAL_PLATFORM_FAULTYPLATFORM_H
#define TESTS_EXTERNAL_PLATFORM_FAULTYPLATFORM_H

/// @file
/// A platform for tests: all of platform/include in few lines, with counters, and with switches that
/// let an operation of libos fail at a chosen call.
///
/// It favours being simple and being observed: one lock serves all queues and tasks, and a test can
/// wait until no thread has anything left to do.
///
/// Thread safety: every operation may be called by any thread.

#define FAULTY_PLATFORM_API __attribute__((visibility("default")))

namespace faulty_platform
{

/// What can be made to fail.
enum class Operation
{
    QUEUE_CREATE,  ///< gives null
    QUEUE_WRITE,   ///< gives 0, at once
    QUEUE_READ,    ///< gives 0, at once, items or not
    TASK_CREATE,   ///< gives null, no thread is started
    TASK_JOIN      ///< gives -1, at once
};

/// Lets calls of an operation fail.
/// @param firstCall the first call that fails, 1 being the next call of that operation; 0: none fails
/// @param numCalls how many calls fail, one after the other
FAULTY_PLATFORM_API void failAt(Operation operation, unsigned firstCall, unsigned numCalls = 1);

/// How often an operation was called, failed calls included.
FAULTY_PLATFORM_API unsigned countCalls(Operation operation);

/// The number of queues and tasks whose handles were not given back yet.
FAULTY_PLATFORM_API unsigned countHandles();

/// Returns when every task but the caller has ended, or waits for an item without limit, or stands
/// in awaitJoin().
FAULTY_PLATFORM_API void awaitIdle();

/// To be called by a task: returns when somebody joins that task or gives its handle back, also if
/// the join is made to fail.
FAULTY_PLATFORM_API void awaitJoin();

}  // namespace faulty_platform

#endif
