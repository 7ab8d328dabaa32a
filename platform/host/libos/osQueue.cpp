#include <libos/Queue.h>
#include <libos/osQueue.h>

namespace
{

using host::Queue;

Queue* toQueue(osQueueHandle_t handle)
{
    return static_cast<Queue*>(handle);
}

}  // namespace

osQueueHandle_t osQueueCreate(uint32_t capacity)
{
    return Queue::create(capacity);
}

void osQueueDestroy(osQueueHandle_t queue)
{
    if (queue != nullptr)
    {
        Queue::destroy(toQueue(queue));
    }
}

int osQueueWrite(osQueueHandle_t queue, void* item, int waitMs)
{
    return queue != nullptr && toQueue(queue)->write(item, waitMs) ? 1 : 0;
}

int osQueueRead(osQueueHandle_t queue, void*& item, int waitMs)
{
    return queue != nullptr && toQueue(queue)->read(item, waitMs) ? 1 : 0;
}

uint32_t osQueueSize(osQueueHandle_t queue)
{
    return queue != nullptr ? toQueue(queue)->size() : 0;
}
