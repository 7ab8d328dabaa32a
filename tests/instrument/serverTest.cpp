// The server, with the program as it was built:
// - it says where it listens, serves several clients at once, and waits for none because of another
// - clients that vanish, in the middle of a line or of an acquisition or without reading their
//   answers, do no harm, nor do rubbish and lines without end
// - a line that is not ended when its client goes is not executed
// - further clients than the bound are turned away
// - what it keeps in memory for clients that send or ask without end is bounded
// - SIGTERM and Ctrl-C end it in order: what was sent is executed and answered, clients that do not
//   read do not hold it up for ever, the exit status is 0; the second signal ends it at once

#include <gtest/gtest.h>
#include <signal.h>

#include <memory>
#include <random>

#include "InstrumentProgram.h"
#include "Socket.h"

using test::Program;
using test::Socket;

namespace
{

constexpr const char* IDENTITY = "generic_utils,Virtual Instrument,0,1.0.0";

// The instrument as a server.
class Server
{
  public:
    Server() : m_program(test::instrumentCommand({"--port", "0"}))
    {
        const std::string line = m_program.readLine();
        const std::string beginning = "instrument: listening on 127.0.0.1:";
        EXPECT_EQ(line.substr(0, beginning.size()), beginning);
        m_port = std::stoi(line.substr(beginning.size()));
    }

    int getPort() const { return m_port; }
    Program& getProgram() { return m_program; }

    // Stops it, and expects that all was well.
    void stop(int signal)
    {
        m_program.sendSignal(signal);
        expectGoodEnd();
    }

    void expectGoodEnd()
    {
        const Program::Result result = m_program.finish();
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.errors, "");
        m_kilobytes = result.maxResidentKilobytes;
    }

    long getMaxKilobytes() const { return m_kilobytes; }

  private:
    Program m_program;
    int m_port = 0;
    long m_kilobytes = 0;
};

}  // namespace

TEST(InstrumentServer, ServesSeveralClients)
{
    Server server;
    const Socket first(server.getPort());
    const Socket second(server.getPort());
    EXPECT_EQ(first.ask("*IDN?"), IDENTITY);
    EXPECT_EQ(second.ask("*IDN?"), IDENTITY);
    EXPECT_TRUE(first.send("INST CH2\n"));
    EXPECT_EQ(first.ask("INST?"), "CH2");
    EXPECT_EQ(second.ask("INST?"), "CH1");
    server.stop(SIGTERM);
}

TEST(InstrumentServer, AnswersOthersWhileOneWaits)
{
    Server server;
    const Socket waiting(server.getPort());
    const Socket other(server.getPort());
    waiting.send("INST SLOW;*CLS;:INIT;:ABOR;:INIT;*OPC;:OUTP ON;*OPC?\n");
    // Whoever switches the output is served in turn with others.
    while (other.ask("OUTP?") != "1")
    {
    }
    EXPECT_EQ(other.ask("INST REF;:MEAS:VOLT?"), "2.500000000E+00");
    EXPECT_EQ(waiting.readLine(), "1");
    server.stop(SIGINT);
}

TEST(InstrumentServer, DoesNotMindClientsThatVanish)
{
    Server server;
    const Socket witness(server.getPort());
    for (int i = 0; i < 10; ++i)
    {
        EXPECT_TRUE(Socket(server.getPort()).send("INST SLOW;:INIT;*OPC?\n*IDN"));
        EXPECT_TRUE(Socket(server.getPort()).send("OUTP ON"));
    }
    EXPECT_EQ(witness.ask("OUTP?;*IDN?"), std::string("0;") + IDENTITY);
    server.stop(SIGTERM);
}

TEST(InstrumentServer, AnswersAClientThatSendsNoMore)
{
    Server server;
    const Socket client(server.getPort());
    client.send("*TST?\nINST REF;:MEAS:VOLT?\nINST?\nOUTP ON");
    client.endInput();
    EXPECT_EQ(client.readAll(), "0\n2.500000000E+00\nREF\n");
    EXPECT_EQ(Socket(server.getPort()).ask("OUTP?"), "0");
    server.stop(SIGTERM);
}

TEST(InstrumentServer, DoesNotMindRubbish)
{
    Server server;
    const Socket client(server.getPort());
    const Socket witness(server.getPort());
    std::mt19937 generator(1);
    std::string rubbish;
    for (int i = 0; i < 300'000; ++i)
    {
        rubbish += static_cast<char>(generator() & 0xff);
    }
    EXPECT_TRUE(client.send(rubbish));
    EXPECT_EQ(witness.ask("*IDN?"), IDENTITY);
    // A block may have begun that swallows this much.
    EXPECT_TRUE(client.send(std::string(65536, '\n') + "\n*CLS;*IDN?\n"));
    EXPECT_EQ(client.readLine(), IDENTITY);
    server.stop(SIGTERM);
}

TEST(InstrumentServer, KeepsNoLineWithoutEnd)
{
    Server server;
    const Socket client(server.getPort());
    const std::string part(1'000'000, 'x');
    for (int i = 0; i < 100; ++i)
    {
        ASSERT_TRUE(client.send(part));
    }
    EXPECT_EQ(client.ask("\nSYST:ERR?"), "-363,\"Input buffer overrun\"");
    server.stop(SIGTERM);
    EXPECT_LT(server.getMaxKilobytes(), 1'000'000);
}

TEST(InstrumentServer, KeepsOneResponseForClientsThatDoNotRead)
{
    Server server;
    const Socket witness(server.getPort());
    std::vector<std::unique_ptr<Socket>> clients;
    std::string request = "ACQ:POIN MAX;:INIT;:FORM REAL;*WAI\n";
    for (int i = 0; i < 10'000; ++i)
    {
        request += "FETC:WAV?\n";
    }
    for (int i = 0; i < 3; ++i)
    {
        clients.push_back(std::make_unique<Socket>(server.getPort()));
        clients.back()->sendSome(request);
    }
    EXPECT_EQ(clients[0]->readLine().substr(0, 9), "#78000000");
    EXPECT_EQ(witness.ask("*IDN?"), IDENTITY);
    clients.clear();
    EXPECT_EQ(witness.ask("*IDN?"), IDENTITY);
    server.stop(SIGTERM);
    EXPECT_LT(server.getMaxKilobytes(), 1'000'000);
}

TEST(InstrumentServer, TurnsFurtherClientsAway)
{
    Server server;
    std::vector<std::unique_ptr<Socket>> clients;
    for (int i = 0; i < 32; ++i)
    {
        clients.push_back(std::make_unique<Socket>(server.getPort()));
        EXPECT_EQ(clients.back()->ask("*TST?"), "0");
    }
    EXPECT_EQ(Socket(server.getPort()).readAll(), "");

    clients.back()->endInput();
    EXPECT_EQ(clients.back()->readAll(), "");
    EXPECT_EQ(Socket(server.getPort()).ask("*TST?"), "0");
    server.stop(SIGTERM);
}

class InstrumentServerSignal : public testing::TestWithParam<int>
{
};

TEST_P(InstrumentServerSignal, LetsWhatWasSentBeAnswered)
{
    Server server;
    const Socket idle(server.getPort());
    std::vector<std::unique_ptr<Socket>> clients;
    for (int i = 0; i < 4; ++i)
    {
        clients.push_back(std::make_unique<Socket>(server.getPort()));
        clients.back()->send(
            "*TST?\nINST SLOW;:INIT;*OPC?\nINST REF;:MEAS:VOLT?;*TST?\nINST?\nOUTP ON");
        EXPECT_EQ(clients.back()->readLine(), "0");
    }
    server.getProgram().sendSignal(GetParam());
    for (const auto& client : clients)
    {
        EXPECT_EQ(client->readAll(), "1\n2.500000000E+00;0\nREF\n");
    }
    EXPECT_EQ(idle.readAll(), "");
    server.expectGoodEnd();
    EXPECT_THROW(Socket(server.getPort()), std::runtime_error);
}

INSTANTIATE_TEST_SUITE_P(All, InstrumentServerSignal, testing::Values(SIGINT, SIGTERM));

TEST(InstrumentServer, EndsInSpiteOfClientsThatDoNotRead)
{
    Server server;
    const Socket client(server.getPort());
    client.send("ACQ:POIN MAX;:INIT;:FORM REAL;*OPC?\nFETC:WAV?\n");
    EXPECT_EQ(client.readLine(), "1");
    server.stop(SIGTERM);
}

TEST(InstrumentServer, EndsAtOnceTheSecondTime)
{
    Server server;
    const Socket client(server.getPort());
    client.send("ACQ:POIN MAX;:INIT;:FORM REAL;*OPC?\nFETC:WAV?\n");
    EXPECT_EQ(client.readLine(), "1");
    server.getProgram().sendSignal(SIGTERM);
    server.getProgram().waitUntilNoLongerCaught(SIGTERM);
    server.getProgram().sendSignal(SIGTERM);
    EXPECT_EQ(server.getProgram().finish().signal, SIGTERM);
}

TEST(InstrumentServer, IgnoresAnInterruptThatItWasStartedToIgnore)
{
    Program program(test::instrumentCommand({"--port", "0"}), {.ignoresInterrupts = true});
    const std::string line = program.readLine();
    const Socket client(std::stoi(line.substr(line.rfind(':') + 1)));
    program.sendSignal(SIGINT);
    EXPECT_EQ(client.ask("*TST?"), "0");
    program.sendSignal(SIGTERM);
    EXPECT_EQ(program.finish().status, 0);
}
