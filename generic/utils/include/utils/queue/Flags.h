#ifndef GENERIC_UTILS_QUEUE_FLAGS_H
#define GENERIC_UTILS_QUEUE_FLAGS_H

#include <utils/export.h>
#include <utils/flag/FlagT.h>
#include <utils/singleton/SingletonT.h>

namespace utils::queue
{

/// The flags of queues; reached through SingletonT<Flags>.
class GENERIC_UTILS_EXPORT Flags
{
  public:
    Flags();
    virtual ~Flags();

    /// "utils::queue::m_traceSteps", default 0: level 1 traces every step, level 2 also what was
    /// read.
    flag::FlagT<int> m_traceSteps;

    /// "utils::queue:m_defaultMaxQueueSize" (with a single colon), default 256 macros: the
    /// capacity for code that creates a queue and has no better figure.
    flag::FlagT<unsigned long> m_defaultMaxQueueSize;
};

}  // namespace utils::queue

namespace utils::singleton
{
extern template class SingletonT<utils::queue::Flags>;
}  // namespace utils::singleton

#endif
