#include <errno.h>
#include <libos/Deadline.h>
#include <libos/Task.h>
#include <libos/fail.h>
#include <libos/osTask.h>
#include <sched.h>
#include <string.h>
#include <time.h>

#include <new>

namespace
{

using host::fail;
using host::succeedUnless;
using host::Task;

Task* toTask(osTaskHandle_t handle)
{
    return static_cast<Task*>(handle);
}

}  // namespace

osTaskHandle_t osTaskCreate(osTaskEntry_t entry, const osTaskOptions_t* options, void* arg)
{
    if (entry == nullptr)
    {
        fail(EINVAL);
        return nullptr;
    }
    constexpr osTaskOptions_t noOptions{};
    auto* const task =
        new (std::nothrow) Task(entry, options != nullptr ? *options : noOptions, arg);
    const int error = task != nullptr ? task->start() : ENOMEM;
    if (error != 0)
    {
        fail(error);
        return nullptr;
    }
    return task;
}

void osTaskDestroy(osTaskHandle_t task)
{
    if (task != nullptr)
    {
        toTask(task)->releaseHandle();
    }
}

int osTaskJoin(osTaskHandle_t task)
{
    int status = -1;
    const int error = task != nullptr ? toTask(task)->join(status) : EINVAL;
    if (error != 0)
    {
        fail(error);
        return -1;
    }
    return status;
}

osTaskHandle_t osTaskSelf(void)
{
    return Task::self();
}

osTaskOptions_t osTaskGetOptions(osTaskHandle_t task)
{
    if (task != nullptr)
    {
        return toTask(task)->options();
    }
    osTaskOptions_t none;
    memset(&none, 0, sizeof none);  // the gaps between the fields too
    return none;
}

int osTaskSetPriority(osTaskHandle_t task, int priority)
{
    return task != nullptr ? succeedUnless(toTask(task)->setPriority(priority)) : fail(EINVAL);
}

int osTaskGetPriority(osTaskHandle_t task)
{
    return task != nullptr ? toTask(task)->priority() : 0;
}

int osTaskSleep(osTaskHandle_t task, unsigned long milliseconds)
{
    if (task != nullptr && task != osTaskSelf())
    {
        return fail(EINVAL);
    }
    if (milliseconds == 0)
    {
        sched_yield();
        return 1;
    }
    const auto deadline = host::Deadline::after(milliseconds);
    int error = EINTR;
    while (error == EINTR)
    {
        error = clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, deadline.get(), nullptr);
    }
    return succeedUnless(error);
}

int osSetSchedPolicy(osTaskHandle_t task, osSchedPolicy_t policy)
{
    return task != nullptr ? succeedUnless(toTask(task)->setPolicy(policy)) : fail(EINVAL);
}
