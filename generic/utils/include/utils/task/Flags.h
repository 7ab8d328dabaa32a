#ifndef GENERIC_UTILS_TASK_FLAGS_H
#define GENERIC_UTILS_TASK_FLAGS_H

#include <utils/export.h>
#include <utils/flag/FlagT.h>
#include <utils/singleton/SingletonT.h>

namespace utils::task
{

/// The flags of tasks; reached through SingletonT<Flags>.
class GENERIC_UTILS_EXPORT Flags
{
  public:
    Flags();
    virtual ~Flags();

    /// "utils::task::m_traceSteps", default 0: level 1 traces every step, level 2 also options and
    /// queries.
    flag::FlagT<int> m_traceSteps;

    /// "utils::task:m_defaultMaxEventQueueSize" (with a single colon), default 256 macros: the
    /// capacity of the event queue for code that creates a task and has no better figure.
    flag::FlagT<unsigned long> m_defaultMaxEventQueueSize;
};

}  // namespace utils::task

namespace utils::singleton
{
extern template class SingletonT<utils::task::Flags>;
}  // namespace utils::singleton

#endif
