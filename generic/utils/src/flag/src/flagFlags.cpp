#include <utils/flagFlags.h>

namespace utils
{
template class Std_Singleton<flag::Flag_Flags>;
}

namespace utils::flag
{

Flag_Flags::Flag_Flags()
    : m_traceMsgActive("Flag_Flags::m_traceMsgActive", true),
      m_traceMsgHeaderActive("Flag_Flags::m_traceMsgHeaderActive", -1)
{
}

Flag_Flags::~Flag_Flags() = default;

}  // namespace utils::flag
