#include <utils/flag/Flags.h>

namespace utils::singleton
{
template class SingletonT<flag::Flags>;
}

namespace utils::flag
{

Flags::Flags()
    : m_enableTraceMsgs("utils::flag::m_enableTraceMsgs", true),
      m_enableTraceMsgHeaders("utils::flag::m_enableTraceMsgHeaders", -1),
      m_dummy("utils::flag::m_dummy", 0)
{
}

Flags::~Flags() = default;

}  // namespace utils::flag
