#include <utils/scpi/Flags.h>

namespace utils::singleton
{
template class SingletonT<scpi::Flags>;
}

namespace utils::scpi
{

Flags::Flags() : m_traceSteps("utils::scpi::m_traceSteps", 1) {}

Flags::~Flags() = default;

}  // namespace utils::scpi
