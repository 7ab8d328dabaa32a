#include "core/WorkList.h"

#include <utility>

namespace instrument
{

void WorkList::post(std::function<void()> work)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_work.push_back(std::move(work));
    m_hasWork.notify_one();
}

void WorkList::runOne()
{
    std::function<void()> work;
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_hasWork.wait(lock, [this] { return !m_work.empty(); });
        work = std::move(m_work.front());
        m_work.pop_front();
    }
    work();
}

void WorkList::runPending()
{
    std::deque<std::function<void()>> pending;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        pending.swap(m_work);
    }
    for (const auto& work : pending)
    {
        work();
    }
}

}  // namespace instrument
