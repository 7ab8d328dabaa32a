#ifndef HOST_LIBOS_SIDELOCK_H
#define HOST_LIBOS_SIDELOCK_H

#include <libos/Futex.h>

namespace host
{

/// The lock of one side of a queue, which also remembers whether threads of the other side sleep.
///
/// Lock and flag share one word, so the thread that unlocks learns in the same step whether it has
/// to wake somebody: a thread that raises the flag and then looks at the queue either sees what the
/// holder did, or the holder sees the flag. No wake-up is lost and no memory fence is needed.
///
/// Unlocking may touch the word once more after another thread could take the lock. That does no
/// harm to whoever uses the word by then: it wakes at most one thread without a reason.
class SideLock
{
  public:
    void lock()
    {
        if ((m_word.fetch_or(locked, std::memory_order_acquire) & locked) != 0)
        {
            lockContended();
        }
    }

    /// @return whether threads of the other side sleep
    bool unlock()
    {
        const uint32_t before = m_word.fetch_sub(locked, std::memory_order_release);
        if ((before & contended) != 0)
        {
            wakeContender();
        }
        return (before & sleepers) != 0;
    }

    /// From now on unlock() reports sleepers. What the holders before did is visible after this
    /// call.
    void raiseSleepers() { m_word.fetch_or(sleepers, std::memory_order_acq_rel); }

    void lowerSleepers() { m_word.fetch_and(~sleepers, std::memory_order_relaxed); }

  private:
    static constexpr uint32_t locked = 1;
    static constexpr uint32_t contended = 2;  ///< threads sleep until the lock is free
    static constexpr uint32_t sleepers = 4;   ///< threads of the other side sleep

    void lockContended();
    bool lockSpinning();
    void wakeContender();

    FutexWord m_word{0};
};

}  // namespace host

#endif
