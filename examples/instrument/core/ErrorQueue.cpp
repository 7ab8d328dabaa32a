#include "core/ErrorQueue.h"

#include "core/limits.h"

namespace instrument
{

void ErrorQueue::add(ScpiError error)
{
    if (m_errors.size() == limits::MAX_ERRORS)
    {
        m_errors.back() = ScpiError::QUEUE_OVERFLOW;
        return;
    }
    m_errors.push_back(error);
}

ScpiError ErrorQueue::next()
{
    if (m_errors.empty())
    {
        return ScpiError::NO_ERROR;
    }
    const ScpiError oldest = m_errors.front();
    m_errors.pop_front();
    return oldest;
}

}  // namespace instrument
