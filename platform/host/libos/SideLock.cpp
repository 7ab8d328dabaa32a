#include <libos/SideLock.h>
#include <libos/SpinBudget.h>

namespace host
{
namespace
{

/// The lock is held for some tens of instructions, far less than a sleep costs.
constexpr int lockSpins = 100;

}  // namespace

void SideLock::lockContended()
{
    if (lockSpinning())
    {
        return;
    }
    // Whoever has slept keeps the flag raised when it gets the lock, as others may still sleep.
    uint32_t before = m_word.fetch_or(locked | contended, std::memory_order_acquire);
    while ((before & locked) != 0)
    {
        futexWait(m_word, before | contended, Deadline());
        before = m_word.fetch_or(locked | contended, std::memory_order_acquire);
    }
}

bool SideLock::lockSpinning()
{
    const int spins = hasSeveralProcessors() ? lockSpins : 0;
    for (int spin = 0; spin < spins; ++spin)
    {
        cpuRelax();
        const bool isFree = (m_word.load(std::memory_order_relaxed) & locked) == 0;
        if (isFree && (m_word.fetch_or(locked, std::memory_order_acquire) & locked) == 0)
        {
            return true;
        }
    }
    return false;
}

void SideLock::wakeContender()
{
    m_word.fetch_and(~contended, std::memory_order_relaxed);
    futexWakeOne(&m_word);
}

}  // namespace host
