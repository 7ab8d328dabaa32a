#ifndef HOST_LIBOS_WAITLIST_H
#define HOST_LIBOS_WAITLIST_H

#include <libos/Futex.h>
#include <libos/SideLock.h>

#include <mutex>

namespace host
{

/// One thread in a WaitList; lives on that thread's stack.
class Waiter
{
  public:
    /// Sleeps until the thread is claimed. @return false when the deadline has passed
    bool sleep(const Deadline& deadline) const;

    bool isClaimed() const { return m_isClaimed.load(std::memory_order_acquire) != 0; }

  private:
    friend class WaitList;

    Waiter* m_previous = nullptr;
    Waiter* m_next = nullptr;
    FutexWord m_isClaimed{0};
};

/// The threads of one side of a queue that sleep, the longest sleeper first.
///
/// A waker claims a thread, that is, takes it off the list, before it wakes it. So each sleeper
/// costs one system call, however many items are written until it runs.
///
/// Nothing is lost as long as every thread that leaves the list, claimed or not, looks at the queue
/// again afterwards: take the last moment at which the queue was empty while a thread is on the
/// readers' list. Each write since then has claimed a thread, and each claimed thread has read an
/// item or is about to look. So while items are left, somebody is about to look. The same holds for
/// writers and free places.
class WaitList
{
  public:
    /// @param otherSide the lock whose holders wake the threads of this list
    explicit WaitList(SideLock& otherSide) : m_otherSide(otherSide) {}
    WaitList(const WaitList&) = delete;
    WaitList& operator=(const WaitList&) = delete;

    /// Appends the calling thread. It then looks at the queue once more before it sleeps.
    void add(Waiter& waiter);

    /// Takes the calling thread off the list, unless a waker has done so.
    void remove(Waiter& waiter);

    /// Claims and wakes the thread that has waited longest, if there is one.
    void wakeOne();

  private:
    FutexWord* claimFirst();
    void unlink(Waiter& waiter);

    SideLock& m_otherSide;
    std::mutex m_mutex;  ///< guards what follows
    Waiter* m_first = nullptr;
    Waiter* m_last = nullptr;
};

}  // namespace host

#endif
