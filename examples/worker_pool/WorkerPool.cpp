#include "WorkerPool.h"

#include <utils/queue/WriteCommand.h>

#include "CountFile.h"
#include "PrintCount.h"

namespace worker_pool
{

using utils::command::Macro;
using utils::queue::Queue;
using utils::queue::WriteCommand;
using utils::task::Task;

namespace
{

constexpr int WAIT_FOREVER = -1;
constexpr bool CONTINUE_ON_ERROR = true;
constexpr bool AUTO_DELETE = true;

std::string workerName(unsigned number)
{
    const std::string digits = std::to_string(number);
    return (number < 10 ? "worker-0" : "worker-") + digits;
}

bool start(Task& task)
{
    return task.start(nullptr, nullptr, false) && task.getOsTaskPtr() != nullptr;
}

// Hands a macro over to whoever reads the queue; it deletes itself at its end.
void send(Queue& queue, std::unique_ptr<Macro> macro)
{
    if (queue.write(macro.get(), WAIT_FOREVER))
    {
        macro.release();
    }
}

}  // namespace

WorkerPool::WorkerPool(Report& report, unsigned numWorkers, unsigned long queueSize)
    : m_report(report), m_jobs("jobs", queueSize), m_reporter("reporter", nullptr, queueSize)
{
    for (unsigned number = 1; number <= numWorkers; ++number)
    {
        // What is written to "jobs" is forwarded to the worker that has the least to do.
        m_workers.push_back(std::make_unique<Task>(workerName(number), &m_jobs, queueSize));
        m_report.addWorker(workerName(number));
    }
}

bool WorkerPool::start()
{
    bool isStarted = worker_pool::start(m_reporter);
    for (const auto& worker : m_workers)
    {
        isStarted = isStarted && worker_pool::start(*worker);
    }
    return isStarted;
}

void WorkerPool::count(const std::string& path)
{
    const auto job = std::make_shared<FileJob>(m_pending, path);
    auto macro = std::make_unique<Macro>("count " + path, !CONTINUE_ON_ERROR, AUTO_DELETE);

    // A worker executes these two. With the second the macro leaves it: it is suspended, and
    // travels on to the reporter.
    macro->add(new CountFile(job));
    macro->add(new WriteCommand(m_reporter.getEventQueuePtr(), macro.get(), WAIT_FOREVER));
    // The reporter resumes the macro here; then the macro has come to its end and deletes itself.
    macro->add(new PrintCount(job, m_report));

    send(m_jobs, std::move(macro));
}

void WorkerPool::print(const std::string& path, const std::string& problem)
{
    const auto job = std::make_shared<FileJob>(m_pending, path);
    job->problem = problem;
    auto macro = std::make_unique<Macro>("problem " + path, !CONTINUE_ON_ERROR, AUTO_DELETE);
    macro->add(new PrintCount(job, m_report));
    send(*m_reporter.getEventQueuePtr(), std::move(macro));
}

void WorkerPool::finish()
{
    // terminate() does not wait for a place in an event queue. When nothing is on its way any more,
    // all of them are empty.
    m_pending.waitUntilNone();

    // Those who write to a task end before it.
    for (const auto& worker : m_workers)
    {
        worker->terminate(true);
    }
    m_reporter.terminate(true);
}

}  // namespace worker_pool
