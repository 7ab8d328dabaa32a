#ifndef GENERIC_UTILS_FLAGFLAGS_H
#define GENERIC_UTILS_FLAGFLAGS_H

#include <utils/export.h>
#include <utils/flagFlag.h>
#include <utils/stdSingleton.h>

namespace utils::flag
{

/// The flags of the older traces themselves; reached through Std_Singleton<Flag_Flags>.
class GENERIC_UTILS_EXPORT Flag_Flags
{
  public:
    Flag_Flags();
    virtual ~Flag_Flags();

    /// "Flag_Flags::m_traceMsgActive", default true: the master switch of the older traces.
    Flag_Flag<bool> m_traceMsgActive;

    /// "Flag_Flags::m_traceMsgHeaderActive", default -1: which traces get the full header instead
    /// of the short one. Negative: none; 0: all; positive: those of this level and below.
    Flag_Flag<int> m_traceMsgHeaderActive;
};

}  // namespace utils::flag

namespace utils
{
extern template class Std_Singleton<flag::Flag_Flags>;
}  // namespace utils

#endif
