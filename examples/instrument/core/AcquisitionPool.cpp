#include "core/AcquisitionPool.h"

#include <algorithm>

#include <fmt/format.h>
#include <utils/command/Macro.h>

#include "core/AcquisitionCommands.h"
#include "core/limits.h"

namespace instrument
{

using utils::command::Macro;
using utils::task::Task;

namespace
{

constexpr int DO_NOT_WAIT = 0;
constexpr int PRIORITY = 0;
constexpr bool CONTINUE_ON_ERROR = true;
constexpr bool AUTO_DELETE = true;

// Room for all acquisitions in the queue of one task, and for the macro that ends the task.
constexpr unsigned long QUEUE_SIZE = limits::MAX_ACQUISITIONS + 1;

}  // namespace

AcquisitionPool::AcquisitionPool(unsigned long size, Executor& executor)
    : m_finished(executor), m_acquisitions("acquisitions", QUEUE_SIZE)
{
    // Tasks notify, several at a time.
    m_finishedEvent.enableLock();
    m_finishedEvent.registerInterest(&m_finished, PRIORITY);
    for (unsigned long number = 1; number <= size; ++number)
    {
        // What is written to "acquisitions" is forwarded to the task that has the least to do.
        m_tasks.push_back(std::make_unique<Task>(fmt::format("acquisition-{:02}", number),
                                                 &m_acquisitions, QUEUE_SIZE));
    }
}

AcquisitionPool::~AcquisitionPool()
{
    finish();
}

bool AcquisitionPool::start()
{
    return std::all_of(
        m_tasks.begin(), m_tasks.end(),
        [](const auto& task)
        { return task->start(nullptr, nullptr, false) && task->getOsTaskPtr() != nullptr; });
}

bool AcquisitionPool::acquire(const std::shared_ptr<Acquisition>& acquisition)
{
    if (m_finished.getNumExpected() == limits::MAX_ACQUISITIONS)
    {
        return false;
    }
    // Whatever becomes of a command, the last one has to be executed.
    auto macro = std::make_unique<Macro>("acquire " + acquisition->channel.name, CONTINUE_ON_ERROR,
                                         AUTO_DELETE);
    macro->add(new Settle(acquisition));
    macro->add(new TakeSamples(acquisition));
    macro->add(new Evaluate(acquisition));
    macro->add(new Announce(acquisition, m_finishedEvent));

    if (!m_acquisitions.write(macro.get(), DO_NOT_WAIT))
    {
        return false;
    }
    m_finished.expect();
    macro.release();  // a task has it now; it deletes itself at its end
    return true;
}

bool AcquisitionPool::isRunning() const
{
    return std::all_of(m_tasks.begin(), m_tasks.end(),
                       [](const auto& task) { return task->isThreadOfExecutionRunning(); });
}

void AcquisitionPool::finish()
{
    for (const auto& task : m_tasks)
    {
        if (task->isThreadOfExecutionRunning())
        {
            task->terminate(true);
        }
    }
}

}  // namespace instrument
