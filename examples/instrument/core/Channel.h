#ifndef INSTRUMENT_CORE_CHANNEL_H
#define INSTRUMENT_CORE_CHANNEL_H

#include <utility>

#include "core/Configuration.h"

namespace instrument
{

/// A channel and its range, which all clients share.
///
/// Thread safety: belongs to one thread; getConfiguration() is for any thread.
class Channel
{
  public:
    explicit Channel(ChannelConfiguration configuration)
        : m_configuration(std::move(configuration)), m_range(m_configuration.defaultRange)
    {
    }

    const ChannelConfiguration& getConfiguration() const { return m_configuration; }

    /// Full scale, in volts.
    double getRange() const { return m_range; }

    /// Takes the smallest range that has room for a voltage; the largest when there is none.
    void setRange(double volts);

    /// Back to the default range.
    void reset() { m_range = m_configuration.defaultRange; }

  private:
    ChannelConfiguration m_configuration;
    double m_range;
};

}  // namespace instrument

#endif
