#include "Server.h"

#include <chrono>
#include <sstream>
#include <utility>

#include <utils/flag/Trace.h>
#include <boost/asio/ip/address.hpp>

#include "core/Flags.h"
#include "core/limits.h"

namespace asio = boost::asio;
using asio::ip::tcp;

namespace instrument
{

namespace
{

constexpr std::chrono::seconds FINISHING_TIME{5};

// After a failed accept, as when the process has no more descriptors.
constexpr std::chrono::milliseconds RETRY_TIME{200};

template <typename T>
std::string toString(const T& value)
{
    std::ostringstream text;
    text << value;
    return text.str();
}

}  // namespace

Server::Server(asio::io_context& loop, Instrument& instrument, const std::string& address,
               std::uint16_t port)
    : m_instrument(instrument),
      m_acceptor(loop, tcp::endpoint(asio::ip::make_address(address), port)),
      m_timer(loop)
{
    accept();
}

std::string Server::getEndpoint() const
{
    return toString(m_acceptor.local_endpoint());
}

void Server::stop()
{
    boost::system::error_code ignored;
    m_acceptor.close(ignored);
    m_timer.cancel();
    if (m_connections.empty())
    {
        return;
    }
    m_timer.expires_after(FINISHING_TIME);
    m_timer.async_wait(
        [this](const boost::system::error_code& cancelled)
        {
            if (!cancelled)
            {
                closeAll();
            }
        });
    // Here and below a copy, since each takes itself out.
    for (const auto& connection : std::set(m_connections))
    {
        connection->finish();
    }
}

void Server::closeAll()
{
    for (const auto& connection : std::set(m_connections))
    {
        connection->close();
    }
}

void Server::accept()
{
    m_acceptor.async_accept(
        [this](const boost::system::error_code& error, tcp::socket socket)
        {
            if (!m_acceptor.is_open())
            {
                return;
            }
            if (!error)
            {
                add(std::move(socket));
                accept();
                return;
            }
            m_timer.expires_after(RETRY_TIME);
            m_timer.async_wait(
                [this](const boost::system::error_code& cancelled)
                {
                    if (!cancelled)
                    {
                        accept();
                    }
                });
        });
}

void Server::add(tcp::socket socket)
{
    boost::system::error_code error;
    const tcp::endpoint peer = socket.remote_endpoint(error);
    if (error || m_connections.size() == limits::MAX_CLIENTS)
    {
        GENERIC_UTILS_TRACE_STEP(1, "A client is turned away.");
        return;
    }
    socket.set_option(tcp::no_delay(true), error);
    socket.set_option(tcp::socket::keep_alive(true), error);  // tells of hosts that have vanished
    const auto connection = std::make_shared<Connection>(
        std::move(socket), m_instrument, toString(peer),
        [this](const std::shared_ptr<Connection>& ended) { remove(ended); });
    m_connections.insert(connection);
    connection->start();
}

void Server::remove(const std::shared_ptr<Connection>& connection)
{
    m_connections.erase(connection);
    if (m_connections.empty() && !m_acceptor.is_open())
    {
        m_timer.cancel();
    }
}

}  // namespace instrument
