#ifndef INSTRUMENT_CORE_ACQUISITIONCOMMANDS_H
#define INSTRUMENT_CORE_ACQUISITIONCOMMANDS_H

#include <memory>

#include <utils/command/Command.h>
#include <utils/command/SleepCommand.h>
#include <utils/observer/Event.h>

#include "core/Acquisition.h"

namespace instrument
{

/// Waits until the channel has settled; not when the acquisition has been cancelled.
class Settle : public utils::command::SleepCommand
{
  public:
    explicit Settle(std::shared_ptr<Acquisition> acquisition);

  private:
    int myExecute() override;

    std::shared_ptr<Acquisition> m_acquisition;
};

/// Takes the samples of an acquisition; fewer, when it is cancelled meanwhile.
class TakeSamples : public utils::command::Command
{
  public:
    explicit TakeSamples(std::shared_ptr<Acquisition> acquisition);

  private:
    /// @return 0; 1 when the acquisition was cancelled
    int myExecute() override;

    std::shared_ptr<Acquisition> m_acquisition;
};

/// Computes the statistics of the samples.
class Evaluate : public utils::command::Command
{
  public:
    explicit Evaluate(std::shared_ptr<Acquisition> acquisition);

  private:
    int myExecute() override;

    std::shared_ptr<Acquisition> m_acquisition;
};

/// Tells whoever is interested that an acquisition has ended. The data of the event is the address
/// of a std::shared_ptr<Acquisition>.
class Announce : public utils::command::Command
{
  public:
    /// @param event not owned
    Announce(std::shared_ptr<Acquisition> acquisition, utils::observer::Event& event);

  private:
    int myExecute() override;

    std::shared_ptr<Acquisition> m_acquisition;
    utils::observer::Event& m_event;
};

}  // namespace instrument

#endif
