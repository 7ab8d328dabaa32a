#include <utils/task/Task.h>

#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <new>
#include <ostream>
#include <typeinfo>

#include <utils/flag/Trace.h>
#include <utils/singleton/NeverDestroyed.h>
#include <utils/task/Flags.h>
#include <utils/task/TerminateTaskMacro.h>

#include "internal/EndProcess.h"
#include "internal/LastWords.h"
#include "internal/NamedRegistry.h"
#include "internal/Report.h"
#include "internal/TextOutput.h"
#include "task/src/StartGate.h"

namespace utils::singleton
{
template class SingletonT<std::map<std::string, task::Task*>>;
}

namespace utils::task
{

using error::Error;

// Never destroyed, like the error names of utils::error::Error.
const std::string& Task::TASK_ERROR = *new std::string("TaskError");
const std::string& Task::WRONG_STATE_ERROR = *new std::string("WrongTaskState");

namespace
{

constexpr int WAIT_FOREVER = -1;

// How long to wait for a place in a full event queue before looking whether the thread still runs.
constexpr int OFFER_WAIT_MS = 20;

// And then, since a platform may refuse at once.
constexpr unsigned long OFFER_PAUSE_MS = 1;

NamedRegistry<Task>& registry()
{
    static singleton::NeverDestroyed<NamedRegistry<Task>> theRegistry("Task", "tasks");
    return theRegistry.get();
}

long nextUnnamedTaskId()
{
    static std::atomic<long> lastId{0};
    return ++lastId;
}

bool isTermination(const command::Macro& macro)
{
    // Most macros are plain ones, and to compare their type is cheaper than to cast.
    return typeid(macro) != typeid(command::Macro) &&
           dynamic_cast<const TerminateTaskMacro*>(&macro) != nullptr;
}

// The lines that follow the options' caption in a trace.
std::string describe(const osTaskOptions_t& options)
{
    // NOLINTNEXTLINE(performance-no-int-to-ptr): only printed.
    const auto toPointer = [](std::uintptr_t value) { return reinterpret_cast<void*>(value); };
    return toText("    Name          = '", options.name, "'",                      //
                  "\n    Priority      = ", options.priority,                      //
                  "\n    Stack size    = ", static_cast<long>(options.stackSize),  //
                  "\n    Persist?      = ", options.persist,                       //
                  "\n    Joinable?     = ", options.joinable,                      //
                  "\n    Destroy hook  = ", options.destroyHook != nullptr,        //
                  "\n    User1         = ", toPointer(options.user1),              //
                  "\n    User2         = ", toPointer(options.user2),              //
                  "\n    Reserved      = ", static_cast<const void*>(options.reserved));
}

}  // namespace

Task::Task(const std::string& name, utils::queue::Queue* queuePtr, unsigned long maxEventQueueSize)
    : m_name(name), m_eventQueue(name + "-TaskEventQueue", maxEventQueueSize)
{
    registry().requireUnique(GENERIC_UTILS_HERE, m_name);
    GENERIC_UTILS_TRACE_STEP(1, "Creating task '" << m_name << "'.");
    try
    {
        if (queuePtr != nullptr)
        {
            addQueue(queuePtr);
        }
        registry().add(GENERIC_UTILS_HERE, m_name, this);
    }
    catch (...)
    {
        // Also when a strategy that was told of the forwarding has thrown.
        if (queuePtr != nullptr)
        {
            queuePtr->stopForwardingTo(&m_eventQueue);
        }
        throw;
    }
}

Task::~Task()
{
    GENERIC_UTILS_LAST_WORDS(GENERIC_UTILS_TRACE_STEP(1, "Destroying task '" << m_name << "'."));
    cleanUp();
    GENERIC_UTILS_LAST_WORDS(GENERIC_UTILS_TRACE_STEP(1, "Destroyed '" << m_name << "'."));
}

void Task::cleanUp()
{
    registry().remove(m_name);
    m_isCleaningUp = true;
    if (isRunning() && !tryToTerminate())
    {
        offerTermination();
    }
    m_isCleaningUp = false;
    destroyOsTask();
}

bool Task::tryToTerminate()
{
    try
    {
        // A derived class that overrides terminate() calls cleanUp() in its own destructor.
        // NOLINTNEXTLINE(clang-analyzer-optin.cplusplus.VirtualCall): for that reason
        return terminate(true);
    }
    catch (const std::bad_alloc&)
    {
        return false;
    }
}

// Goes on where terminate() gave up because the event queue is full, or memory has run out.
void Task::offerTermination()
{
    while (isRunning() && getOsTaskPtr() != nullptr && !isOwnThread())
    {
        exchangeState(RUNNING, WAITING_TO_TERMINATE);
        if (offerTerminateMacro())
        {
            return;
        }
        goToSleep(OFFER_PAUSE_MS);
    }
}

bool Task::offerTerminateMacro()
{
    try
    {
        auto macro = std::make_unique<TerminateTaskMacro>(&m_eventQueue);
        if (!m_eventQueue.store(macro.get(), OFFER_WAIT_MS))
        {
            return false;
        }
        macro.release();
        return true;
    }
    catch (const std::bad_alloc&)
    {
        return false;
    }
}

void Task::destroyOsTask()
{
    // The platform returns when the thread has ended.
    osTaskHandle_t const osTask = m_osTask.exchange(nullptr);
    if (osTask != nullptr)
    {
        osTaskDestroy(osTask);
    }
}

bool Task::start(const osTaskOptions_t* options, void* arg, bool deleteWhenFinished)
{
    if (isRunning())
    {
        error::report(GENERIC_UTILS_HERE, WRONG_STATE_ERROR, Error::ERROR, "Task '", m_name,
                      "' can not be started - task is already running.");
        return false;
    }
    GENERIC_UTILS_TRACE_STEP(1, "Starting thread of execution for task '" << m_name << "'.");

    const osTaskOptions_t completeOptions = makeOptions(options, deleteWhenFinished);
    GENERIC_UTILS_TRACE_STEP(2, "Options for task '" << m_name << "':\n"
                                                     << describe(completeOptions));

    destroyOsTask();
    const auto gate = std::make_shared<StartGate>();
    m_startGate = gate;
    m_deleteWhenFinished = deleteWhenFinished;
    m_exitStatus = 0;
    setState(RUNNING);
    launch(completeOptions, arg, *gate);  // afterwards the task may be gone
    return true;
}

osTaskOptions_t Task::makeOptions(const osTaskOptions_t* options, bool deleteWhenFinished)
{
    osTaskOptions_t complete = options != nullptr ? *options : osTaskOptions_t{};
    if (m_name.empty())
    {
        std::snprintf(complete.name, sizeof(complete.name), "Task:%p:ID%ld",
                      static_cast<void*>(this), nextUnnamedTaskId());
    }
    else
    {
        std::memset(complete.name, 0, sizeof(complete.name));
        m_name.copy(complete.name, sizeof(complete.name) - 1);
    }
    complete.joinable = deleteWhenFinished ? 0 : 1;
    complete.reserved = this;
    return complete;
}

void Task::launch(const osTaskOptions_t& options, void* arg, StartGate& gate)
{
    watchForEndOfProcess();
    const StartGate::Closed closed(gate);
    m_osTask = osTaskCreate(&Task::staticGo, &options, arg);
}

int Task::staticGo(void* arg)
{
    osTaskHandle_t const self = osTaskSelf();
    void* const reserved = self == nullptr ? nullptr : osTaskGetOptions(self).reserved;
    if (reserved == nullptr)
    {
        error::report(GENERIC_UTILS_HERE, TASK_ERROR, Error::ERROR,
                      "Could not get task entry for the current task.");
        return 1;
    }

    Task* const task = static_cast<Task*>(reserved);
    const std::shared_ptr<StartGate> gate = task->m_startGate;
    gate->pass();

    task->m_osTask = self;
    const int status = task->go(arg);
    const bool deleteWhenFinished = task->m_deleteWhenFinished;
    task->threadOfExecutionFinished(status);
    if (deleteWhenFinished)
    {
        delete task;
    }
    return status;
}

int Task::go(void* arg)
{
    GENERIC_UTILS_TRACE_STEP(
        1, "Thread of execution for task '" << m_name << "' (" << gettid() << ") started.");
    initialize();
    const int status = run(arg);
    finalize(status);
    GENERIC_UTILS_TRACE_STEP(1, "Thread of execution for task '"
                                    << m_name << "' has completed - exit status = " << status
                                    << ".");
    return status;
}

void Task::threadOfExecutionFinished(int status)
{
    // In this order: whoever sees that the task is not running finds its exit status.
    m_exitStatus.store(status, std::memory_order_relaxed);
    setState(NOT_RUNNING);
    GENERIC_UTILS_TRACE_STEP(
        1, "Task '" << m_name << "' has been notified that its thread of execution has finished.");
}

void Task::initialize() {}

int Task::run(void*)
{
    GENERIC_UTILS_TRACE_STEP(2,
                             "Invoking default task main method - reading/executing macros written "
                             "to queue '"
                                 << m_eventQueue.getName() << "'.");
    command::Macro* macroPtr = nullptr;
    while (m_eventQueue.read(macroPtr, WAIT_FOREVER))
    {
        if (isTermination(*macroPtr))
        {
            delete macroPtr;
            return 0;
        }
        macroPtr->execute();
    }
    error::report(GENERIC_UTILS_HERE, TASK_ERROR, Error::ERROR,
                  "Could not read from internal Event Queue '", m_eventQueue.getName(),
                  "' for task '", m_name, "' - terminating task.");
    return 1;
}

void Task::finalize(const int&) {}

bool Task::terminate(bool waitForTermination)
{
    if (!isRunning())
    {
        if (m_isCleaningUp)
        {
            return true;  // the thread has just ended by itself
        }
        error::report(GENERIC_UTILS_HERE, WRONG_STATE_ERROR, Error::ERROR, "Task '", m_name,
                      "' can not be terminated - task is not running.");
        return false;
    }
    GENERIC_UTILS_TRACE_STEP(1, "Terminating thread of execution for task '" << m_name << "'.");

    if (!exchangeState(RUNNING, WAITING_TO_TERMINATE) && !isRunning())
    {
        return true;  // likewise
    }

    const bool deletesItself = m_deleteWhenFinished;
    // Not in a smart pointer: when a strategy that is told of the last steps throws, the macro is the
    // task's already.
    auto* const macroPtr = makeTerminateMacro();
    if (macroPtr->execute() != 0)
    {
        const std::unique_ptr<TerminateTaskMacro> unwritten(macroPtr);
        if (!exchangeState(WAITING_TO_TERMINATE, RUNNING) && !isRunning())
        {
            return true;
        }
        error::report(GENERIC_UTILS_HERE, TASK_ERROR, Error::ERROR, "Could not terminate task '",
                      m_name, "' - unknown error.");
        return false;
    }

    // From here on the macro is the task's, and a task that deletes itself may be gone.
    if (waitForTermination && !deletesItself)
    {
        awaitThread();
    }
    return true;
}

// Without memory for the macro, the task goes on.
TerminateTaskMacro* Task::makeTerminateMacro()
{
    try
    {
        return new TerminateTaskMacro(&m_eventQueue);
    }
    catch (...)
    {
        exchangeState(WAITING_TO_TERMINATE, RUNNING);
        throw;
    }
}

void Task::awaitThread()
{
    int exitStatus = 0;
    if (isRunning())
    {
        joinThread(exitStatus);
    }
    else if (!isOwnThread())
    {
        osTaskJoin(getOsTaskPtr());  // its last steps
    }
}

bool Task::exchangeState(State from, State to)
{
    return m_state.compare_exchange_strong(from, to);
}

bool Task::waitingToTerminate()
{
    return getState() == WAITING_TO_TERMINATE;
}

bool Task::join(int& exitStatus)
{
    if (!isRunning())
    {
        error::report(GENERIC_UTILS_HERE, WRONG_STATE_ERROR, Error::ERROR, "Can not join task '",
                      getMyName(), "' to task '", m_name, "' - task is not running.");
        return false;
    }
    return joinThread(exitStatus);
}

bool Task::joinThread(int& exitStatus)
{
    static constexpr const char* FUNCTION = "join";
    GENERIC_UTILS_TRACE_AT((SourceLocation{__FILE__, __LINE__, FUNCTION}),
                           flag::findTraceSteps<Flags>(), 1,
                           "Joining task '" << getMyName() << "' to task '" << m_name << "'.");
    if (isOwnThread())
    {
        error::report({__FILE__, __LINE__, FUNCTION}, WRONG_STATE_ERROR, Error::ERROR,
                      "Can not join task '", getMyName(), "' to task '", m_name,
                      "' - a task can not wait for itself.");
        return false;
    }
    exitStatus = osTaskJoin(getOsTaskPtr());
    return true;
}

bool Task::isOwnThread() const
{
    osTaskHandle_t const self = osTaskSelf();
    return self != nullptr && self == getOsTaskPtr();
}

bool Task::isThreadOfExecutionRunning() const
{
    const bool result = isRunning();
    GENERIC_UTILS_TRACE_STEP(
        2, "Thread of execution running for task '" << m_name << "' = " << result << ".");
    return result;
}

bool Task::setPriority(const int& priority)
{
    if (!isRunning())
    {
        error::report(GENERIC_UTILS_HERE, WRONG_STATE_ERROR, Error::ERROR,
                      "Can not set priority of task '", m_name, "' to ", priority,
                      " - task is not running.");
        return false;
    }
    GENERIC_UTILS_TRACE_STEP(
        1, "Setting the priority of task '" << m_name << "' to " << priority << ".");
    return osTaskSetPriority(getOsTaskPtr(), priority) != 0;
}

bool Task::getPriority(int& priority) const
{
    if (!isRunning())
    {
        error::report(GENERIC_UTILS_HERE, WRONG_STATE_ERROR, Error::ERROR,
                      "Can not get priority of task '", m_name, "' - task is not running.");
        return false;
    }
    priority = osTaskGetPriority(getOsTaskPtr());
    GENERIC_UTILS_TRACE_STEP(2, "Priority of task '" << m_name << "' = " << priority << ".");
    return true;
}

bool Task::setSchedulingPolicy(osSchedPolicy_t policy)
{
    return osSetSchedPolicy(getOsTaskPtr(), policy) != 0;
}

void Task::goToSleep(unsigned long milliseconds)
{
    osTaskSleep(nullptr, milliseconds);
}

void Task::yield()
{
    goToSleep(0);
}

void Task::addQueue(utils::queue::Queue* queuePtr)
{
    if (queuePtr == nullptr)
    {
        error::reportFatal(GENERIC_UTILS_HERE, Error::NULL_PTR, Error::ERROR,
                           "Null pointer (queuePtr) passed to Task::addQueue for task '", m_name,
                           "'.");
    }
    queuePtr->startForwardingTo(&m_eventQueue);
    GENERIC_UTILS_TRACE_STEP(1, "Forwarding macros written to queue '"
                                    << queuePtr->getName()
                                    << "' to the internal Event Queue of  task '" << m_name
                                    << "'.");
}

void Task::removeQueue(utils::queue::Queue* queuePtr)
{
    if (queuePtr == nullptr)
    {
        error::reportFatal(GENERIC_UTILS_HERE, Error::NULL_PTR, Error::ERROR,
                           "Null pointer (queuePtr) passed to Task::removeQueue for task '", m_name,
                           "'.");
    }
    queuePtr->stopForwardingTo(&m_eventQueue);
    GENERIC_UTILS_TRACE_STEP(1, "Stopping the forwarding of macros written to queue '"
                                    << queuePtr->getName()
                                    << "' to the internal Event Queue of  task '" << m_name
                                    << "'.");
}

std::string Task::getMyName()
{
    const osTaskOptions_t options = osTaskGetOptions(osTaskSelf());
    std::string name(options.name, strnlen(options.name, sizeof(options.name)));
    GENERIC_UTILS_TRACE_STEP(1, "My task name is '" << name << "'.");
    return name;
}

Task* Task::getTaskPtr(const std::string& name)
{
    const std::string key = name.empty() ? getMyName() : name;
    return key.empty() ? nullptr : registry().find(key);
}

std::ostream& Task::outputTasks(std::ostream& os)
{
    registry().output(os);
    return os;
}

void Task::output(std::ostream& os) const
{
    writeLine(os, "Name                = '", m_name, "'");
    writeLine(os, "Event Queue         = '", m_eventQueue.getName(), "'");
    writeLine(os, "State               = ", static_cast<int>(getState()));
    writeLine(os, "OS Task Pointer     = ", getOsTaskPtr());
    writeLine(os, "Exit Status         = ", getExitStatus());
}

std::ostream& operator<<(std::ostream& os, const Task& task)
{
    task.output(os);
    return os;
}

}  // namespace utils::task
