#ifndef LIBOS_OSTYPES_H
#define LIBOS_OSTYPES_H

#include <stddef.h>
#include <stdint.h>

/// @file
/// Types shared by the operations of libos.
///
/// libos is the operating system as the library sees it: threads, queues and mutexes. This folder is
/// the contract; a platform is a library that defines every function declared here. All functions have
/// C linkage and are called through the dynamic linker, so a test or another platform can stand in for
/// any of them.
///
/// Rules that hold for every operation:
/// - Handles are opaque. Null is never a valid handle: an operation given null fails as documented and
///   touches nothing.
/// - A handle may be used by any number of threads at once, except that nothing else may use it during
///   or after its destruction. (An operation that has taken effect, such as a write whose item has
///   already been read, may still be returning on another thread: a platform must tolerate that.)
/// - No operation throws, and none calls back into its caller.
/// - Waits are in milliseconds on a clock that is never set.

/// Visible outside the platform's shared library.
#define LIBOS_API __attribute__((visibility("default")))

/// A wait that has no limit, in milliseconds.
#define LIBOS_WAIT_FOREVER (-1)

/// A queue made by osQueueCreate().
typedef void* osQueueHandle_t;

/// A thread made by osTaskCreate().
typedef void* osTaskHandle_t;

/// A mutex made by osMutexCreate().
typedef void* osMutexHandle_t;

#endif
