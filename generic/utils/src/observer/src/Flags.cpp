#include <utils/observer/Flags.h>

namespace utils::singleton
{
template class SingletonT<observer::Flags>;
}

namespace utils::observer
{

Flags::Flags() : m_traceSteps("Flags::m_traceSteps", 0) {}

Flags::~Flags() = default;

}  // namespace utils::observer
