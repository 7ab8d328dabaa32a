#ifndef LEGACY_PANEL_CONTROLS_H
#define LEGACY_PANEL_CONTROLS_H

#include <string>

#include "Source.h"
#include "StateMachine.h"

namespace legacy_panel
{

/// What can be pressed and turned on the front panel.
class Controls
{
  public:
    Controls(Source& source, StateMachine& machine) : m_source(source), m_machine(machine) {}

    /// @param command "on", "off", "tick", "tune=" with kHz or "level=" with dBm
    /// @return false when there is no such command, which is reported as an older error
    bool execute(const std::string& command);

  private:
    bool press(const std::string& button);
    bool turn(const std::string& knob, const std::string& position);

    Source& m_source;
    StateMachine& m_machine;
};

}  // namespace legacy_panel

#endif
