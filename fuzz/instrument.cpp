// The instrument's line, without its sockets: an input is what a client sends.
//
// - it makes no difference in which pieces the bytes arrive
// - every response is a line; what has gone wrong is in the error queue, which keeps its bounds
// - the next message is executed, whatever came before
// - another client sees nothing of the errors

#include <string>
#include <string_view>
#include <vector>

#include "core/Instrument.h"
#include "core/Session.h"
#include "core/WorkList.h"
#include "core/flagsFile.h"
#include "core/limits.h"
#include "core/readConfiguration.h"
#include "support/ConfigDirectory.h"
#include "target.h"

namespace
{

using instrument::Instrument;
using instrument::Session;

// One task, so that acquisitions end in the order in which they begin.
constexpr const char* CONFIGURATION = R"(
<instrument>
  <pool size="1"/>
  <channel name="CH1">
    <wave form="sine" amplitude="1" frequency="50"/>
    <noise rms="0.01" seed="1"/>
    <range volts="1"/>
    <range volts="10"/>
  </channel>
  <channel name="REF">
    <wave form="dc" offset="2.5"/>
    <range volts="5"/>
  </channel>
  <state name="open" value="0"/>
  <state name="hot" value="0"/>
  <interlock name="cover">open | !(!hot)</interlock>
</instrument>
)";

// A message that undoes what one client can do to another.
constexpr std::string_view START = "*RST;*CLS;:INT:STAT \"open\",0;:INT:STAT \"hot\",0\n";

// Enough of what takes long: acquisitions and responses of a million samples.
constexpr int MAX_WAITS = 8;
constexpr std::size_t MAX_ANSWERED = 100'000;

// Flags come before anything else of the library.
instrument::Configuration configure(const test::ConfigDirectory& folder)
{
    instrument::readFlags(folder.getPath());
    return instrument::readConfiguration(CONFIGURATION, "fuzz");
}

struct Device
{
    Device() { fuzz::require(instrument.start(), "the device starts"); }

    const test::ConfigDirectory folder;
    instrument::WorkList work;  // done when it is wanted, so that all happens in one order
    Instrument instrument{configure(folder), work};
};

/// A client.
class Client
{
  public:
    explicit Client(Device& device) : m_device(device), m_session(device.instrument, nullptr) {}

    void send(std::string_view bytes)
    {
        m_session.receive(bytes);
        proceed();
    }

    void endInput()
    {
        m_session.endInput();
        proceed();
    }

    /// The one response to a message.
    std::string ask(const std::string& message)
    {
        const std::size_t numBefore = m_responses.size();
        send(message + "\n");
        fuzz::require(m_responses.size() == numBefore + 1, "a query has one response");
        return m_responses.back();
    }

    const std::vector<std::string>& getResponses() const { return m_responses; }

    /// Whether the input takes more time than it is worth.
    bool isTooLong() const { return m_numWaits > MAX_WAITS || m_numAnswered > MAX_ANSWERED; }

  private:
    void proceed()
    {
        while (!isTooLong())
        {
            switch (m_session.step())
            {
                case Session::Step::MORE:
                    break;
                case Session::Step::RESPONSE:
                    takeResponse();
                    break;
                case Session::Step::WAITING:
                    ++m_numWaits;
                    m_device.work.runOne();
                    break;
                case Session::Step::NEEDS_INPUT:
                    return;
            }
        }
    }

    void takeResponse()
    {
        m_responses.push_back(m_session.takeResponse());
        m_numAnswered += m_responses.back().size();
        fuzz::require(m_responses.back().ends_with('\n'), "a response is a line");
    }

    Device& m_device;
    Session m_session;
    std::vector<std::string> m_responses;
    int m_numWaits = 0;
    std::size_t m_numAnswered = 0;
};

void requireErrors(Client& client)
{
    const unsigned long count = std::stoul(client.ask("SYST:ERR:COUN?"));
    fuzz::require(count <= instrument::limits::MAX_ERRORS, "the error queue is bounded");
    for (unsigned long i = 0; i < count; ++i)
    {
        const std::string error = client.ask("SYST:ERR?");
        fuzz::require(error.starts_with('-') && error.ends_with("\"\n"), "an error has its form");
    }
    fuzz::require(client.ask("SYST:ERR?") == "0,\"No error\"\n", "all errors have been counted");
}

void requireUnharmed(Client& client)
{
    const std::string identity = client.ask("*IDN?");
    fuzz::require(identity.starts_with("generic_utils,Virtual Instrument,0,"),
                  "the next message is executed");
}

/// @param pieceSize in how many bytes at a time the input arrives
/// @return all responses
std::vector<std::string> converse(Device& device, std::string_view input, std::size_t pieceSize)
{
    Client bystander(device);
    bystander.send(START);
    Client client(device);
    for (std::size_t begin = 0; begin < input.size(); begin += pieceSize)
    {
        client.send(input.substr(begin, pieceSize));
    }
    client.endInput();
    if (!client.isTooLong())
    {
        requireErrors(client);
        requireUnharmed(client);
    }
    fuzz::require(bystander.ask("SYST:ERR:COUN?;*ESR?") == "0;0\n", "errors are the client's own");
    // Behind all acquisitions that nobody waits for.
    fuzz::require(bystander.ask("ACQ:POIN 1;:INIT;*OPC?") == "1\n", "the device goes on");
    return client.getResponses();
}

}  // namespace

void fuzz::run(std::string_view input)
{
    static auto& device = *new Device;
    const std::vector<std::string> responses = converse(device, input, input.size() + 1);
    const std::size_t pieceSize = 1 + input.size() % 7;
    require(converse(device, input, pieceSize) == responses, "pieces make no difference");
}
