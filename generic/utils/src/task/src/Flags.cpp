#include <utils/task/Flags.h>

namespace utils::singleton
{
template class SingletonT<task::Flags>;
}

namespace utils::task
{

Flags::Flags()
    : m_traceSteps("utils::task::m_traceSteps", 0),
      m_defaultMaxEventQueueSize("utils::task:m_defaultMaxEventQueueSize", 256)
{
}

Flags::~Flags() = default;

}  // namespace utils::task
