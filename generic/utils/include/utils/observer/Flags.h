#ifndef GENERIC_UTILS_OBSERVER_FLAGS_H
#define GENERIC_UTILS_OBSERVER_FLAGS_H

#include <utils/export.h>
#include <utils/flag/FlagT.h>
#include <utils/singleton/SingletonT.h>

namespace utils::observer
{

/// The flags of events; reached through SingletonT<Flags>.
class GENERIC_UTILS_EXPORT Flags
{
  public:
    Flags();
    virtual ~Flags();

    /// "Flags::m_traceSteps" (without a namespace, as values files know it), default 0: level 1
    /// traces the lives of events and registrations, level 2 also every notification.
    flag::FlagT<int> m_traceSteps;
};

}  // namespace utils::observer

namespace utils::singleton
{
extern template class SingletonT<utils::observer::Flags>;
}  // namespace utils::singleton

#endif
