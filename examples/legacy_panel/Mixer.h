#ifndef LEGACY_PANEL_MIXER_H
#define LEGACY_PANEL_MIXER_H

#include <string>

#include <utils/gsObserver.h>
#include <utils/gsSubject.h>

#include "Aspects.h"
#include "Source.h"

namespace legacy_panel
{

/// Moves the signal to the frequency that the detector listens to, and loses some of it. Observes
/// the source, and is observed by the detector.
class Mixer : public utils::Gs_Subject, public utils::Gs_Observer
{
  public:
    Mixer(Source& source, Aspects& aspects);
    ~Mixer() override;

    Mixer(const Mixer&) = delete;
    Mixer& operator=(const Mixer&) = delete;

    /// In kHz.
    int getFrequency() const { return m_frequency; }

    /// In dBm.
    int getLevel() const { return m_level; }

    // Both bases have these.
    const std::string& getName() const override { return m_name; }
    void output(std::ostream& os) const override { Gs_Subject::output(os); }

  private:
    // Called when the source's frequency, or its level, has changed.
    void shift();
    void attenuate();

    const std::string m_name = "mixer";
    Source& m_source;
    Aspects& m_aspects;
    int m_frequency = 0;
    int m_level = SILENCE;
};

}  // namespace legacy_panel

#endif
