#ifndef INSTRUMENT_CORE_FINISHEDACQUISITIONS_H
#define INSTRUMENT_CORE_FINISHEDACQUISITIONS_H

#include <memory>

#include <utils/observer/Notifier.h>

#include "core/Acquisition.h"
#include "core/Executor.h"

namespace instrument
{

/// Is notified by the tasks of acquisitions that have ended, and takes them back to the thread of
/// their owners.
class FinishedAcquisitions : public utils::observer::Notifier
{
  public:
    /// @param executor not owned
    explicit FinishedAcquisitions(Executor& executor) : m_executor(executor) {}

    /// Runs on the thread of the task.
    /// @param data address of a std::shared_ptr<Acquisition>
    void notify(void* data) override;

    /// Counts an acquisition that is handed over.
    void expect() { ++m_numExpected; }

    /// How many have been handed over and are not back.
    unsigned long getNumExpected() const { return m_numExpected; }

  private:
    void finish(Acquisition& acquisition);

    Executor& m_executor;
    unsigned long m_numExpected = 0;
};

}  // namespace instrument

#endif
