#ifndef GENERIC_UTILS_QUEUE_FORWARDINGTARGETS_H
#define GENERIC_UTILS_QUEUE_FORWARDINGTARGETS_H

#include <atomic>
#include <memory>
#include <vector>

#include <libos/COsMutex.h>

namespace utils::queue
{

class Queue;

/// The queues that a queue forwards to, as writers see them: a list that is replaced whole, so
/// that it is read without a lock on the way of every macro.
///
/// Thread safety: read() and isEmpty() may be called by any thread; publish() by the holder of the
/// mutex.
class ForwardingTargets
{
  public:
    using List = std::vector<Queue*>;

    ForwardingTargets() = default;
    ~ForwardingTargets() { delete m_published.load(); }

    ForwardingTargets(const ForwardingTargets&) = delete;
    ForwardingTargets& operator=(const ForwardingTargets&) = delete;

    /// Serialises rewiring.
    COsMutex& getMutex() { return m_mutex; }

    /// Replaces the list.
    void publish(const List& queues)
    {
        auto next = queues.empty() ? nullptr : std::make_unique<const List>(queues);
        m_retired.reserve(m_retired.size() + 1);
        m_retired.emplace_back(m_published.exchange(next.release()));
        // A reader that arrives after this test finds the new list.
        if (m_numReaders.load() == 0)
        {
            m_retired.clear();
        }
    }

    bool isEmpty() const { return m_published.load(std::memory_order_acquire) == nullptr; }

    /// Calls function(list) with the current list, null when it is empty, and returns what that
    /// returns. The list may be gone afterwards.
    template <typename Function>
    auto read(Function function) const
    {
        const Reading reading(m_numReaders);
        return function(m_published.load());
    }

  private:
    class Reading
    {
      public:
        explicit Reading(std::atomic<unsigned>& numReaders) : m_numReaders(numReaders)
        {
            m_numReaders.fetch_add(1);
        }
        ~Reading() { m_numReaders.fetch_sub(1); }

        Reading(const Reading&) = delete;
        Reading& operator=(const Reading&) = delete;

      private:
        std::atomic<unsigned>& m_numReaders;
    };

    std::atomic<const List*> m_published{nullptr};
    mutable std::atomic<unsigned> m_numReaders{0};
    std::vector<std::unique_ptr<const List>> m_retired;
    COsMutex m_mutex;
};

}  // namespace utils::queue

#endif
