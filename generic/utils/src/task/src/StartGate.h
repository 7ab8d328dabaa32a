#ifndef GENERIC_UTILS_TASK_STARTGATE_H
#define GENERIC_UTILS_TASK_STARTGATE_H

#include <libos/COsMutex.h>
#include <utils/lock/Lock.h>

namespace utils::task
{

/// Holds a new thread back until the thread that starts it has finished with the task object,
/// which the new thread may delete at its end. Shared by both, so that whoever passes last finds
/// it alive.
class StartGate
{
  public:
    /// Closed for the time of a scope, on the starting thread.
    class Closed
    {
      public:
        explicit Closed(StartGate& gate) : m_lock(gate.m_mutex) {}

      private:
        const lock::Lock m_lock;
    };

    /// Returns when the gate is open.
    void pass() { const lock::Lock opened(m_mutex); }

  private:
    COsMutex m_mutex;
};

}  // namespace utils::task

#endif
