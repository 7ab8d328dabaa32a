#include "Detector.h"

#include <algorithm>
#include <cstdlib>

namespace legacy_panel
{

namespace
{
constexpr int CENTRE_FREQUENCY = 450;  // kHz
constexpr int KHZ_PER_DB = 10;
}  // namespace

Detector::Detector(Mixer& mixer, Aspects& aspects) : m_mixer(mixer), m_aspects(aspects)
{
    mixer.attach(this, &Detector::detect, &aspects.frequency, CHAIN_FIRST);
    mixer.attach(this, &Detector::detect, &aspects.level, CHAIN_FIRST);
}

Detector::~Detector()
{
    m_mixer.detachAll(this);
}

void Detector::detect()
{
    const int distance = std::abs(m_mixer.getFrequency() - CENTRE_FREQUENCY);
    m_reading = std::max(m_mixer.getLevel() - distance / KHZ_PER_DB, SILENCE);
    notify(&m_aspects.level);
}

}  // namespace legacy_panel
