#ifndef INSTRUMENT_CORE_ACQUISITIONPOOL_H
#define INSTRUMENT_CORE_ACQUISITIONPOOL_H

#include <memory>
#include <string>
#include <vector>

#include <utils/observer/Event.h>
#include <utils/queue/Queue.h>
#include <utils/task/Task.h>

#include "core/Acquisition.h"
#include "core/Executor.h"
#include "core/FinishedAcquisitions.h"

namespace instrument
{

/// One queue that feeds the tasks that acquire.
///
///     instrument's thread --> "acquisitions" --> acquisition-01 ... acquisition-NN
///                         <-- event "finished" <--
///
/// Thread safety: belongs to one thread, the executor's.
class AcquisitionPool
{
  public:
    /// @param executor not owned
    AcquisitionPool(unsigned long size, Executor& executor);

    /// Ends the tasks, when that has not been done.
    ~AcquisitionPool();

    AcquisitionPool(const AcquisitionPool&) = delete;
    AcquisitionPool& operator=(const AcquisitionPool&) = delete;

    /// Starts the tasks.
    /// @return false when the system has no thread for one of them
    bool start();

    /// Hands an acquisition over. When it has ended, Acquisition::onFinished is called.
    /// @return false, with nothing done, when too many are on their way
    bool acquire(const std::shared_ptr<Acquisition>& acquisition);

    /// Whether all tasks run.
    bool isRunning() const;

    /// Ends the tasks after all that was handed over.
    void finish();

  private:
    utils::observer::Event m_finishedEvent;
    FinishedAcquisitions m_finished;
    utils::queue::Queue m_acquisitions;
    std::vector<std::unique_ptr<utils::task::Task>> m_tasks;
};

}  // namespace instrument

#endif
