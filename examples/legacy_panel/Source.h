#ifndef LEGACY_PANEL_SOURCE_H
#define LEGACY_PANEL_SOURCE_H

#include <string>

#include <utils/gsSubject.h>

#include "Aspects.h"

namespace legacy_panel
{

/// What is measured as nothing, in dBm.
constexpr int SILENCE = -120;

/// The signal that is measured. A subject only: nobody tells it anything.
class Source : public utils::Gs_Subject
{
  public:
    /// Off, at 10000 kHz and -30 dBm.
    explicit Source(Aspects& aspects) : m_aspects(aspects) {}

    void switchTo(bool isOn);

    /// @param frequency in kHz
    void tune(int frequency);

    /// @param level in dBm
    void setLevel(int level);

    bool isOn() const { return m_isOn; }

    /// In kHz.
    int getFrequency() const { return m_frequency; }

    /// In dBm; SILENCE while the source is off.
    int getLevel() const { return m_isOn ? m_level : SILENCE; }

    const std::string& getName() const override { return m_name; }

  private:
    const std::string m_name = "source";
    Aspects& m_aspects;
    bool m_isOn = false;
    int m_frequency = 10000;
    int m_level = -30;
};

}  // namespace legacy_panel

#endif
