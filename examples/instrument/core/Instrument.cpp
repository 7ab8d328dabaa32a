#include "core/Instrument.h"

#include <strings.h>

#include <algorithm>

namespace instrument
{

Instrument::Instrument(const Configuration& configuration, Executor& executor)
    : m_channels(configuration.channels.begin(), configuration.channels.end()),
      m_interlocks(configuration.states, configuration.interlocks),
      m_output(m_interlocks),
      m_pool(configuration.poolSize, executor)
{
}

void Instrument::reset()
{
    m_output.switchOff();
    for (Channel& channel : m_channels)
    {
        channel.reset();
    }
}

Channel* Instrument::findChannel(const std::string& name)
{
    const auto found = std::find_if(
        m_channels.begin(), m_channels.end(),
        [&name](const Channel& channel)
        { return strcasecmp(channel.getConfiguration().name.c_str(), name.c_str()) == 0; });
    return found == m_channels.end() ? nullptr : &*found;
}

}  // namespace instrument
