// The platform by itself, as C++17.

#include <libos/libos.h>

int main()
{
    const osQueueHandle_t queue = osQueueCreate(1);
    const bool isEmpty = osQueueSize(queue) == 0;
    osQueueDestroy(queue);
    return isEmpty ? 0 : 1;
}
