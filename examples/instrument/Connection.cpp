#include "Connection.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include <utils/flag/Trace.h>
#include <boost/asio/buffer.hpp>
#include <boost/asio/post.hpp>
#include <boost/asio/write.hpp>

#include "core/Flags.h"

namespace asio = boost::asio;

namespace instrument
{

namespace
{

constexpr std::chrono::milliseconds GOODBYE_TIME{300};

}  // namespace

Connection::Connection(asio::ip::tcp::socket socket, Instrument& instrument, std::string name,
                       EndFunction onEnd)
    : m_socket(std::move(socket)),
      m_goodbyeTimer(m_socket.get_executor()),
      m_name(std::move(name)),
      m_onEnd(std::move(onEnd)),
      m_session(instrument, [this] { proceed(); })
{
    GENERIC_UTILS_TRACE_STEP(1, "Client " << m_name << " has connected.");
}

void Connection::finish()
{
    if (m_isFinishing || m_isClosed)
    {
        return;
    }
    m_isFinishing = true;
    boost::system::error_code error;
    m_numLeft = m_socket.available(error);
    if (m_isReading)
    {
        m_socket.cancel(error);
    }
}

void Connection::close()
{
    if (m_isClosed)
    {
        return;
    }
    m_isClosed = true;
    boost::system::error_code ignored;
    m_socket.close(ignored);
    m_goodbyeTimer.cancel();
    GENERIC_UTILS_TRACE_STEP(1, "Client " << m_name << " has gone.");
    m_onEnd(shared_from_this());
}

// Has the next step taken, but not at once, so that others have their turn in between.
void Connection::proceed()
{
    if (m_isBusy || m_isClosed)
    {
        return;
    }
    m_isBusy = true;
    asio::post(m_socket.get_executor(), [self = shared_from_this()] { self->takeStep(); });
}

void Connection::takeStep()
{
    m_isBusy = false;
    if (m_isClosed)
    {
        return;
    }
    switch (m_session.step())
    {
        case Session::Step::MORE:
            proceed();
            return;
        case Session::Step::RESPONSE:
            write();
            return;
        case Session::Step::WAITING:
            return;  // the session says when to proceed
        case Session::Step::NEEDS_INPUT:
            m_isFinishing ? readWhatHasCome() : read();
            return;
    }
}

void Connection::read()
{
    m_isBusy = true;
    m_isReading = true;
    m_socket.async_read_some(
        asio::buffer(m_input),
        [self = shared_from_this()](const boost::system::error_code& error, std::size_t size)
        {
            self->m_isBusy = false;
            self->m_isReading = false;
            if (error && !self->m_isFinishing)
            {
                self->close();
                return;
            }
            self->m_session.receive({self->m_input.data(), size});
            self->proceed();
        });
}

void Connection::readWhatHasCome()
{
    if (m_numLeft == 0)
    {
        sayGoodbye();
        return;
    }
    boost::system::error_code error;
    const std::size_t size = m_socket.read_some(
        asio::buffer(m_input.data(), std::min(m_numLeft, m_input.size())), error);
    if (error)
    {
        close();
        return;
    }
    m_numLeft -= size;
    m_session.receive({m_input.data(), size});
    proceed();
}

void Connection::write()
{
    m_isBusy = true;
    m_output = m_session.takeResponse();
    asio::async_write(
        m_socket, asio::buffer(m_output),
        [self = shared_from_this()](const boost::system::error_code& error, std::size_t)
        {
            self->m_isBusy = false;
            self->m_output = {};
            if (error)
            {
                self->close();
                return;
            }
            self->proceed();
        });
}

// Closing a socket with input in it would make the system throw away answers that are still on
// their way; so first the client is told, and gets some time to close its end.
void Connection::sayGoodbye()
{
    m_isBusy = true;
    boost::system::error_code ignored;
    m_socket.shutdown(asio::ip::tcp::socket::shutdown_send, ignored);
    m_goodbyeTimer.expires_after(GOODBYE_TIME);
    m_goodbyeTimer.async_wait([self = shared_from_this()](const boost::system::error_code&)
                              { self->close(); });
    skipInput();
}

void Connection::skipInput()
{
    m_socket.async_read_some(
        asio::buffer(m_input),
        [self = shared_from_this()](const boost::system::error_code& error, std::size_t)
        {
            if (error)
            {
                self->close();
                return;
            }
            self->skipInput();
        });
}

}  // namespace instrument
