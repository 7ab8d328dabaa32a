#ifndef INSTRUMENT_CORE_ACQUISITION_H
#define INSTRUMENT_CORE_ACQUISITION_H

#include <atomic>
#include <functional>
#include <string>
#include <vector>

#include "core/Configuration.h"
#include "core/Statistics.h"

namespace instrument
{

/// One acquisition: what the commands of its macro and the client that asked for it share.
///
/// Its owner fills it, hands it over to the pool, and looks at the results when it has been told
/// that they are there; meanwhile a task works on it. So only one of them uses it at a time, except
/// for isCancelled.
struct Acquisition
{
    Acquisition(const ChannelConfiguration& whichChannel, double range, unsigned long points)
        : channel(whichChannel), rangeInVolts(range), numPoints(points)
    {
        samples.reserve(points);  // what cannot be had is missed before the task begins
    }

    const ChannelConfiguration& channel;
    const double rangeInVolts;
    const unsigned long numPoints;

    /// Set by the owner when it has lost interest.
    std::atomic<bool> isCancelled{false};

    /// @name Results
    /// @{
    std::vector<double> samples;  ///< in volts
    Statistics statistics;
    std::string taskName;  ///< of the task that acquired
    /// @}

    /// @name The owner's, never touched by tasks
    /// @{
    bool isFinished = false;
    std::function<void()> onFinished;  ///< called on the owner's thread; may be empty
    /// @}
};

}  // namespace instrument

#endif
