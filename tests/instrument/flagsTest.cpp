// Flags and traces of the instrument:
// - the shipped file gives every flag of the program its default
// - the file is read again on command, and the program traces from then on
// - the master switch and levels of the library's own traces are read again, too
// - a flag that the file does not name any more keeps its value; a text is taken whole
// - a file that has gone is an error, and changes nothing
// - the path of the file is answered

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

#include <utils/flag/Flag.h>
#include <utils/flag/InitialValues.h>
#include <utils/singleton/SingletonT.h>
#include <utils/xml/Flags.h>

#include "Device.h"
#include "InstrumentProgram.h"
#include "core/Flags.h"
#include "core/flagsFile.h"
#include "support/RecordingTraceStrategy.h"
#include "support/TemporaryFolder.h"

using test::Client;
using test::Device;
using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using utils::flag::Flag;
using utils::singleton::SingletonT;

TEST(InstrumentFlagsFile, HoldsTheDefaultOfEveryFlag)
{
    const test::ConfigDirectory folder("# nothing\n");
    instrument::readFlags(folder.getPath());
    setenv("GENERIC_CONFIG_DIR", INSTRUMENT_FOLDER, 1);
    auto* const shipped = SingletonT<utils::flag::InitialValues>::getInstancePtr();
    shipped->redoInitialValuesCollection();

    const auto& flags = *SingletonT<std::map<std::string, Flag*>>::getInstancePtr();
    ASSERT_GE(flags.size(), 14U);
    for (const auto& [name, flag] : flags)
    {
        std::string inFile;
        EXPECT_TRUE(shipped->getInitialValue(name, inFile)) << name;
        EXPECT_EQ(inFile, flag->getValueStr()) << name;
    }
}

TEST(InstrumentFlags, AreReadAgain)
{
    Device device;
    Client client(device);
    const test::RecordingTraceStrategy traces;
    client.ask("OUTP ON");
    EXPECT_THAT(traces.getWords(), IsEmpty());

    device.getFlags().writeValues("instrument::m_traceSteps\n1\n");
    client.ask("SYST:FLAG:REL");
    client.ask("OUTP OFF;FOO");
    EXPECT_THAT(traces.getWords(),
                testing::ElementsAre("Output is off.", "Error -113, 'Undefined header'."));

    device.getFlags().writeValues("instrument::m_traceSteps\n0\n");
    EXPECT_EQ(client.ask("SYST:FLAG:REL;:SYST:ERR:COUN?"), "1");
    client.ask("OUTP ON");
    EXPECT_EQ(traces.getWords().size(), 2U);
}

TEST(InstrumentFlags, OfTheLibraryAreReadAgain)
{
    Device device;
    Client client(device);
    const test::RecordingTraceStrategy traces;
    device.getFlags().writeValues("utils::queue::m_traceSteps\n1\n");
    client.ask("SYSTEM:FLAGS:RELOAD");
    client.ask("MEAS:VOLT?");
    EXPECT_THAT(traces.getWords(), Contains("Writing macro 'acquire A' to queue 'acquisitions'."));
}

TEST(InstrumentFlags, KeepTheirValuesWhenTheFileDoesNotNameThem)
{
    Device device;
    Client client(device);
    auto* const xml = SingletonT<utils::xml::Flags>::getInstancePtr();
    auto* const own = SingletonT<instrument::Flags>::getInstancePtr();
    device.getFlags().writeValues(
        "instrument::m_traceSteps\n-3\nutils::xml::m_xmlDeclaration\n<?xml version='1.1'?>\n");
    client.ask("SYST:FLAG:REL");
    EXPECT_EQ(own->m_traceSteps.getValue(), -3);
    EXPECT_EQ(xml->m_xmlDeclaration.getValue(), "<?xml version='1.1'?>");

    device.getFlags().writeValues("instrument::m_traceSteps\nnonsense\n");
    client.ask("SYST:FLAG:REL");
    EXPECT_EQ(own->m_traceSteps.getValue(), -3);
    EXPECT_EQ(xml->m_xmlDeclaration.getValue(), "<?xml version='1.1'?>");
}

TEST(InstrumentFlags, AreNotReadFromAFileThatHasGone)
{
    Device device;
    Client client(device);
    device.getFlags().removeValues();
    EXPECT_EQ(client.ask("SYST:FLAG:REL;:SYST:ERR?"), "-256,\"File name not found\"");
}

TEST(InstrumentFlags, HaveAPath)
{
    Device device;
    Client client(device);
    EXPECT_EQ(client.ask("SYST:FLAG:FILE?"), "\"" + device.getFlags().getValuesPath() + "\"");
}

TEST(InstrumentFlags, AreThoseOfTheOption)
{
    const test::TemporaryFolder folder;
    const std::string script = folder.write("script", "SYST:FLAG:FILE?\nOUTP ON\n");
    const std::string flags = folder.write("generic_flags.txt", "instrument::m_traceSteps\n1\n");
    const auto result = test::runInstrument({"--flags", flags, "--script", script});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, "\"" + flags + "\"\n");
    EXPECT_THAT(result.errors, HasSubstr(": Output is on.\n"));
}

TEST(InstrumentFlags, AreQuietWithTheShippedFile)
{
    const test::TemporaryFolder folder;
    const std::string script = folder.write("script", "MEAS:VOLT?;:OUTP ON;:SYST:FLAG:FILE?\n");
    const auto result = test::runInstrument({"--script", script});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.output, HasSubstr("\"" INSTRUMENT_FOLDER "/generic_flags.txt\""));
    EXPECT_EQ(result.errors, "");
}
