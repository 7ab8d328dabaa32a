#include "Mixer.h"

#include <cstdlib>

namespace legacy_panel
{

namespace
{
constexpr int OSCILLATOR_FREQUENCY = 10000;  // kHz
constexpr int LOSS = 6;                      // dB
}  // namespace

Mixer::Mixer(Source& source, Aspects& aspects) : m_source(source), m_aspects(aspects)
{
    source.attach(this, &Mixer::shift, &aspects.frequency, CHAIN_FIRST);
    source.attach(this, &Mixer::attenuate, &aspects.level, CHAIN_FIRST);
}

Mixer::~Mixer()
{
    // The base class would do it as well, but under a name that is no longer this class's.
    m_source.detachAll(this);
}

void Mixer::shift()
{
    m_frequency = std::abs(m_source.getFrequency() - OSCILLATOR_FREQUENCY);
    notify(&m_aspects.frequency);
}

void Mixer::attenuate()
{
    m_level = m_source.getLevel() - LOSS;
    notify(&m_aspects.level);
}

}  // namespace legacy_panel
