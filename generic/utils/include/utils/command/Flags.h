#ifndef GENERIC_UTILS_COMMAND_FLAGS_H
#define GENERIC_UTILS_COMMAND_FLAGS_H

#include <utils/export.h>
#include <utils/flag/FlagT.h>
#include <utils/singleton/SingletonT.h>

namespace utils::command
{

/// The flags of commands and macros; reached through SingletonT<Flags>.
class GENERIC_UTILS_EXPORT Flags
{
  public:
    Flags();
    virtual ~Flags();

    /// "utils::command::m_traceSteps", default 0: level 1 traces every step, level 2 also why
    /// macros stop.
    flag::FlagT<int> m_traceSteps;
};

}  // namespace utils::command

namespace utils::singleton
{
extern template class SingletonT<utils::command::Flags>;
}  // namespace utils::singleton

#endif
