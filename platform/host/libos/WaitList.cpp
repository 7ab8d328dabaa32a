#include <libos/TightTimer.h>
#include <libos/WaitList.h>

#include <optional>

namespace host
{

bool Waiter::sleep(const Deadline& deadline) const
{
    std::optional<TightTimer> tightTimer;
    if (deadline.isLimited())
    {
        tightTimer.emplace();
    }
    while (!isClaimed())
    {
        if (!futexWait(m_isClaimed, 0, deadline))
        {
            return false;
        }
    }
    return true;
}

void WaitList::add(Waiter& waiter)
{
    const std::lock_guard guard(m_mutex);
    waiter.m_previous = m_last;
    (m_last != nullptr ? m_last->m_next : m_first) = &waiter;
    m_last = &waiter;
    m_otherSide.raiseSleepers();
}

void WaitList::remove(Waiter& waiter)
{
    if (waiter.isClaimed())
    {
        return;
    }
    const std::lock_guard guard(m_mutex);
    if (!waiter.isClaimed())
    {
        unlink(waiter);
    }
}

void WaitList::wakeOne()
{
    const FutexWord* const claimed = claimFirst();
    if (claimed != nullptr)
    {
        futexWakeOne(claimed);
    }
}

FutexWord* WaitList::claimFirst()
{
    const std::lock_guard guard(m_mutex);
    if (m_first == nullptr)
    {
        return nullptr;
    }
    Waiter& waiter = *m_first;
    unlink(waiter);
    FutexWord* const word = &waiter.m_isClaimed;
    word->store(1, std::memory_order_release);  // the last access: the thread may be gone after it
    return word;
}

void WaitList::unlink(Waiter& waiter)
{
    (waiter.m_previous != nullptr ? waiter.m_previous->m_next : m_first) = waiter.m_next;
    (waiter.m_next != nullptr ? waiter.m_next->m_previous : m_last) = waiter.m_previous;
    if (m_first == nullptr)
    {
        m_otherSide.lowerSleepers();
    }
}

}  // namespace host
