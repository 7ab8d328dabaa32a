#include "StopSignals.h"

#include <signal.h>

#include <utility>

namespace instrument
{

namespace
{

bool isIgnored(int signal)
{
    struct sigaction action = {};
    return sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

}  // namespace

StopSignals::StopSignals(boost::asio::io_context& loop, std::function<void()> onStop)
    : m_signals(loop)
{
    for (const int signal : {SIGINT, SIGTERM})
    {
        if (!isIgnored(signal))
        {
            m_signals.add(signal);
        }
    }
    m_signals.async_wait(
        [this, stop = std::move(onStop)](const boost::system::error_code& error, int)
        {
            if (!error)
            {
                m_signals.clear();  // the system's own handling is back
                stop();
            }
        });
}

}  // namespace instrument
