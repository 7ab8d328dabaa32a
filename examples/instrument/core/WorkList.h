#ifndef INSTRUMENT_CORE_WORKLIST_H
#define INSTRUMENT_CORE_WORKLIST_H

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>

#include "core/Executor.h"

namespace instrument
{

/// An executor for programs without an event loop: whoever calls runOne() is its thread.
class WorkList : public Executor
{
  public:
    void post(std::function<void()> work) override;

    /// Waits until there is work, and does it.
    void runOne();

    /// Does the work that is there, without waiting for more.
    void runPending();

  private:
    std::mutex m_mutex;
    std::condition_variable m_hasWork;
    std::deque<std::function<void()>> m_work;
};

}  // namespace instrument

#endif
