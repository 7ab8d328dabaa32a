#ifndef GENERIC_UTILS_TASK_TASK_H
#define GENERIC_UTILS_TASK_TASK_H

#include <atomic>
#include <iosfwd>
#include <map>
#include <memory>
#include <string>

#include <libos/osTask.h>
#include <utils/export.h>
#include <utils/queue/Queue.h>
#include <utils/singleton/SingletonT.h>

namespace utils::task
{

class StartGate;
class TerminateTaskMacro;

/// Something that can be started and terminated.
class GENERIC_UTILS_EXPORT TaskControl
{
  protected:
    ~TaskControl() = default;
};

/// An active object: a named thread with an event queue of its own.
///
/// As it stands, a task reads macros from its event queue and executes them until it is told to
/// terminate. Derived classes may override initialize(), run() and finalize(). Other queues can be
/// attached, so that what is written to them is forwarded into the event queue.
///
///     utils::task::Task worker("worker", nullptr, 256);
///     worker.start(nullptr, nullptr, false);
///     worker.getEventQueuePtr()->write(macro, -1);
///     worker.terminate(true);  // after the macros already written have been executed
///
/// A task leaves the collection, ends its thread and waits for it when it is destroyed. A derived
/// class calls cleanUp() first in its destructor, because its own part is gone when the base's
/// destructor runs, while the thread may still be using it.
///
/// A task started with deleteWhenFinished is made with new and deletes itself at the end of its
/// thread; it must neither be joined nor destroyed by anybody else, nor be used after terminate().
///
/// Thread safety: one controlling thread starts, terminates, joins and destroys a task. The hooks
/// run on the task's own thread. The accessors may be called by any thread.
class GENERIC_UTILS_EXPORT Task : public TaskControl
{
  public:
    /// What the thread is doing.
    enum State : int
    {
        NOT_RUNNING = 0,
        RUNNING = 1,
        WAITING_TO_TERMINATE = 2
    };

    static const std::string& TASK_ERROR;         ///< error name "TaskError"
    static const std::string& WRONG_STATE_ERROR;  ///< error name "WrongTaskState"

    /// Creates the task, not yet its thread, and enters it in the task collection. A name that is
    /// taken, by a task or by an event queue, is fatal: it is reported as error ALREADY_EXISTS,
    /// then the process ends with exit status 1.
    /// @param name the event queue is named after it, with "-TaskEventQueue" appended
    /// @param queuePtr a queue to be forwarded into the event queue, as by addQueue(); may be null
    /// @param maxEventQueueSize capacity of the event queue, in macros; at least 1, as a task is told
    ///        to terminate through it
    Task(const std::string& name, utils::queue::Queue* queuePtr, unsigned long maxEventQueueSize);

    /// Cleans up, then destroys the event queue.
    virtual ~Task();

    /// Starts the thread.
    /// @param options copied; null means all zero. Name, joinable and reserved are filled in here.
    /// @param arg handed to run()
    /// @param deleteWhenFinished whether the task deletes itself at the end of its thread
    /// @return false when the task is running already, which is reported as error
    ///        WRONG_STATE_ERROR; otherwise true, also when the platform could not create a thread
    virtual bool start(const osTaskOptions_t* options, void* arg, bool deleteWhenFinished);

    /// Tells the thread to end, by a macro in the event queue: macros written earlier are executed
    /// first.
    /// @param waitForTermination whether to wait for the end of the thread (not when the task
    ///        deletes itself, and not on the task's own thread)
    /// @return false when the task is not running (error WRONG_STATE_ERROR) or its event queue is
    ///        full (error TASK_ERROR); both are reported
    virtual bool terminate(bool waitForTermination);

    /// Whether terminate() has been called. A run() with a loop of its own polls it.
    virtual bool waitingToTerminate();

    /// Writes name, event queue, state, platform handle and exit status, a line each.
    virtual void output(std::ostream& os) const;

    /// Called on the task's thread before run(). The base does nothing.
    virtual void initialize();

    /// The thread's work. The base reads macros from the event queue and executes them until a
    /// TerminateTaskMacro comes.
    /// @param arg as given to start()
    /// @return the exit status; the base returns 0, or 1 when the event queue cannot be read
    ///        (reported as error TASK_ERROR)
    virtual int run(void* arg);

    /// Called on the task's thread after run(). The base does nothing.
    virtual void finalize(const int& exitStatus);

    Task(const Task&) = delete;
    Task& operator=(const Task&) = delete;

    /// Waits for the end of the thread.
    /// @param exitStatus receives what run() returned; untouched on failure
    /// @return false when the task is not running or the caller is the task itself; both are
    ///        reported as error WRONG_STATE_ERROR
    bool join(int& exitStatus);

    /// Leaves the task collection, ends the thread, waits for it and gives its handle back. When
    /// the event queue is full, goes on trying until there is a place in it or the thread has
    /// ended. May be called again; a derived destructor calls it first.
    void cleanUp();

    /// Whether the thread has been started and has not finished.
    bool isThreadOfExecutionRunning() const;

    /// Sets the thread's priority.
    /// @return false when the task is not running, which is reported as error WRONG_STATE_ERROR,
    ///        or when the platform refuses
    bool setPriority(const int& priority);

    /// Gets the thread's priority.
    /// @return false when the task is not running, which is reported as error WRONG_STATE_ERROR
    bool getPriority(int& priority) const;

    /// Sets the thread's scheduling policy.
    /// @return false when the platform refuses, or the task was never started
    bool setSchedulingPolicy(osSchedPolicy_t policy);

    /// Sends the calling thread to sleep.
    static void goToSleep(unsigned long milliseconds);

    /// Gives way to other threads that are ready to run.
    static void yield();

    /// Forwards what is written to a queue into the event queue. Null is fatal: it is reported as
    /// error NULL_PTR, then the process ends with exit status 1.
    void addQueue(utils::queue::Queue* queuePtr);

    /// Undoes addQueue(). Null is fatal likewise.
    void removeQueue(utils::queue::Queue* queuePtr);

    /// The name under which the calling thread was started; empty on a thread that is not a
    /// task's.
    static std::string getMyName();

    /// Looks a task up; a miss is not reported.
    /// @param name an empty name stands for the name of the calling thread; on a thread that is not
    ///        a task's the result is then null
    static Task* getTaskPtr(const std::string& name);

    /// Writes all tasks in the byte-wise order of their names, each followed by an empty line. A
    /// task that deletes itself meanwhile waits until it has been written.
    /// @return `os`
    static std::ostream& outputTasks(std::ostream& os);

    /// The name, as given to the constructor.
    const std::string& getName() const { return m_name; }

    /// The task's event queue. It must not be made to forward: the task would not see its macros.
    utils::queue::Queue* getEventQueuePtr() { return &m_eventQueue; }

    /// What the thread is doing, at some moment during the call.
    State getState() const { return m_state.load(std::memory_order_acquire); }

    /// Replaces the state, for a derived task that starts or ends its thread in a way of its own.
    void setState(State state) { m_state.store(state, std::memory_order_release); }

    /// What run() last returned; 0 before, and from start() on until the thread has finished.
    int getExitStatus() const { return m_exitStatus.load(std::memory_order_acquire); }

    /// The platform's handle of the thread; null before the first start.
    osTaskHandle_t getOsTaskPtr() const { return m_osTask.load(std::memory_order_acquire); }

  protected:
    /// The thread from its start to its end: initialize(), run(), finalize(). @return the exit
    /// status
    int go(void* arg);

    /// Notes that the thread has finished.
    void threadOfExecutionFinished(int status);

  private:
    GENERIC_UTILS_LOCAL static int staticGo(void* arg);

    GENERIC_UTILS_LOCAL osTaskOptions_t makeOptions(const osTaskOptions_t* options,
                                                    bool deleteWhenFinished);
    GENERIC_UTILS_LOCAL void launch(const osTaskOptions_t& options, void* arg, StartGate& gate);
    bool isRunning() const { return getState() != NOT_RUNNING; }
    GENERIC_UTILS_LOCAL bool isOwnThread() const;
    GENERIC_UTILS_LOCAL bool exchangeState(State from, State to);
    GENERIC_UTILS_LOCAL bool joinThread(int& exitStatus);
    GENERIC_UTILS_LOCAL TerminateTaskMacro* makeTerminateMacro();
    GENERIC_UTILS_LOCAL void awaitThread();
    GENERIC_UTILS_LOCAL bool tryToTerminate();
    GENERIC_UTILS_LOCAL bool offerTerminateMacro();
    GENERIC_UTILS_LOCAL void offerTermination();
    GENERIC_UTILS_LOCAL void destroyOsTask();

    std::string m_name;
    utils::queue::Queue m_eventQueue;
    bool m_deleteWhenFinished = false;
    std::atomic<State> m_state{NOT_RUNNING};
    std::atomic<osTaskHandle_t> m_osTask{nullptr};
    std::atomic<int> m_exitStatus{0};

    bool m_isCleaningUp = false;

    // Holds the new thread back until start() has finished with the task.
    std::shared_ptr<StartGate> m_startGate;
};

/// Writes the task through its virtual output().
GENERIC_UTILS_EXPORT std::ostream& operator<<(std::ostream& os, const Task& task);

}  // namespace utils::task

namespace utils::singleton
{
extern template class SingletonT<std::map<std::string, utils::task::Task*>>;
}  // namespace utils::singleton

#endif
