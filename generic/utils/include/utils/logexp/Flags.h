#ifndef GENERIC_UTILS_LOGEXP_FLAGS_H
#define GENERIC_UTILS_LOGEXP_FLAGS_H

#include <utils/export.h>
#include <utils/flag/FlagT.h>
#include <utils/singleton/SingletonT.h>

namespace utils::logexp
{

/// The flags of logical expressions; reached through SingletonT<Flags>.
class GENERIC_UTILS_EXPORT Flags
{
  public:
    Flags();
    virtual ~Flags();

    /// "utils::logexp::m_traceSteps", default -1: level 2 traces every step, level 3 also what the
    /// steps find.
    flag::FlagT<int> m_traceSteps;
};

}  // namespace utils::logexp

namespace utils::singleton
{
extern template class SingletonT<utils::logexp::Flags>;
}  // namespace utils::singleton

#endif
