#ifndef LEGACY_PANEL_DETECTOR_H
#define LEGACY_PANEL_DETECTOR_H

#include <string>

#include <utils/gsObserver.h>
#include <utils/gsSubject.h>

#include "Aspects.h"
#include "Mixer.h"

namespace legacy_panel
{

/// Measures what the mixer hands on; the further from its own frequency, the less it hears. One
/// function takes both changes of the mixer.
class Detector : public utils::Gs_Subject, public utils::Gs_Observer
{
  public:
    Detector(Mixer& mixer, Aspects& aspects);
    ~Detector() override;

    Detector(const Detector&) = delete;
    Detector& operator=(const Detector&) = delete;

    /// In dBm, SILENCE at least.
    int getReading() const { return m_reading; }

    // Both bases have these.
    const std::string& getName() const override { return m_name; }
    void output(std::ostream& os) const override { Gs_Subject::output(os); }

  private:
    void detect();

    const std::string m_name = "detector";
    Mixer& m_mixer;
    Aspects& m_aspects;
    int m_reading = SILENCE;
};

}  // namespace legacy_panel

#endif
