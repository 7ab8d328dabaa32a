#include "Script.h"

#include <errno.h>
#include <fcntl.h>
#include <unistd.h>

#include <iostream>
#include <system_error>

#include <fmt/format.h>
#include <boost/asio/post.hpp>

namespace asio = boost::asio;

namespace instrument
{

namespace
{

int openForReading(const std::string& file)
{
    const int descriptor =
        file == "-" ? dup(STDIN_FILENO) : open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY);
    if (descriptor < 0)
    {
        throw std::system_error(errno, std::generic_category(), file);
    }
    return descriptor;
}

}  // namespace

Script::Script(asio::io_context& loop, Instrument& instrument, const std::string& file)
    : m_work(loop.get_executor()),
      m_input(loop, openForReading(file)),
      m_file(file),
      m_session(instrument, [this] { proceed(); })
{
    proceed();
}

void Script::stop()
{
    m_isAtEnd = true;
    boost::system::error_code ignored;
    m_input.cancel(ignored);
}

void Script::proceed()
{
    if (m_isBusy)
    {
        return;
    }
    m_isBusy = true;
    asio::post(m_input.get_executor(), [this] { takeStep(); });
}

void Script::takeStep()
{
    m_isBusy = false;
    switch (m_session.step())
    {
        case Session::Step::MORE:
            proceed();
            return;
        case Session::Step::RESPONSE:
            print(m_session.takeResponse());
            proceed();
            return;
        case Session::Step::WAITING:
            return;  // the session says when to proceed
        case Session::Step::NEEDS_INPUT:
            m_isAtEnd ? end() : waitForInput();
            return;
    }
}

void Script::waitForInput()
{
    m_isBusy = true;
    m_input.async_wait(asio::posix::stream_descriptor::wait_read,
                       [this](const boost::system::error_code&)
                       {
                           m_isBusy = false;
                           // A file on a disk cannot be waited for; but then there is no need to.
                           if (!m_isAtEnd)
                           {
                               readInput();
                           }
                           proceed();
                       });
}

void Script::readInput()
{
    const ssize_t size = ::read(m_input.native_handle(), m_block.data(), m_block.size());
    if (size > 0)
    {
        m_session.receive({m_block.data(), static_cast<std::size_t>(size)});
        return;
    }
    if (size < 0 && errno == EINTR)
    {
        return;
    }
    if (size < 0)
    {
        m_problems +=
            fmt::format("instrument: {}: {}\n", m_file, std::generic_category().message(errno));
    }
    m_session.endInput();
    m_isAtEnd = true;
}

void Script::print(const std::string& response)
{
    std::cout << response << std::flush;
    if (!std::cout && !m_isAtEnd)
    {
        m_problems += "instrument: standard output could not be written\n";
        m_isAtEnd = true;
    }
}

void Script::end()
{
    m_work.reset();
    m_onEnd();
}

std::string Script::getProblems()
{
    ErrorQueue& errors = m_session.getErrors();
    while (!errors.isEmpty())
    {
        const ScpiError error = errors.next();
        m_problems += fmt::format("{},\"{}\"\n", static_cast<int>(error), describe(error));
    }
    return m_problems;
}

}  // namespace instrument
