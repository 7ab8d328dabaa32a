#include <utils/observer/Event.h>

#include <utils/flag/Trace.h>
#include <utils/observer/Flags.h>

#include "internal/LastWords.h"
#include "internal/Report.h"
#include "lock/src/acquire.h"
#include "observer/src/NotifierTable.h"

namespace utils::observer
{

using error::Error;

// Never destroyed, like the error names of utils::error::Error.
const std::string& Event::NOT_REGISTERED = *new std::string("NotifierNotRegistered");

namespace
{

// The lines that traces and errors of events have always named.
constexpr int CREATE_LINE = 17;
constexpr int DESTROY_LINE = 27;
constexpr int REGISTER_NULL_LINE = 58;
constexpr int REGISTER_LINE = 64;
constexpr int UNREGISTER_NULL_LINE = 98;
constexpr int NO_TABLE_LINE = 104;
constexpr int UNREGISTER_LINE = 111;
constexpr int NOT_REGISTERED_LINE = 135;
constexpr int NOTIFY_LINE = 193;

constexpr SourceLocation at(int line, const char* function)
{
    return {__FILE__, line, function};
}

// Keeps the inline operation among the library's symbols, for whoever looks for it there.
[[gnu::used]] constexpr void (Event::*EXPORTED)(void*) = &Event::notify;

const flag::FlagT<int>* traceSteps()
{
    return flag::findTraceSteps<Flags>();
}

}  // namespace

/// Holds the event's lock for the time of a scope; without a lock it does nothing.
class Event::Guard
{
  public:
    explicit Guard(Event& event)
        : m_event(event),
          m_isAdmitted(event.m_mutex == nullptr || lock::acquire(*event.m_mutex)),
          m_isHeld(m_isAdmitted && event.m_mutex != nullptr)
    {
    }

    ~Guard()
    {
        if (m_isHeld)
        {
            osMutexUnlock(m_event.m_mutex->getHandle());
        }
    }

    Guard(const Guard&) = delete;
    Guard& operator=(const Guard&) = delete;

    /// Whether the operation may go on.
    bool isAdmitted() const { return m_isAdmitted; }

    /// Leaves the lock locked at the end of the scope.
    void keep()
    {
        m_event.m_numLocksKept += m_isHeld ? 1 : 0;
        m_isHeld = false;
    }

  private:
    Event& m_event;
    bool m_isAdmitted;
    bool m_isHeld;
};

Event::Event()
{
    GENERIC_UTILS_TRACE_AT(at(CREATE_LINE, __func__), traceSteps(), 1,
                           "Creating an event (" << this << ").");
}

Event::~Event()
{
    GENERIC_UTILS_LAST_WORDS(GENERIC_UTILS_TRACE_AT(at(DESTROY_LINE, __func__), traceSteps(), 1,
                                                    "Destroying an event (" << this << ")."));
    m_table.reset();
    // A mutex is destroyed unlocked.
    for (; m_numLocksKept > 0; --m_numLocksKept)
    {
        osMutexUnlock(m_mutex->getHandle());
    }
}

void Event::enableLock()
{
    if (m_mutex == nullptr)
    {
        m_mutex = std::make_unique<COsMutex>();
    }
}

void Event::registerInterest(Notifier* notifierPtr, const int& priority)
{
    if (notifierPtr == nullptr)
    {
        error::reportFatal(at(REGISTER_NULL_LINE, __func__), Error::NULL_PTR, Error::ERROR,
                           "Null pointer (notifierPtr) passed to Event::registerInterest.");
    }
    GENERIC_UTILS_TRACE_AT(
        at(REGISTER_LINE, __func__), traceSteps(), 1,
        "Registering interest (event = " << this << ", notifier = " << notifierPtr
                                         << ") at priority = " << priority << ".");
    const Guard guard(*this);
    if (guard.isAdmitted())
    {
        insert(notifierPtr, priority);
    }
}

bool Event::unregisterInterest(const Notifier* notifierPtr, const int& priority)
{
    Guard guard(*this);
    if (!guard.isAdmitted())
    {
        return true;
    }
    if (notifierPtr == nullptr)
    {
        guard.keep();
        error::reportFatal(at(UNREGISTER_NULL_LINE, __func__), Error::NULL_PTR, Error::ERROR,
                           "Null pointer (notifierPtr) passed to Event::unregisterInterest.");
    }
    if (m_table == nullptr)
    {
        guard.keep();
        error::report(at(NO_TABLE_LINE, __func__), NOT_REGISTERED, Error::ERROR,
                      "No notifiers have been registered for this event (", this,
                      ") - can not unregister notifier ", notifierPtr, " at priority = ", priority,
                      ".");
        return false;
    }
    GENERIC_UTILS_TRACE_AT(
        at(UNREGISTER_LINE, __func__), traceSteps(), 1,
        "Unregistering interest (event = " << this << ", notifier = " << notifierPtr
                                           << ") at priority = " << priority << ".");
    if (!erase(notifierPtr, priority))
    {
        guard.keep();
        error::report(at(NOT_REGISTERED_LINE, __func__), NOT_REGISTERED, Error::ERROR, "Notifier ",
                      notifierPtr, " has not registered with this event (", this,
                      ") at priority = ", priority, ".");
        return false;
    }
    return true;
}

// Memory may run out at either step; a table without entries is not left behind.
void Event::insert(Notifier* notifierPtr, int priority)
{
    if (m_table != nullptr)
    {
        m_table->add(notifierPtr, priority);
    }
    else
    {
        auto table = std::make_unique<NotifierTable>();
        table->add(notifierPtr, priority);
        m_table = std::move(table);
    }
    m_firstPtr = m_table->getFirstPtr();
}

bool Event::erase(const Notifier* notifierPtr, int priority)
{
    const bool isErased = m_table->remove(notifierPtr, priority);
    m_firstPtr = m_table->getFirstPtr();
    if (m_table->isEmpty())
    {
        m_table.reset();
        ++m_numTablesEnded;
    }
    return isErased;
}

unsigned long Event::callUnderLock(void* data)
{
    const Guard guard(*this);
    return guard.isAdmitted() ? callNotifiers(data) : 0;
}

void Event::traceNotification(unsigned long count) const
{
    GENERIC_UTILS_TRACE_AT(
        at(NOTIFY_LINE, "notify"), traceSteps(), 2,
        "An event (" << this << ") has occurred - notified " << count << " observers.");
}

}  // namespace utils::observer
