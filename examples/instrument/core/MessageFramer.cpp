#include "core/MessageFramer.h"

#include <utility>

#include "core/limits.h"

namespace instrument
{

namespace
{

constexpr char TERMINATOR = '\n';

}  // namespace

void MessageFramer::append(std::string_view bytes)
{
    while (!bytes.empty())
    {
        if (!m_current.isTooLong)
        {
            appendByte(bytes.front());
            bytes.remove_prefix(1);
            continue;
        }
        // The rest of the line is only skipped.
        const std::size_t end = bytes.find(TERMINATOR);
        if (end == std::string_view::npos)
        {
            return;
        }
        bytes.remove_prefix(end + 1);
        endMessage();
    }
}

void MessageFramer::appendByte(char byte)
{
    const DataScanner::Place place = m_scanner.next(byte);
    if (byte == TERMINATOR && place != DataScanner::Place::BLOCK)
    {
        endMessage();
        return;
    }
    m_current.text += byte;
    // The length that a block claims counts at once, so that a false one does not swallow what
    // follows.
    const std::size_t size = m_current.text.size();
    if (size > limits::MAX_MESSAGE || m_scanner.getBlockRest() > limits::MAX_MESSAGE - size)
    {
        m_current = Message{{}, true};
    }
}

void MessageFramer::finish()
{
    if (m_current.isTooLong || !m_current.text.empty())
    {
        endMessage();
    }
}

void MessageFramer::endMessage()
{
    m_messages.push_back(std::exchange(m_current, Message()));
    m_scanner = DataScanner();
}

MessageFramer::Message MessageFramer::takeMessage()
{
    Message oldest = std::move(m_messages.front());
    m_messages.pop_front();
    return oldest;
}

}  // namespace instrument
