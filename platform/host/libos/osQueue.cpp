#include <libos/osQueue.h>

#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <new>

namespace
{

struct Queue
{
    std::mutex mutex;
    std::condition_variable notEmpty;
    std::condition_variable notFull;
    std::deque<void*> items;
    uint32_t capacity;
};

template <typename Condition>
bool waitFor(std::unique_lock<std::mutex>& lock, std::condition_variable& changed, int waitMs,
             Condition condition)
{
    if (waitMs >= 0)
    {
        return changed.wait_for(lock, std::chrono::milliseconds(waitMs), condition);
    }
    changed.wait(lock, condition);
    return true;
}

}  // namespace

osQueueHandle_t osQueueCreate(uint32_t capacity)
{
    auto* const queue = new (std::nothrow) Queue;
    if (queue != nullptr)
    {
        queue->capacity = capacity;
    }
    return queue;
}

void osQueueDestroy(osQueueHandle_t queue)
{
    delete static_cast<Queue*>(queue);
}

int osQueueWrite(osQueueHandle_t handle, void* item, int waitMs)
{
    if (handle == nullptr)
    {
        return 0;
    }
    auto* const queue = static_cast<Queue*>(handle);
    std::unique_lock lock(queue->mutex);
    const auto hasPlace = [queue] { return queue->items.size() < queue->capacity; };
    if (!waitFor(lock, queue->notFull, waitMs, hasPlace))
    {
        return 0;
    }
    queue->items.push_back(item);
    queue->notEmpty.notify_all();
    return 1;
}

int osQueueRead(osQueueHandle_t handle, void*& item, int waitMs)
{
    if (handle == nullptr)
    {
        return 0;
    }
    auto* const queue = static_cast<Queue*>(handle);
    std::unique_lock lock(queue->mutex);
    if (!waitFor(lock, queue->notEmpty, waitMs, [queue] { return !queue->items.empty(); }))
    {
        return 0;
    }
    item = queue->items.front();
    queue->items.pop_front();
    queue->notFull.notify_all();
    return 1;
}

uint32_t osQueueSize(osQueueHandle_t handle)
{
    if (handle == nullptr)
    {
        return 0;
    }
    auto* const queue = static_cast<Queue*>(handle);
    const std::lock_guard lock(queue->mutex);
    return static_cast<uint32_t>(queue->items.size());
}
