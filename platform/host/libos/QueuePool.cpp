#include <libos/QueuePool.h>

#include <mutex>
#include <new>

namespace host
{
namespace
{

// Both need neither construction nor destruction, so that queues work before and after main().
constinit std::mutex mutex;
constinit Queue* firstFree = nullptr;

}  // namespace

Queue* QueuePool::take()
{
    const std::lock_guard guard(mutex);
    if (firstFree == nullptr)
    {
        return new (std::nothrow) Queue;
    }
    Queue* const queue = firstFree;
    firstFree = queue->m_nextFree;
    return queue;
}

void QueuePool::give(Queue* queue)
{
    const std::lock_guard guard(mutex);
    queue->m_nextFree = firstFree;
    firstFree = queue;
}

}  // namespace host
