#ifndef INSTRUMENT_CORE_INTERLOCKS_H
#define INSTRUMENT_CORE_INTERLOCKS_H

#include <map>
#include <optional>
#include <string>
#include <vector>

#include <utils/observer/Event.h>

#include "core/Configuration.h"

namespace instrument
{

/// The states of the world around the instrument, and the interlocks that forbid output because of
/// them.
///
/// Thread safety: belongs to one thread.
class Interlocks
{
  public:
    Interlocks(const std::vector<StateConfiguration>& states,
               std::vector<InterlockConfiguration> interlocks);

    /// Names in the order of the alphabet.
    std::vector<std::string> getStateNames() const;

    /// @return nothing for a name that is not known
    std::optional<bool> getState(const std::string& name) const;

    /// Changes a state. When interlocks forbid output afterwards, the event is notified.
    /// @return false for a name that is not known
    bool setState(const std::string& name, bool isSet);

    /// The names of the interlocks that forbid output now, in the order of the configuration.
    std::vector<std::string> findTripped() const;

    /// Its data is null.
    utils::observer::Event& getTrippedEvent() { return m_trippedEvent; }

  private:
    std::map<std::string, bool> m_states;
    std::vector<InterlockConfiguration> m_interlocks;
    utils::observer::Event m_trippedEvent;
};

}  // namespace instrument

#endif
