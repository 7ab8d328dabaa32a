#ifndef INSTRUMENT_CORE_MESSAGEFRAMER_H
#define INSTRUMENT_CORE_MESSAGEFRAMER_H

#include <deque>
#include <string>
#include <string_view>

#include "core/DataScanner.h"

namespace instrument
{

/// Cuts a stream of bytes into program messages, each of which ends with a line feed. A line feed
/// inside of a block is data.
///
/// Of a message that is longer than limits::MAX_MESSAGE nothing is kept.
class MessageFramer
{
  public:
    struct Message
    {
        std::string text;  ///< without the line feed
        bool isTooLong = false;
    };

    /// Takes bytes in. What they complete is kept until it is taken, so memory is bounded by the
    /// longest message and by what is given at once.
    void append(std::string_view bytes);

    /// Makes a message of what has no line feed yet, if there is anything.
    void finish();

    bool hasMessage() const { return !m_messages.empty(); }

    /// Takes the oldest message out; there must be one.
    MessageFramer::Message takeMessage();

  private:
    void appendByte(char byte);
    void endMessage();

    std::deque<Message> m_messages;
    Message m_current;
    DataScanner m_scanner;
};

}  // namespace instrument

#endif
