#ifndef GENERIC_UTILS_OBSERVER_EVENT_H
#define GENERIC_UTILS_OBSERVER_EVENT_H

#include <memory>
#include <string>

#include <libos/COsMutex.h>
#include <utils/export.h>
#include <utils/flag/Trace.h>
#include <utils/observer/Flags.h>
#include <utils/observer/Notifier.h>

namespace utils::observer
{

class NotifierTable;

/// A registration as a notification sees it: part of Event, not for applications.
struct NotifierEntry
{
    Notifier* notifierPtr = nullptr;   ///< whom to call
    NotifierEntry* nextPtr = nullptr;  ///< the registration after this one
};

/// Something that occurs, and the notifiers that want to be called when it does.
///
/// Notifiers are called in ascending order of the priority that they registered with, and in the
/// order of their registration where the priority is the same. A notifier may register several
/// times, also at one priority, and is called once for each registration. Notifiers are not owned.
///
/// Inside its call a notifier may register, may unregister the registration that it is called for,
/// and may notify the event again. It must not unregister another registration that is still to be
/// called, and must not destroy the event. A registration made during a notification is called by
/// it when its turn is still to come.
///
/// Thread safety: belongs to one thread at a time. With a lock (enableLock(), called before the
/// event is shared) registerInterest(), unregisterInterest() and notify() may be called by any
/// thread; they exclude each other, and notifiers run with the lock held.
///
/// A failed unregisterInterest() leaves that lock locked, by contract: the calling thread may go on
/// using the event when the platform's mutex is recursive, as it is on a host, but others wait for
/// ever. Unregister only what is registered.
class GENERIC_UTILS_EXPORT Event
{
  public:
    /// "NotifierNotRegistered": the name of the error of unregistering what is not registered.
    static const std::string& NOT_REGISTERED;

    /// An event without registrations and without a lock.
    Event();

    /// Forgets the notifiers. Nobody may use the event any more; its lock may be locked.
    virtual ~Event();

    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;

    /// Gives the event a lock, for the rest of its life. A second call does nothing.
    void enableLock();

    /// Whether enableLock() has been called.
    bool isLockEnabled() const { return m_mutex != nullptr; }

    /// Adds a registration, behind those of the same priority. Does nothing when the lock cannot
    /// be taken.
    /// @param notifierPtr not owned; must live until it is unregistered, or as long as the event
    ///        is notified. Null is reported as error NULL_PTR and ends the process.
    /// @param priority any; the lowest is called first
    void registerInterest(Notifier* notifierPtr, const int& priority);

    /// Removes the earliest registration of a notifier at exactly this priority.
    /// @param notifierPtr null is reported as error NULL_PTR and ends the process
    /// @param priority that of the registration
    /// @return true when one was removed, and also when the lock could not be taken. When there is
    ///         none, error NOT_REGISTERED is reported, and false returned with the lock still held.
    bool unregisterInterest(const Notifier* notifierPtr, const int& priority);

    /// Calls every registered notifier; nobody when the lock cannot be taken.
    /// @param data handed to the notifiers as it is
    ///
    /// Inline, since calls within a shared object are quicker than those into another one, and most
    /// notifiers belong to the application that notifies them.
    GENERIC_UTILS_EXPORT void notify(void* data)
    {
        const unsigned long count = m_mutex == nullptr ? callNotifiers(data) : callUnderLock(data);
        if (flag::isTraced(flag::findTraceSteps<Flags>(), 2))
        {
            traceNotification(count);
        }
    }

  private:
    class Guard;

    GENERIC_UTILS_LOCAL void insert(Notifier* notifierPtr, int priority);
    GENERIC_UTILS_LOCAL bool erase(const Notifier* notifierPtr, int priority);
    unsigned long callUnderLock(void* data);
    void traceNotification(unsigned long count) const;

    unsigned long callNotifiers(void* data)
    {
        const unsigned long numTablesEnded = m_numTablesEnded;
        unsigned long count = 0;
        const NotifierEntry* nextPtr = m_firstPtr;
        while (nextPtr != nullptr)
        {
            Notifier* const notifierPtr = nextPtr->notifierPtr;
            nextPtr = nextPtr->nextPtr;  // before the call, which may remove this entry
            ++count;
            notifierPtr->notify(data);
            if (nextPtr == nullptr || m_numTablesEnded != numTablesEnded)
            {
                break;  // if there is a next entry, it belongs to a table that is gone
            }
        }
        return count;
    }

    std::unique_ptr<NotifierTable> m_table;     // null while there is no registration
    std::unique_ptr<COsMutex> m_mutex;          // null without a lock
    const NotifierEntry* m_firstPtr = nullptr;  // of the table
    unsigned long m_numTablesEnded = 0;  // tells a walk that its table is gone, replaced or not
    unsigned long m_numLocksKept = 0;    // by failed calls of unregisterInterest()
};

}  // namespace utils::observer

#endif
