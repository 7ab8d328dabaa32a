#ifndef INSTRUMENT_SCRIPT_H
#define INSTRUMENT_SCRIPT_H

#include <array>
#include <functional>
#include <string>
#include <utility>

#include <boost/asio/executor_work_guard.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/posix/stream_descriptor.hpp>

#include "core/Instrument.h"
#include "core/Session.h"

namespace instrument
{

/// Executes program messages from a file, and prints the responses on standard output.
///
/// Thread safety: belongs to the loop's thread.
class Script
{
  public:
    /// Begins.
    /// @param loop,instrument not owned
    /// @param file to be read; "-" is standard input
    /// @throw std::exception when it cannot be opened
    Script(boost::asio::io_context& loop, Instrument& instrument, const std::string& file);

    /// Reads no more; what has been read is executed.
    void stop();

    /// Has a function called when all has been executed.
    void onEnd(std::function<void()> function) { m_onEnd = std::move(function); }

    /// After the loop has come to its end: what went wrong, a line each; empty when nothing did.
    std::string getProblems();

  private:
    void proceed();
    void takeStep();
    void waitForInput();
    void readInput();
    void end();
    void print(const std::string& response);

    boost::asio::executor_work_guard<boost::asio::io_context::executor_type> m_work;
    boost::asio::posix::stream_descriptor m_input;
    std::string m_file;
    Session m_session;
    std::array<char, 16 * 1024> m_block;
    bool m_isBusy = false;  // something is on its way that will proceed
    bool m_isAtEnd = false;
    std::string m_problems;
    std::function<void()> m_onEnd;
};

}  // namespace instrument

#endif
