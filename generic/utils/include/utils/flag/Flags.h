#ifndef GENERIC_UTILS_FLAG_FLAGS_H
#define GENERIC_UTILS_FLAG_FLAGS_H

#include <utils/export.h>
#include <utils/flag/FlagT.h>
#include <utils/singleton/SingletonT.h>

namespace utils::flag
{

/// The flags of tracing itself; reached through SingletonT<Flags>.
///
/// Every subsystem, and every application, groups its flags in such a class: the flags register
/// when the collection is first used.
class GENERIC_UTILS_EXPORT Flags
{
  public:
    Flags();
    virtual ~Flags();

    /// "utils::flag::m_enableTraceMsgs", default true: the master switch of all traces.
    FlagT<bool> m_enableTraceMsgs;

    /// "utils::flag::m_enableTraceMsgHeaders", default -1: which traces get the full header
    /// instead of the short one. Negative: none; 0: all; positive: those of this level and below.
    FlagT<int> m_enableTraceMsgHeaders;

    /// "utils::flag::m_dummy", default 0: without effect.
    FlagT<int> m_dummy;
};

}  // namespace utils::flag

namespace utils::singleton
{
extern template class SingletonT<utils::flag::Flags>;
}  // namespace utils::singleton

#endif
