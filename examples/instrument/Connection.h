#ifndef INSTRUMENT_CONNECTION_H
#define INSTRUMENT_CONNECTION_H

#include <array>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>

#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/steady_timer.hpp>

#include "core/Instrument.h"
#include "core/Session.h"

namespace instrument
{

/// A client that is connected: its socket and its session.
///
/// While a message is executed and its response is written, nothing more is read; so a client that
/// does not read its answers only stops itself. What is kept for it is bounded by one message, one
/// block of input and one response.
///
/// Thread safety: belongs to the loop's thread.
class Connection : public std::enable_shared_from_this<Connection>
{
  public:
    using EndFunction = std::function<void(const std::shared_ptr<Connection>&)>;

    /// @param onEnd called once, when the connection has ended
    Connection(boost::asio::ip::tcp::socket socket, Instrument& instrument, std::string name,
               EndFunction onEnd);

    /// Begins to read.
    void start() { proceed(); }

    /// Executes and answers what has come already, then ends.
    void finish();

    /// Ends at once.
    void close();

  private:
    void proceed();
    void takeStep();
    void read();
    void readWhatHasCome();
    void write();
    void sayGoodbye();
    void skipInput();

    boost::asio::ip::tcp::socket m_socket;
    boost::asio::steady_timer m_goodbyeTimer;
    std::string m_name;  // for traces
    EndFunction m_onEnd;
    Session m_session;
    std::array<char, 16 * 1024> m_input;
    std::string m_output;   // being written
    bool m_isBusy = false;  // something is on its way that will proceed
    bool m_isReading = false;
    bool m_isClosed = false;
    bool m_isFinishing = false;
    std::size_t m_numLeft = 0;  // bytes that had come when it was told to finish, not yet read
};

}  // namespace instrument

#endif
