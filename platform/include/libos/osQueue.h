#ifndef LIBOS_OSQUEUE_H
#define LIBOS_OSQUEUE_H

#include <libos/osTypes.h>

/// @file
/// Bounded first-in, first-out queues of pointer-sized items, for many writers and many readers.
///
/// A write happens before the read that takes its item. Items of one writer are read in the order in
/// which they were written. No wake-up is ever lost: an item that is in the queue is found by a reader,
/// a free place by a writer, whoever sleeps. Waiting threads sleep.

#ifdef __cplusplus
extern "C" {
#endif

/// Creates an empty queue.
/// @param capacity the greatest number of items that the queue holds, counted exactly; any value is
///        legal (into a queue of capacity 0 nothing can be written). Memory follows the number of
///        items queued, never the capacity.
/// @return the queue, or null when there is not enough memory.
LIBOS_API osQueueHandle_t osQueueCreate(uint32_t capacity);

/// Destroys a queue and forgets the items in it. Nobody may wait on the queue any more.
/// Null: does nothing.
LIBOS_API void osQueueDestroy(osQueueHandle_t queue);

/// Appends one item.
/// @param queue null fails
/// @param item copied as it stands; may be null
/// @param waitMs how long to wait for a free place: 0 = do not wait, -1 (or any negative value) =
///        without limit, otherwise milliseconds; the wait never ends early without success
/// @return non-zero on success; 0 when the queue stayed full, memory ran out, or `queue` is null
LIBOS_API int osQueueWrite(osQueueHandle_t queue, void* item, int waitMs);

#ifdef __cplusplus
/// Takes the oldest item.
/// @param item receives it; untouched on failure
/// @param waitMs how long to wait for an item, as for osQueueWrite()
/// @return non-zero on success; 0 when the queue stayed empty or `queue` is null
LIBOS_API int osQueueRead(osQueueHandle_t queue, void*& item, int waitMs);
#endif

/// The number of items queued at some moment during the call; never more than the capacity. Null: 0.
LIBOS_API uint32_t osQueueSize(osQueueHandle_t queue);

#ifdef __cplusplus
}
#endif

#endif
