#include "Source.h"

namespace legacy_panel
{

void Source::switchTo(bool isOn)
{
    m_isOn = isOn;
    notify(&m_aspects.level);
}

void Source::tune(int frequency)
{
    m_frequency = frequency;
    notify(&m_aspects.frequency);
}

void Source::setLevel(int level)
{
    m_level = level;
    notify(&m_aspects.level);
}

}  // namespace legacy_panel
