#ifndef HOST_LIBOS_SPINBUDGET_H
#define HOST_LIBOS_SPINBUDGET_H

#include <atomic>
#include <cstdint>

namespace host
{

/// Tells the processor that the thread waits in a short loop.
inline void cpuRelax()
{
#if defined(__x86_64__) || defined(__i386__)
    __builtin_ia32_pause();
#elif defined(__aarch64__)
    asm volatile("isb" ::: "memory");
#endif
}

/// Whether waiting in a loop can pay at all: another processor may bring what is waited for.
bool hasSeveralProcessors();

/// How long the waiting threads of a queue's side look at the queue before they sleep.
///
/// Waking a thread takes far longer than an item takes from one running thread to another, so a short loop
/// pays between busy threads. It is a waste before a long sleep: each loop without success halves the next
/// one, down to none, and then only every 64th wait tries again.
class SpinBudget
{
  public:
    /// How often to look, in pauses. Looking at once and often gives the shortest delay, but then the two
    /// sides meet at every item; a pause lets items, or places, collect.
    struct Rhythm
    {
        uint32_t first;
        uint32_t later;
    };

    /// Waits in a loop. @return whether `isReady()` came true
    template <typename Condition>
    bool spinUntil(const Condition& isReady, const Rhythm& rhythm)
    {
        const uint32_t limit = nextLimit();
        for (uint32_t next = rhythm.first, done = 0; done < limit; ++done)
        {
            cpuRelax();
            if (done == next)
            {
                if (isReady())
                {
                    m_pauses.store(maxPauses, std::memory_order_relaxed);
                    return true;
                }
                next += rhythm.later;
            }
        }
        m_pauses.store(limit / 2, std::memory_order_relaxed);
        return false;
    }

  private:
    static constexpr uint32_t maxPauses = 512;  ///< some ten microseconds
    static constexpr uint32_t retryInterval = 64;

    uint32_t nextLimit();

    // Not exact when several threads wait at once, and need not be.
    std::atomic<uint32_t> m_pauses{maxPauses};
    std::atomic<uint32_t> m_waitsWithoutLoop{0};
};

}  // namespace host

#endif
