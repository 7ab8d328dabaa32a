#ifndef INSTRUMENT_CORE_MEASUREMENT_H
#define INSTRUMENT_CORE_MEASUREMENT_H

#include <functional>
#include <memory>
#include <vector>

#include "core/Acquisition.h"
#include "core/Instrument.h"

namespace instrument
{

/// What one client measures: its settings, its acquisition, and the results.
///
/// Thread safety: belongs to the instrument's thread.
class Measurement
{
  public:
    /// @param instrument not owned
    /// @param onFinished called when an acquisition that was not aborted has ended
    Measurement(Instrument& instrument, std::function<void()> onFinished);

    /// Aborts.
    ~Measurement();

    Measurement(const Measurement&) = delete;
    Measurement& operator=(const Measurement&) = delete;

    /// Aborts, drops the results and takes the settings of the start.
    void reset();

    Channel& getChannel() { return *m_channel; }
    void setChannel(Channel& channel) { m_channel = &channel; }

    unsigned long getNumPoints() const { return m_numPoints; }
    void setNumPoints(unsigned long numPoints) { m_numPoints = numPoints; }

    /// Whether waveforms are answered as blocks of binary numbers rather than as text.
    bool isBinary() const { return m_isBinary; }
    void setBinary(bool isBinary) { m_isBinary = isBinary; }

    /// Begins an acquisition; earlier results are dropped.
    /// @throw CommandFailure INIT_IGNORED when one is running, EXECUTION_ERROR when too many that
    ///        were aborted have not ended yet
    void start();

    /// Ends the acquisition that is running, if one is, without results.
    void abort();

    bool isRunning() const { return m_acquisition && !m_acquisition->isFinished; }

    /// The results of the last acquisition, which is not running.
    /// @throw CommandFailure DATA_CORRUPT_OR_STALE when there are none
    const Acquisition& getResults() const;

  private:
    Instrument& m_instrument;
    std::function<void()> m_onFinished;
    Channel* m_channel;
    unsigned long m_numPoints;
    bool m_isBinary = false;
    std::shared_ptr<Acquisition> m_acquisition;
    std::vector<std::shared_ptr<Acquisition>> m_aborted;  // that may not have ended yet
};

}  // namespace instrument

#endif
