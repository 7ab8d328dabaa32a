#include <utils/command/Flags.h>

namespace utils::singleton
{
template class SingletonT<command::Flags>;
}

namespace utils::command
{

Flags::Flags() : m_traceSteps("utils::command::m_traceSteps", 0) {}

Flags::~Flags() = default;

}  // namespace utils::command
