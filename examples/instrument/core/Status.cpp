#include "core/Status.h"

#include "core/limits.h"

namespace instrument
{

namespace
{

// The class of an error is told by its hundreds.
std::uint8_t eventOf(ScpiError error)
{
    const int number = -static_cast<int>(error);
    if (number >= 400)
    {
        return event::QUERY_ERROR;
    }
    if (number >= 300)
    {
        return event::DEVICE_ERROR;
    }
    return number >= 200 ? event::EXECUTION_ERROR : event::COMMAND_ERROR;
}

}  // namespace

void Status::report(ScpiError error)
{
    const bool isFull = m_errors.size() == limits::MAX_ERRORS;
    m_errors.add(error);
    m_events |= eventOf(error);
    if (isFull)
    {
        m_events |= eventOf(ScpiError::QUEUE_OVERFLOW);
    }
}

std::uint8_t Status::takeEvents()
{
    const std::uint8_t events = m_events;
    m_events = 0;
    return events;
}

std::uint8_t Status::makeStatusByte(bool isMessageAvailable) const
{
    std::uint8_t byte = 0;
    if (!m_errors.isEmpty())
    {
        byte |= summary::ERROR_AVAILABLE;
    }
    if (isMessageAvailable)
    {
        byte |= summary::MESSAGE_AVAILABLE;
    }
    if ((m_events & m_eventEnable) != 0)
    {
        byte |= summary::EVENT;
    }
    if ((byte & m_serviceEnable) != 0)
    {
        byte |= summary::MASTER;
    }
    return byte;
}

void Status::clear()
{
    m_errors.clear();
    m_events = 0;
}

void Status::setServiceEnable(std::uint8_t bits)
{
    m_serviceEnable = static_cast<std::uint8_t>(bits & ~summary::MASTER);
}

}  // namespace instrument
