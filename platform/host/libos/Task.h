#ifndef HOST_LIBOS_TASK_H
#define HOST_LIBOS_TASK_H

#include <libos/osTask.h>
#include <pthread.h>

#include <atomic>
#include <mutex>

namespace host
{

/// One thread and what is known about it. Owned by the thread, by its handle and, until the thread
/// is started, by its creator: the last to let go deletes the record.
class Task
{
  public:
    Task(osTaskEntry_t entry, const osTaskOptions_t& options, void* arg);
    Task(const Task&) = delete;
    Task& operator=(const Task&) = delete;

    /// The calling thread's record; null when the thread is not a task.
    static Task* self();

    /// Starts the thread. @return 0, or an errno value when no thread could be started
    int start();

    /// Waits for the thread's end. @param status receives its exit status @return 0, or an errno
    /// value
    int join(int& status);

    /// Gives up the handle, after the thread's end where that can be waited for.
    void releaseHandle();

    /// The options at the start, with the current priority.
    osTaskOptions_t options();

    /// @return 0, or an errno value
    int setPriority(int priority);
    int priority();

    /// @return 0, or an errno value
    int setPolicy(osSchedPolicy_t policy);

  private:
    struct EndOfThread
    {
        void operator()(Task* task) const;
    };

    ~Task() = default;

    static void* run(void* task);
    int createThread(uint64_t stackSize);
    void setKernelName() const;
    bool isSelf() const;
    int apply(osSchedPolicy_t policy, int priority) const;
    void markEnded();
    void release();

    const osTaskEntry_t m_entry;
    void* const m_arg;
    const osTaskOptions_t m_options;

    std::atomic<int> m_owners{3};
    /// Stored by the new thread and by its creator, whoever comes first; both store the same value.
    std::atomic<pthread_t> m_thread{};

    std::mutex m_joinMutex;
    bool m_isJoined = false;
    int m_status = 0;  ///< written by the thread, read after it was joined

    std::mutex m_schedulingMutex;  ///< guards what follows
    bool m_hasEnded = false;       ///< the system may have forgotten the thread
    int m_priority;
    osSchedPolicy_t m_policy = OS_SCHED_NORMAL;
};

}  // namespace host

#endif
