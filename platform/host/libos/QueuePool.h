#ifndef HOST_LIBOS_QUEUEPOOL_H
#define HOST_LIBOS_QUEUEPOOL_H

#include <libos/Queue.h>

namespace host
{

/// The process's queues that are not in use. They are used again, but never given back to the
/// system.
class QueuePool
{
  public:
    /// A closed queue; null when there is not enough memory.
    static Queue* take();

    static void give(Queue* queue);
};

}  // namespace host

#endif
