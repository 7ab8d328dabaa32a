#ifndef WORKER_POOL_WORKERPOOL_H
#define WORKER_POOL_WORKERPOOL_H

#include <memory>
#include <string>
#include <vector>

#include <utils/command/Macro.h>
#include <utils/queue/Queue.h>
#include <utils/task/Task.h>

#include "FileJob.h"
#include "PendingMacros.h"
#include "Report.h"

namespace worker_pool
{

/// One queue that feeds several workers, and a reporter to which they hand over their results.
///
///     main thread --> "jobs" --> worker-01 ... worker-NN --> reporter
///
/// Thread safety: used by one thread.
class WorkerPool
{
  public:
    /// @param report not owned; the reporter's until finish() has returned
    /// @param queueSize how many macros each task's event queue holds
    WorkerPool(Report& report, unsigned numWorkers, unsigned long queueSize);

    /// Starts the tasks.
    /// @return false when the system has no thread for one of them
    bool start();

    /// Has a file counted and printed. Waits while all queues are full.
    void count(const std::string& path);

    /// Has a problem printed, in turn with the results.
    void print(const std::string& path, const std::string& problem);

    /// Waits until everything is done, then ends the tasks.
    void finish();

  private:
    PendingMacros m_pending;
    Report& m_report;
    utils::queue::Queue m_jobs;
    utils::task::Task m_reporter;
    std::vector<std::unique_ptr<utils::task::Task>> m_workers;
};

}  // namespace worker_pool

#endif
