#ifndef INSTRUMENT_SERVER_H
#define INSTRUMENT_SERVER_H

#include <cstdint>
#include <memory>
#include <set>
#include <string>

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/steady_timer.hpp>

#include "Connection.h"
#include "core/Instrument.h"

namespace instrument
{

/// Serves clients that connect over TCP, up to limits::MAX_CLIENTS at a time; more are turned away.
///
/// Thread safety: belongs to the loop's thread.
class Server
{
  public:
    /// Listens.
    /// @param loop,instrument not owned
    /// @param port 0: a free one
    /// @throw std::exception when the address or the port is not to be had
    Server(boost::asio::io_context& loop, Instrument& instrument, const std::string& address,
           std::uint16_t port);

    /// Where it listens, as "127.0.0.1:5025" or "[::1]:5025".
    std::string getEndpoint() const;

    /// Listens no more, and lets the connections finish; those that take long are closed. When the
    /// last has ended, nothing of the server is left in the loop.
    void stop();

  private:
    void closeAll();
    void accept();
    void add(boost::asio::ip::tcp::socket socket);
    void remove(const std::shared_ptr<Connection>& connection);

    Instrument& m_instrument;
    boost::asio::ip::tcp::acceptor m_acceptor;
    boost::asio::steady_timer m_timer;  // until listening is tried again, or finishing has an end
    std::set<std::shared_ptr<Connection>> m_connections;
};

}  // namespace instrument

#endif
