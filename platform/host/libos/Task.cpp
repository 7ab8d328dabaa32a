#include <errno.h>
#include <libos/Task.h>
#include <libos/ThreadAttributes.h>
#include <libos/threadName.h>
#include <sched.h>
#include <string.h>

#include <algorithm>
#include <memory>
#include <string_view>

namespace host
{
namespace
{

thread_local Task* currentTask = nullptr;

int toSystemPolicy(osSchedPolicy_t policy)
{
    switch (policy)
    {
        case OS_SCHED_NORMAL:
            return SCHED_OTHER;
        case OS_SCHED_FIFO:
            return SCHED_FIFO;
        case OS_SCHED_ROUND_ROBIN:
            return SCHED_RR;
    }
    return -1;
}

}  // namespace

Task::Task(osTaskEntry_t entry, const osTaskOptions_t& options, void* arg)
    : m_entry(entry), m_arg(arg), m_options(options), m_priority(options.priority)
{
}

Task* Task::self()
{
    return currentTask;
}

int Task::start()
{
    int error = createThread(m_options.stackSize);
    if (error != 0 && m_options.stackSize != 0)
    {
        error = createThread(0);
    }
    if (error != 0)
    {
        delete this;
        return error;
    }
    release();
    return 0;
}

int Task::createThread(uint64_t stackSize)
{
    ThreadAttributes attributes;
    attributes.setNormalScheduling();
    if (m_options.joinable == 0)
    {
        attributes.setDetached();
    }
    if (const int error = attributes.setStackSize(stackSize); error != 0)
    {
        return error;
    }
    pthread_t thread{};
    const int error = pthread_create(&thread, attributes.get(), &Task::run, this);
    if (error == 0)
    {
        m_thread.store(thread, std::memory_order_relaxed);
    }
    return error;
}

void* Task::run(void* task)
{
    // In a destructor, so that a thread that leaves by pthread_exit() ends in the same way.
    const std::unique_ptr<Task, EndOfThread> self(static_cast<Task*>(task));
    currentTask = self.get();
    self->m_thread.store(pthread_self(), std::memory_order_relaxed);
    self->setKernelName();
    self->m_status = self->m_entry(self->m_arg);
    return nullptr;
}

void Task::EndOfThread::operator()(Task* task) const
{
    task->markEnded();
    currentTask = nullptr;
    task->release();
}

void Task::setKernelName() const
{
    const std::string_view name(m_options.name, strnlen(m_options.name, sizeof m_options.name));
    if (!name.empty())
    {
        pthread_setname_np(pthread_self(), toKernelThreadName(name).data());
    }
}

bool Task::isSelf() const
{
    return this == currentTask;
}

void Task::markEnded()
{
    const std::lock_guard guard(m_schedulingMutex);
    m_hasEnded = true;
}

int Task::join(int& status)
{
    if (isSelf())
    {
        return EDEADLK;
    }
    if (m_options.joinable == 0)
    {
        return EINVAL;
    }
    const std::lock_guard guard(m_joinMutex);
    if (!m_isJoined)
    {
        const int error = pthread_join(m_thread.load(std::memory_order_relaxed), nullptr);
        if (error != 0)
        {
            return error;
        }
        m_isJoined = true;
    }
    status = m_status;
    return 0;
}

void Task::releaseHandle()
{
    if (isSelf() && m_options.joinable != 0)
    {
        pthread_detach(pthread_self());
    }
    int status = 0;
    join(status);
    release();
}

void Task::release()
{
    if (m_owners.fetch_sub(1, std::memory_order_acq_rel) == 1)
    {
        delete this;
    }
}

osTaskOptions_t Task::options()
{
    osTaskOptions_t result = m_options;
    result.priority = priority();
    return result;
}

int Task::priority()
{
    const std::lock_guard guard(m_schedulingMutex);
    return m_priority;
}

int Task::setPriority(int priority)
{
    const std::lock_guard guard(m_schedulingMutex);
    const int error = m_policy == OS_SCHED_NORMAL ? 0 : apply(m_policy, priority);
    if (error == 0)
    {
        m_priority = priority;
    }
    return error;
}

int Task::setPolicy(osSchedPolicy_t policy)
{
    const std::lock_guard guard(m_schedulingMutex);
    const int error = apply(policy, m_priority);
    if (error == 0)
    {
        m_policy = policy;
    }
    return error;
}

int Task::apply(osSchedPolicy_t policy, int priority) const
{
    if (m_hasEnded)
    {
        return ESRCH;
    }
    const int systemPolicy = toSystemPolicy(policy);
    if (systemPolicy < 0)
    {
        return EINVAL;
    }
    sched_param parameters{};
    parameters.sched_priority = std::clamp(priority, sched_get_priority_min(systemPolicy),
                                           sched_get_priority_max(systemPolicy));
    return pthread_setschedparam(m_thread.load(std::memory_order_relaxed), systemPolicy,
                                 &parameters);
}

}  // namespace host
