#include "FaultyPlatform.h"

#include <libos/libos.h>
#include <pthread.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <set>
#include <thread>

using faulty_platform::Operation;

namespace
{

struct Queue
{
    std::deque<void*> items;
    uint32_t capacity;
    unsigned numIdleReaders = 0;  // tasks that wait without limit
};

struct Task
{
    osTaskEntry_t entry;
    osTaskOptions_t options;
    void* arg;
    int status = -1;
    bool hasEnded = false;
    bool isAwaited = false;  // somebody has joined it or given its handle back
    bool awaitsJoin = false;
    int numOwners = 2;  // the handle and the thread
};

struct Calls
{
    unsigned number = 0;
    unsigned firstToFail = 0;
    unsigned numToFail = 0;
};

// Everything, under one lock. Whatever changes, all who wait are woken.
struct State
{
    std::mutex mutex;
    std::condition_variable changed;
    std::array<Calls, 5> calls;
    std::set<Queue*> queues;
    std::set<Task*> tasks;  // threads that have not ended
    unsigned numHandles = 0;
};

// Never destroyed, as threads may outlive the statics.
State& state = *new State;

thread_local Task* currentTask = nullptr;
thread_local uint32_t lastError = 0;

using Guard = std::unique_lock<std::mutex>;

Calls& callsOf(Operation operation)
{
    return state.calls[static_cast<std::size_t>(operation)];
}

// Counts a call, and says whether it is to fail.
bool failsNow(Operation operation)
{
    Calls& calls = callsOf(operation);
    ++calls.number;
    return calls.number >= calls.firstToFail && calls.number - calls.firstToFail < calls.numToFail;
}

// False when the time is up first.
template <typename Condition>
bool await(Guard& guard, int waitMs, Condition condition)
{
    if (waitMs < 0)
    {
        state.changed.wait(guard, condition);
        return true;
    }
    return state.changed.wait_for(guard, std::chrono::milliseconds(waitMs), condition);
}

int fail(int error)
{
    lastError = static_cast<uint32_t>(error);
    return 0;
}

Queue* toQueue(osQueueHandle_t handle)
{
    return static_cast<Queue*>(handle);
}

Task* toTask(osTaskHandle_t handle)
{
    return static_cast<Task*>(handle);
}

void release(Task* task)
{
    if (--task->numOwners == 0)
    {
        delete task;
    }
}

void runThread(Task* task)
{
    currentTask = task;
    const int status = task->entry(task->arg);
    const Guard guard(state.mutex);
    task->status = status;
    task->hasEnded = true;
    state.tasks.erase(task);
    release(task);
    state.changed.notify_all();
}

bool areOthersIdle()
{
    std::size_t numIdle = currentTask != nullptr ? 1 : 0;
    for (const Queue* const queue : state.queues)
    {
        numIdle += queue->items.empty() ? queue->numIdleReaders : 0;
    }
    for (const Task* const task : state.tasks)
    {
        numIdle += task->awaitsJoin && !task->isAwaited ? 1 : 0;
    }
    return numIdle == state.tasks.size();
}

}  // namespace

namespace faulty_platform
{

void failAt(Operation operation, unsigned firstCall, unsigned numCalls)
{
    const Guard guard(state.mutex);
    Calls& calls = callsOf(operation);
    calls.firstToFail = calls.number + firstCall;
    calls.numToFail = firstCall != 0 ? numCalls : 0;
}

unsigned countCalls(Operation operation)
{
    const Guard guard(state.mutex);
    return callsOf(operation).number;
}

unsigned countHandles()
{
    const Guard guard(state.mutex);
    return state.numHandles;
}

void awaitIdle()
{
    Guard guard(state.mutex);
    state.changed.wait(guard, areOthersIdle);
}

void awaitJoin()
{
    Guard guard(state.mutex);
    currentTask->awaitsJoin = true;
    state.changed.notify_all();
    state.changed.wait(guard, [] { return currentTask->isAwaited; });
}

}  // namespace faulty_platform

osQueueHandle_t osQueueCreate(uint32_t capacity)
{
    const Guard guard(state.mutex);
    if (failsNow(Operation::QUEUE_CREATE))
    {
        fail(ENOMEM);
        return nullptr;
    }
    auto* const queue = new Queue{{}, capacity};
    state.queues.insert(queue);
    ++state.numHandles;
    return queue;
}

void osQueueDestroy(osQueueHandle_t handle)
{
    if (handle != nullptr)
    {
        const Guard guard(state.mutex);
        state.queues.erase(toQueue(handle));
        --state.numHandles;
        delete toQueue(handle);
    }
}

int osQueueWrite(osQueueHandle_t handle, void* item, int waitMs)
{
    Guard guard(state.mutex);
    Queue* const queue = toQueue(handle);
    if (failsNow(Operation::QUEUE_WRITE) || queue == nullptr ||
        !await(guard, waitMs, [=] { return queue->items.size() < queue->capacity; }))
    {
        return fail(EAGAIN);
    }
    queue->items.push_back(item);
    state.changed.notify_all();
    return 1;
}

int osQueueRead(osQueueHandle_t handle, void*& item, int waitMs)
{
    Guard guard(state.mutex);
    Queue* const queue = toQueue(handle);
    if (failsNow(Operation::QUEUE_READ) || queue == nullptr)
    {
        return fail(EAGAIN);
    }
    const unsigned idle = currentTask != nullptr && waitMs < 0 ? 1 : 0;
    queue->numIdleReaders += idle;
    state.changed.notify_all();
    const bool hasItem = await(guard, waitMs, [=] { return !queue->items.empty(); });
    queue->numIdleReaders -= idle;
    if (!hasItem)
    {
        return fail(EAGAIN);
    }
    item = queue->items.front();
    queue->items.pop_front();
    state.changed.notify_all();
    return 1;
}

uint32_t osQueueSize(osQueueHandle_t handle)
{
    const Guard guard(state.mutex);
    return handle != nullptr ? static_cast<uint32_t>(toQueue(handle)->items.size()) : 0;
}

osTaskHandle_t osTaskCreate(osTaskEntry_t entry, const osTaskOptions_t* options, void* arg)
{
    const Guard guard(state.mutex);
    if (failsNow(Operation::TASK_CREATE) || entry == nullptr)
    {
        fail(EAGAIN);
        return nullptr;
    }
    auto* const task = new Task{entry, options != nullptr ? *options : osTaskOptions_t{}, arg};
    state.tasks.insert(task);
    ++state.numHandles;
    std::thread(runThread, task).detach();
    return task;
}

void osTaskDestroy(osTaskHandle_t handle)
{
    if (handle == nullptr)
    {
        return;
    }
    Guard guard(state.mutex);
    Task* const task = toTask(handle);
    task->isAwaited = true;
    state.changed.notify_all();
    if (task != currentTask && task->options.joinable != 0)
    {
        state.changed.wait(guard, [=] { return task->hasEnded; });
    }
    --state.numHandles;
    release(task);
}

int osTaskJoin(osTaskHandle_t handle)
{
    Guard guard(state.mutex);
    Task* const task = toTask(handle);
    const bool fails = failsNow(Operation::TASK_JOIN);
    if (task == nullptr || task == currentTask || task->options.joinable == 0)
    {
        fail(task != nullptr && task == currentTask ? EDEADLK : EINVAL);
        return -1;
    }
    task->isAwaited = true;
    state.changed.notify_all();
    if (fails)
    {
        fail(EINVAL);
        return -1;
    }
    state.changed.wait(guard, [=] { return task->hasEnded; });
    return task->status;
}

osTaskHandle_t osTaskSelf(void)
{
    return currentTask;
}

osTaskOptions_t osTaskGetOptions(osTaskHandle_t task)
{
    const Guard guard(state.mutex);
    return task != nullptr ? toTask(task)->options : osTaskOptions_t{};
}

int osTaskSetPriority(osTaskHandle_t task, int priority)
{
    if (task == nullptr)
    {
        return fail(EINVAL);
    }
    const Guard guard(state.mutex);
    toTask(task)->options.priority = priority;
    return 1;
}

int osTaskGetPriority(osTaskHandle_t task)
{
    return osTaskGetOptions(task).priority;
}

int osTaskSleep(osTaskHandle_t task, unsigned long milliseconds)
{
    if (task != nullptr && task != currentTask)
    {
        return fail(EINVAL);
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
    return 1;
}

int osSetSchedPolicy(osTaskHandle_t task, osSchedPolicy_t)
{
    return task != nullptr ? 1 : fail(EINVAL);
}

osMutexHandle_t osMutexCreate(void)
{
    pthread_mutexattr_t attributes;
    pthread_mutexattr_init(&attributes);
    pthread_mutexattr_settype(&attributes, PTHREAD_MUTEX_RECURSIVE);
    auto* const mutex = new pthread_mutex_t;
    pthread_mutex_init(mutex, &attributes);
    pthread_mutexattr_destroy(&attributes);
    return mutex;
}

void osMutexDestroy(osMutexHandle_t handle)
{
    auto* const mutex = static_cast<pthread_mutex_t*>(handle);
    if (mutex != nullptr)
    {
        pthread_mutex_destroy(mutex);
        delete mutex;
    }
}

int osMutexLock(osMutexHandle_t mutex, int)
{
    return mutex != nullptr && pthread_mutex_lock(static_cast<pthread_mutex_t*>(mutex)) == 0;
}

int osMutexUnlock(osMutexHandle_t mutex)
{
    return mutex != nullptr && pthread_mutex_unlock(static_cast<pthread_mutex_t*>(mutex)) == 0;
}

COsMutex::COsMutex() : m_handle(osMutexCreate()) {}

COsMutex::~COsMutex()
{
    osMutexDestroy(m_handle);
}

uint32_t osGetLastError(void)
{
    return lastError;
}

void osSetLastError(uint32_t error)
{
    lastError = error;
}

int osIsError(void)
{
    return lastError != 0 ? 1 : 0;
}
