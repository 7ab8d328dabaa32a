#ifndef WORKER_POOL_PENDINGMACROS_H
#define WORKER_POOL_PENDINGMACROS_H

#include <atomic>

namespace worker_pool
{

/// How many macros are on their way, and a wait until there are none.
///
/// Thread safety: may be used by any thread.
class PendingMacros
{
  public:
    /// Lives in a macro, in what its commands share. However the macro ends, the ticket goes with
    /// it.
    class Ticket
    {
      public:
        explicit Ticket(PendingMacros& pending) : m_pending(pending) { ++m_pending.m_number; }
        ~Ticket()
        {
            --m_pending.m_number;
            m_pending.m_number.notify_all();
        }

        Ticket(const Ticket&) = delete;
        Ticket& operator=(const Ticket&) = delete;

      private:
        PendingMacros& m_pending;
    };

    /// Waits until no macro is on its way.
    void waitUntilNone() const
    {
        for (unsigned long number = m_number; number != 0; number = m_number)
        {
            m_number.wait(number);
        }
    }

  private:
    std::atomic<unsigned long> m_number{0};
};

}  // namespace worker_pool

#endif
