#include <utils/queue/Flags.h>

namespace utils::singleton
{
template class SingletonT<queue::Flags>;
}

namespace utils::queue
{

Flags::Flags()
    : m_traceSteps("utils::queue::m_traceSteps", 0),
      m_defaultMaxQueueSize("utils::queue:m_defaultMaxQueueSize", 256)
{
}

Flags::~Flags() = default;

}  // namespace utils::queue
