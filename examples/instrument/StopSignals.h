#ifndef INSTRUMENT_STOPSIGNALS_H
#define INSTRUMENT_STOPSIGNALS_H

#include <functional>

#include <boost/asio/io_context.hpp>
#include <boost/asio/signal_set.hpp>

namespace instrument
{

/// Waits for the first SIGINT (Ctrl-C) or SIGTERM; a second one ends the process at once. A signal
/// that the process was started to ignore stays ignored.
class StopSignals
{
  public:
    /// @param loop not owned
    /// @param onStop called on the loop's thread
    StopSignals(boost::asio::io_context& loop, std::function<void()> onStop);

    /// Waits no more.
    void cancel() { m_signals.cancel(); }

  private:
    boost::asio::signal_set m_signals;
};

}  // namespace instrument

#endif
