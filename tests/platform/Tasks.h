#ifndef TESTS_PLATFORM_TASKS_H
#define TESTS_PLATFORM_TASKS_H

#include <libos/osTask.h>

#include <cstring>
#include <functional>
#include <string>

namespace test
{

/// Options of a joinable task.
inline osTaskOptions_t joinable(const std::string& name = "")
{
    osTaskOptions_t options{};
    std::strncpy(options.name, name.c_str(), sizeof options.name - 1);
    options.joinable = 1;
    return options;
}

using Work = std::function<int()>;

/// Starts a task that does `work`, which stays where it is until the task has ended.
inline osTaskHandle_t startTask(Work& work, const osTaskOptions_t& options = joinable())
{
    return osTaskCreate([](void* arg) { return (*static_cast<Work*>(arg))(); }, &options, &work);
}

/// Does `work` on a task of its own. @return its exit status
inline int runTask(Work work, const osTaskOptions_t& options = joinable())
{
    osTaskHandle_t const task = startTask(work, options);
    const int status = osTaskJoin(task);
    osTaskDestroy(task);
    return status;
}

}  // namespace test

#endif
