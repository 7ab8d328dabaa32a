#ifndef GENERIC_UTILS_OBSERVER_NOTIFIER_H
#define GENERIC_UTILS_OBSERVER_NOTIFIER_H

#include <utils/export.h>

namespace utils::observer
{

/// What an Event calls; implemented by the application.
class GENERIC_UTILS_EXPORT Notifier
{
  public:
    virtual ~Notifier() = default;

    /// Called once for each of this notifier's registrations whenever the event occurs, on the
    /// thread that calls Event::notify(), with the event's lock held when it has one. What it may
    /// do with the event meanwhile is said there. An exception ends the walk through the notifiers
    /// and is passed on.
    /// @param data what was given to Event::notify()
    virtual void notify(void* data) = 0;
};

}  // namespace utils::observer

#endif
