#include "core/Signal.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace instrument
{

Signal::Signal(const ChannelConfiguration& channel, double range)
    : m_channel(channel), m_range(range), m_generator(channel.noiseSeed)
{
}

double Signal::next()
{
    const double cycles = static_cast<double>(m_index) * m_channel.frequency / m_channel.sampleRate;
    ++m_index;
    double volts = m_channel.offset + m_channel.amplitude * waveAt(cycles - std::floor(cycles));
    if (m_channel.noiseRms > 0)
    {
        volts += m_channel.noiseRms * m_noise(m_generator);
    }
    return std::clamp(volts, -m_range, m_range);
}

// @param phase in cycles, 0 ... 1
// @return -1 ... 1
double Signal::waveAt(double phase) const
{
    switch (m_channel.waveForm)
    {
        case WaveForm::DC:
            return 1;
        case WaveForm::SINE:
            return std::sin(2 * std::numbers::pi * phase);
        case WaveForm::SQUARE:
            return phase < 0.5 ? 1 : -1;
        case WaveForm::TRIANGLE:
            return phase < 0.5 ? 4 * phase - 1 : 3 - 4 * phase;
    }
    return 0;
}

}  // namespace instrument
