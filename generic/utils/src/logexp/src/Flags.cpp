#include <utils/logexp/Flags.h>

namespace utils::singleton
{
template class SingletonT<logexp::Flags>;
}

namespace utils::logexp
{

Flags::Flags() : m_traceSteps("utils::logexp::m_traceSteps", -1) {}

Flags::~Flags() = default;

}  // namespace utils::logexp
