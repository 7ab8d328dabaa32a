#ifndef INSTRUMENT_CORE_SESSION_H
#define INSTRUMENT_CORE_SESSION_H

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/Client.h"
#include "core/CommandTable.h"
#include "core/MessageFramer.h"

namespace instrument
{

/// The conversation with one client, without the line that it comes by: bytes go in, responses come
/// out. Nothing here knows of sockets, and nothing blocks.
///
///     session.receive(bytes);
///     for (Session::Step step = session.step(); step != Session::Step::NEEDS_INPUT; ...)
///
/// Whatever the bytes are, the session goes on; what is wrong is reported in the error queue.
///
/// Thread safety: belongs to the instrument's thread.
class Session
{
  public:
    /// What a step came to.
    enum class Step
    {
        MORE,        ///< something was done, and there may be more
        RESPONSE,    ///< a response is to be taken with takeResponse()
        WAITING,     ///< for an acquisition; onReady is called when it has ended
        NEEDS_INPUT  ///< all messages have been executed
    };

    /// @param instrument not owned; must outlive the session
    /// @param onReady called on the instrument's thread when an acquisition has ended
    Session(Instrument& instrument, std::function<void()> onReady);

    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// Takes bytes of program messages, cut anywhere. What is kept is bounded by the longest
    /// message (limits::MAX_MESSAGE) and by these bytes; so take steps before more comes.
    void receive(std::string_view bytes) { m_framer.append(bytes); }

    /// Makes a message of what has no line feed yet.
    void endInput() { m_framer.finish(); }

    /// Executes one command at most.
    Step step();

    /// The response to the message that was executed last, with its line feed.
    std::string takeResponse() { return m_client.response.take(); }

    /// The errors that nobody has asked for.
    ErrorQueue& getErrors() { return m_client.status.getErrors(); }

  private:
    void beginMessage();
    Step endMessage();
    void parseNext();
    const CommandDescription& findCommand(const MessageUnit& unit);
    bool call(Handler handler);
    void finishAcquisition();
    void report(ScpiError error);

    Client m_client;
    std::function<void()> m_onReady;
    MessageFramer m_framer;

    bool m_isInMessage = false;
    std::string m_message;    // being executed
    std::string_view m_rest;  // what is left of it
    std::string m_path;       // what a header without a colon continues, with a colon at its end

    // The command being executed.
    Handler m_handler = nullptr;         // to be called next; null: none is being executed
    Handler m_afterwards = nullptr;      // to be called after that
    bool m_waitsForAcquisition = false;  // before the next call
    Arguments m_arguments{{}};
};

}  // namespace instrument

#endif
