#ifndef INSTRUMENT_CORE_SIGNAL_H
#define INSTRUMENT_CORE_SIGNAL_H

#include <random>

#include "core/Configuration.h"

namespace instrument
{

/// The simulated signal of a channel, from its first sample on. The noise comes from a generator
/// with the channel's seed, so that the same settings give the same samples every time.
class Signal
{
  public:
    /// @param range full scale in volts: samples beyond it are clipped
    Signal(const ChannelConfiguration& channel, double range);

    /// The next sample, in volts.
    double next();

  private:
    double waveAt(double phase) const;

    const ChannelConfiguration& m_channel;
    double m_range;
    unsigned long m_index = 0;
    std::mt19937_64 m_generator;
    std::normal_distribution<double> m_noise;
};

}  // namespace instrument

#endif
