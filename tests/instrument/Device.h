#ifndef TESTS_INSTRUMENT_DEVICE_H
#define TESTS_INSTRUMENT_DEVICE_H

#include <gtest/gtest.h>

#include <string>

#include "core/Instrument.h"
#include "core/Session.h"
#include "core/WorkList.h"
#include "core/readConfiguration.h"
#include "support/ConfigDirectory.h"

namespace test
{

/// Two channels without noise, one that takes its time, two states, two interlocks.
inline const std::string CONFIGURATION = R"(<instrument>
  <pool size="2"/>
  <channel name="A">
    <wave form="square" amplitude="2" offset="0.5" frequency="1"/>
    <sampling rate="4"/>
    <range volts="1"/>
    <range volts="10" default="yes"/>
    <range volts="100"/>
  </channel>
  <channel name="B">
    <wave form="dc" offset="2.5"/>
    <range volts="5"/>
  </channel>
  <channel name="SLOW">
    <wave form="dc" offset="1"/>
    <sampling settle="50"/>
    <range volts="5"/>
  </channel>
  <state name="cover_open"/>
  <state name="fan" value="1"/>
  <interlock name="cover">cover_open</interlock>
  <interlock name="heat">!fan</interlock>
</instrument>
)";

/// An instrument that runs, with flags that all have their defaults.
class Device
{
  public:
    explicit Device(const std::string& configuration = CONFIGURATION)
        : m_instrument(instrument::readConfiguration(configuration, "test.xml"), m_work)
    {
        EXPECT_TRUE(m_instrument.start());
    }

    instrument::Instrument& getInstrument() { return m_instrument; }
    instrument::WorkList& getWork() { return m_work; }
    const ConfigDirectory& getFlags() const { return m_flags; }

  private:
    const ConfigDirectory m_flags;
    instrument::WorkList m_work;
    instrument::Instrument m_instrument;
};

/// A client of an instrument.
class Client
{
  public:
    explicit Client(Device& device) : m_device(device), m_session(device.getInstrument(), nullptr)
    {
    }

    /// Sends a line, and waits until it has been executed.
    /// @return the response without its line feed; "(none)" when there was no response
    std::string ask(const std::string& line)
    {
        const std::string responses = send(line + "\n");
        return responses.empty() ? "(none)" : responses.substr(0, responses.size() - 1);
    }

    /// Sends bytes, and waits until they have been executed. @return all responses
    std::string send(const std::string& bytes)
    {
        m_session.receive(bytes);
        return execute();
    }

    /// The next error, as it is answered.
    std::string error() { return ask("SYST:ERR?"); }

  private:
    std::string execute()
    {
        using instrument::Session;
        std::string responses;
        for (;;)
        {
            switch (m_session.step())
            {
                case Session::Step::MORE:
                    break;
                case Session::Step::RESPONSE:
                    responses += m_session.takeResponse();
                    break;
                case Session::Step::WAITING:
                    m_device.getWork().runOne();
                    break;
                case Session::Step::NEEDS_INPUT:
                    return responses;
            }
        }
    }

    Device& m_device;
    instrument::Session m_session;
};

}  // namespace test

#endif
