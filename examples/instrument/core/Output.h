#ifndef INSTRUMENT_CORE_OUTPUT_H
#define INSTRUMENT_CORE_OUTPUT_H

#include <utils/observer/Notifier.h>

#include "core/Interlocks.h"

namespace instrument
{

/// The output of the instrument, which interlocks can forbid. It is switched off when one trips,
/// and stays off when that is over.
///
/// Thread safety: belongs to one thread.
class Output : public utils::observer::Notifier
{
  public:
    /// @param interlocks not owned
    explicit Output(Interlocks& interlocks);
    ~Output() override;

    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    bool isOn() const { return m_isOn; }

    /// @return false when an interlock forbids it
    bool switchOn();
    void switchOff();

    /// An interlock has tripped.
    void notify(void* data) override;

  private:
    Interlocks& m_interlocks;
    bool m_isOn = false;
};

}  // namespace instrument

#endif
