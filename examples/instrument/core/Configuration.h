#ifndef INSTRUMENT_CORE_CONFIGURATION_H
#define INSTRUMENT_CORE_CONFIGURATION_H

#include <cstdint>
#include <string>
#include <vector>

namespace instrument
{

/// What a channel's signal looks like, without its noise.
enum class WaveForm
{
    DC,
    SINE,
    SQUARE,
    TRIANGLE
};

/// A channel as the configuration describes it.
struct ChannelConfiguration
{
    std::string name;
    WaveForm waveForm = WaveForm::DC;
    double amplitude = 0;   ///< in volts, peak
    double offset = 0;      ///< in volts
    double frequency = 0;   ///< in hertz
    double sampleRate = 0;  ///< in samples a second
    double settleMs = 0;    ///< from the start of an acquisition to its first sample
    double noiseRms = 0;    ///< in volts
    std::uint64_t noiseSeed = 0;
    std::vector<double> ranges;  ///< full scales in volts, ascending
    double defaultRange = 0;     ///< one of them
};

/// A named state of the world around the instrument, such as an open cover.
struct StateConfiguration
{
    std::string name;
    bool isSet = false;  ///< at the start
};

/// An interlock forbids output while its expression over the states is true.
struct InterlockConfiguration
{
    std::string name;
    std::string expression;
};

/// What the configuration file says.
struct Configuration
{
    unsigned long poolSize = 1;
    std::vector<ChannelConfiguration> channels;  ///< at least one
    std::vector<StateConfiguration> states;
    std::vector<InterlockConfiguration> interlocks;
};

}  // namespace instrument

#endif
