#include "Panel.h"

#include <iomanip>
#include <sstream>

namespace legacy_panel
{

Panel::Panel(Source& source, Detector& detector, StateMachine& machine, Aspects& aspects)
    : m_source(source), m_detector(detector), m_machine(machine)
{
    source.attach(this, &Panel::showFrequency, &aspects.frequency, PANEL_LAST);
    detector.attach(this, &Panel::showReading, &aspects.level, PANEL_LAST);
    machine.attach(this, nullptr, PANEL_LAST);  // null: the default aspect
    showFrequency();
    showReading();
    Panel::update();
}

Panel::~Panel()
{
    m_machine.detachAll(this);
    m_detector.detachAll(this);
    m_source.detachAll(this);
}

std::string Panel::getText() const
{
    std::ostringstream text;
    text << "[ " << std::setw(5) << m_frequency << " kHz | " << std::setw(4) << m_reading
         << " dBm | " << std::left << std::setw(10) << m_state << " ]";
    return text.str();
}

void Panel::update()
{
    m_state = m_machine.getState();
}

void Panel::showFrequency()
{
    m_frequency = std::to_string(m_source.getFrequency());
}

void Panel::showReading()
{
    const int reading = m_detector.getReading();
    m_reading = reading > SILENCE ? std::to_string(reading) : "---";
}

}  // namespace legacy_panel
