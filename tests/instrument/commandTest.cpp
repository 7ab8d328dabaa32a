// What a client can say to the instrument, and what it answers:
// - every command and every query, in long and in short form, with and without optional nodes
// - the level at which a header without a colon continues
// - parameters that are missing, too many, of the wrong type, out of range, or unknown
// - waiting for acquisitions: *OPC, *OPC?, *WAI, FETCh; ABORt and *RST end them
// - what is shared by clients, and what is not
// - rubbish, lines that are too long, and responses that are too long do no harm

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "Device.h"
#include "core/converse.h"

using test::Client;
using test::Device;
using testing::StartsWith;

namespace
{

constexpr const char* NO_ERROR = "0,\"No error\"";
constexpr const char* NOTHING = "(none)";

// Sends a line that is not answered.
// @return the error that it left
std::string errorOf(Client& client, const std::string& line)
{
    EXPECT_EQ(client.ask(line), NOTHING) << line;
    return client.error();
}

}  // namespace

TEST(InstrumentCommands, Identify)
{
    Device device;
    Client client(device);
    EXPECT_EQ(client.ask("*IDN?"), "generic_utils,Virtual Instrument,0,1.0.0");
    EXPECT_EQ(client.ask("*idn?"), "generic_utils,Virtual Instrument,0,1.0.0");
    EXPECT_EQ(client.ask("SYST:VERS?"), "1999.0");
    EXPECT_EQ(client.ask("system:version?"), "1999.0");
    EXPECT_EQ(client.ask("*TST?"), "0");
}

TEST(InstrumentCommands, JoinAnswers)
{
    Device device;
    Client client(device);
    EXPECT_EQ(client.ask("*TST?;*ESE?; SYST:VERS? ;"), "0;0;1999.0");
    EXPECT_EQ(client.send("*TST?\n*ESE?\r\n\n ; \n*OPC?\n"), "0\n0\n1\n");
    EXPECT_EQ(client.ask("*TST?;FOO;*ESE?"), "0;0");
    EXPECT_EQ(client.error(), "-113,\"Undefined header\"");
}

TEST(InstrumentCommands, ContinueAtTheLevelOfTheLastHeader)
{
    Device device;
    Client client(device);
    EXPECT_EQ(client.ask("SENS:VOLT:RANG 1;RANG?"), "1.000000000E+00");
    EXPECT_EQ(client.ask("VOLT:RANG 100;*CLS;RANG?;:ACQ:POIN 7;POIN?"), "1.000000000E+02;7");
    EXPECT_EQ(client.ask("SYST:ERR:COUN?;NEXT?;:SYST:ERR?;VERS?"),
              "0;0,\"No error\";0,\"No error\";1999.0");
    EXPECT_EQ(client.ask("VOLT:RANG 1;FOO;RANG?"), "1.000000000E+00");
    EXPECT_EQ(client.error(), "-113,\"Undefined header\"");
    EXPECT_EQ(errorOf(client, "VOLT:RANG 1;ACQ:POIN 5"), "-113,\"Undefined header\"");
    EXPECT_EQ(errorOf(client, "RANG?"), "-113,\"Undefined header\"");
}

TEST(InstrumentCommands, AreUndefinedWhenTheFormIsNeitherShortNorLong)
{
    Device device;
    Client client(device);
    for (const char* const line :
         {"FOO", "VOLTA:RANG 1", "VOLT:RANG:X 1", "VOL:RANG 1", "SENS:RANG 1", "*IDN", "*FOO?",
          "INIT?", "ABOR?", "MEAS:VOLT", "SYST:ERR", "INST:CAT", "VOLT", "SENS", "*WAI?"})
    {
        EXPECT_EQ(errorOf(client, line), "-113,\"Undefined header\"") << line;
    }
}

TEST(InstrumentCommands, CountTheirParameters)
{
    Device device;
    Client client(device);
    for (const char* const line : {"VOLT:RANG", "*ESE", "*SRE", "INT:STAT \"fan\"", "INT:STAT?",
                                   "OUTP", "INST", "ACQ:POIN", "FORM", "FORM:BORD"})
    {
        EXPECT_EQ(errorOf(client, line), "-109,\"Missing parameter\"") << line;
    }
    for (const char* const line :
         {"*CLS 1", "*RST 1", "*IDN? 1", "VOLT:RANG 1,2", "INIT 1", "ABOR 1", "INT:TRIP? 1",
          "FETC:STAT? 1", "OUTP 1,1", "MEAS:VOLT? 1", "SYST:FLAG:REL 1", "*OPC? 1"})
    {
        EXPECT_EQ(errorOf(client, line), "-108,\"Parameter not allowed\"") << line;
    }
}

TEST(InstrumentCommands, CheckTheirParameters)
{
    Device device;
    Client client(device);
    for (const char* const line :
         {"VOLT:RANG \"1\"", "ACQ:POIN #11a", "*ESE ON", "*SRE \"1\"", "OUTP \"ON\"",
          "INT:STAT fan,1", "INT:STAT \"fan\",\"1\"", "INST 1", "FORM 1", "FORM \"REAL\"",
          "VOLT:RANG? 1", "FORM:BORD 1", "INST #13CH1", "FORM REAL,\"64\""})
    {
        EXPECT_EQ(errorOf(client, line), "-104,\"Data type error\"") << line;
    }
    for (const char* const line :
         {"VOLT:RANG 100.1", "VOLT:RANG -1", "VOLT:RANG 1e999", "ACQ:POIN 0", "ACQ:POIN 1000001",
          "*ESE 256", "*SRE -1", "FORM REAL,32", "FORM ASC,3"})
    {
        EXPECT_EQ(errorOf(client, line), "-222,\"Data out of range\"") << line;
    }
    for (const char* const line :
         {"VOLT:RANG BIG", "VOLT:RANG? BIG", "OUTP MAYBE", "INST C", "INST \"C\"",
          "INT:STAT \"x\",1", "INT:STAT? \"x\"", "FORM INT", "FORM:BORD NORM"})
    {
        EXPECT_EQ(errorOf(client, line), "-224,\"Illegal parameter value\"") << line;
    }
    EXPECT_EQ(errorOf(client, "VOLT:RANG 1V"), "-138,\"Suffix not allowed\"");
    EXPECT_EQ(errorOf(client, "OUTP ,"), "-102,\"Syntax error\"");
    EXPECT_EQ(errorOf(client, "INST \"A"), "-151,\"Invalid string data\"");
    EXPECT_EQ(errorOf(client, "VOLT\x01"), "-101,\"Invalid character\"");
}

TEST(InstrumentCommands, SelectAChannel)
{
    Device device;
    Client client(device);
    EXPECT_EQ(client.ask("INST:CAT?"), "\"A\",\"B\",\"SLOW\"");
    EXPECT_EQ(client.ask("INST?"), "A");
    EXPECT_EQ(client.ask("INST B;INST?"), "B");
    EXPECT_EQ(client.ask("INSTrument:SELect \"slow\";SELect?"), "SLOW");
    EXPECT_EQ(client.error(), NO_ERROR);
}

TEST(InstrumentCommands, SetTheRange)
{
    Device device;
    Client client(device);
    EXPECT_EQ(client.ask("VOLT:RANG?"), "1.000000000E+01");
    EXPECT_EQ(client.ask("VOLT:RANG 2e1;RANG?"), "1.000000000E+02");
    EXPECT_EQ(client.ask("VOLT:RANG 0;RANG?"), "1.000000000E+00");
    EXPECT_EQ(client.ask("VOLT:RANG MAX;RANG?;RANG MIN;RANG?;RANG DEFAULT;RANG?"),
              "1.000000000E+02;1.000000000E+00;1.000000000E+01");
    EXPECT_EQ(client.ask("SENSE:VOLTAGE:RANGE? MIN;RANGE? MAXIMUM;RANGE? DEF"),
              "1.000000000E+00;1.000000000E+02;1.000000000E+01");
    EXPECT_EQ(client.error(), NO_ERROR);
}

TEST(InstrumentCommands, SetThePoints)
{
    Device device;
    Client client(device);
    EXPECT_EQ(client.ask("ACQ:POIN?"), "1000");
    EXPECT_EQ(client.ask("SENS:ACQ:POIN 2.4;POIN?;POIN #H10;POIN?"), "2;16");
    EXPECT_EQ(client.ask("ACQ:POIN MAX;POIN?;POIN MIN;POIN?;POIN DEF;POIN?"), "1000000;1;1000");
    EXPECT_EQ(client.ask("ACQ:POIN? MIN;POIN? MAX;POIN? DEF"), "1;1000000;1000");
}

TEST(InstrumentCommands, AcquireAndFetch)
{
    Device device;
    Client client(device);
    EXPECT_EQ(errorOf(client, "FETC:STAT?"), "-230,\"Data corrupt or stale\"");
    EXPECT_EQ(client.ask("ACQ:POIN 4;:INIT;:FETC:STAT?"),
              "-1.500000000E+00,2.500000000E+00,5.000000000E-01,2.061552813E+00");
    EXPECT_EQ(client.ask("FETC:WAV?"),
              "2.500000000E+00,2.500000000E+00,-1.500000000E+00,-1.500000000E+00");
    EXPECT_EQ(client.ask("FETCH:WAVEFORM?;STATISTICS?"),
              "2.500000000E+00,2.500000000E+00,-1.500000000E+00,-1.500000000E+00;"
              "-1.500000000E+00,2.500000000E+00,5.000000000E-01,2.061552813E+00");
    EXPECT_EQ(client.ask("VOLT:RANG 1;:INITIATE:IMMEDIATE;:FETC:WAV?"),
              "1.000000000E+00,1.000000000E+00,-1.000000000E+00,-1.000000000E+00");
    EXPECT_EQ(client.error(), NO_ERROR);
}

TEST(InstrumentCommands, Measure)
{
    Device device;
    Client client(device);
    EXPECT_EQ(client.ask("INST B;:MEAS:VOLT?;*TST?"), "2.500000000E+00;0");
    EXPECT_EQ(client.ask("FETC:STAT?"),
              "2.500000000E+00,2.500000000E+00,2.500000000E+00,2.500000000E+00");
}

TEST(InstrumentCommands, FetchBinaryBlocks)
{
    using namespace std::string_literals;
    Device device;
    Client client(device);
    EXPECT_EQ(client.ask("FORM?"), "ASC");
    EXPECT_EQ(client.ask("FORM REAL,64;FORM?;FORM ASC,0;FORM?;FORMAT:DATA REAL;DATA?"),
              "REAL;ASC;REAL");
    EXPECT_EQ(client.ask("FORM:BORD?;BORD SWAP;BORD?"), "SWAP;SWAP");
    EXPECT_EQ(client.ask("INST B;:ACQ:POIN 2;:INIT;:FETC:WAV?;*TST?"),
              "#216\0\0\0\0\0\0\x04\x40\0\0\0\0\0\0\x04\x40;0"s);
    EXPECT_EQ(client.error(), NO_ERROR);
}

TEST(InstrumentCommands, FetchAHexDump)
{
    using namespace std::string_literals;
    Device device;
    Client client(device);
    EXPECT_EQ(client.ask("INST B;:ACQ:POIN 3;:INIT;:FETC:DUMP?"),
              "#3145"
              "0000-000f: 00 00 00 00 00 00 04 40 00 00 00 00 00 00 04 40 \0.......@.......@\n"
              "0010-0017: 00 00 00 00 00 00 04 40 \0                       .......@\n"s);
    EXPECT_THAT(client.ask("ACQ:POIN 1000;:INIT;:FETC:DUMP?"), StartsWith("#41232"));
}

TEST(InstrumentCommands, DoNotWaitForAnAcquisitionUnlessTold)
{
    Device device;
    Client client(device);
    client.ask("*CLS;:INST SLOW");
    EXPECT_EQ(client.ask("INIT;*OPC;*ESR?;*WAI;*ESR?"), "0;1");
    EXPECT_EQ(client.ask("INIT;*OPC?;*ESR?"), "1;0");
    EXPECT_EQ(client.ask("*OPC;*ESR?"), "1");
}

TEST(InstrumentCommands, IgnoreASecondInitiate)
{
    Device device;
    Client client(device);
    EXPECT_EQ(client.ask("INST SLOW;:INIT;:INIT;:SYST:ERR?"), "-213,\"Init ignored\"");
    EXPECT_EQ(client.ask("*WAI;:INIT;*OPC?;:SYST:ERR?"), "1;0,\"No error\"");
}

TEST(InstrumentCommands, AbortAnAcquisition)
{
    Device device;
    Client client(device);
    client.ask("*CLS;:INST SLOW");
    EXPECT_EQ(client.ask("INIT;*OPC;:ABOR;*ESR?;*OPC?;*ESR?"), "1;1;0");
    EXPECT_EQ(errorOf(client, "FETC:STAT?"), "-230,\"Data corrupt or stale\"");
    EXPECT_EQ(client.ask("INIT;:ABOR;:INIT;:FETC:STAT?"),
              "1.000000000E+00,1.000000000E+00,1.000000000E+00,1.000000000E+00");
    EXPECT_EQ(client.ask("INIT;:MEAS:VOLT?"), "1.000000000E+00");
    EXPECT_EQ(client.ask("ABOR;:SYST:ERR?"), NO_ERROR);
}

TEST(InstrumentCommands, RefuseTooManyAcquisitionsOfOneClient)
{
    Device device;
    Client client(device);
    Client other(device);
    client.ask("INST SLOW");
    // None of them is known to have ended before this thread asks for it.
    for (int i = 0; i < 8; ++i)
    {
        EXPECT_EQ(client.ask("INIT;:ABOR;:SYST:ERR?"), NO_ERROR);
    }
    EXPECT_EQ(client.ask("INIT;:SYST:ERR?"), "-200,\"Execution error\"");
    EXPECT_EQ(other.ask("INST B;:MEAS:VOLT?"), "2.500000000E+00");
    EXPECT_EQ(client.ask("INIT;*OPC?;:SYST:ERR?"), "1;0,\"No error\"");
}

TEST(InstrumentCommands, ResetTheSettings)
{
    Device device;
    Client client(device);
    client.ask("INST B;:ACQ:POIN 5;:FORM REAL;*ESE 3;*SRE 5;:INIT;*WAI");
    client.ask("INST A;:VOLT:RANG 1;:INST B;:OUTP ON;:INT:STAT \"fan\",1");
    EXPECT_EQ(client.ask("*RST;INST?;:ACQ:POIN?;:FORM?;:VOLT:RANG?;:OUTP?;*ESE?;*SRE?"),
              "A;1000;ASC;1.000000000E+01;0;3;5");
    EXPECT_EQ(errorOf(client, "FETC:WAV?"), "-230,\"Data corrupt or stale\"");
    EXPECT_EQ(client.ask("INT:STAT \"fan\",0;*RST;:INT:STAT? \"fan\""), "0");
    EXPECT_EQ(client.ask("INST SLOW;:INIT;*OPC;*RST;*ESR?"), "144");
}

TEST(InstrumentCommands, ShowTheStatus)
{
    Device device;
    Client client(device);
    EXPECT_EQ(client.ask("*ESR?;*ESR?"), "128;0");
    EXPECT_EQ(client.ask("*STB?;*STB?"), "0;16");
    EXPECT_EQ(client.ask("FOO;*STB?"), "4");
    EXPECT_EQ(client.ask("*ESE 32;*STB?;*SRE 32;*STB?"), "36;116");
    EXPECT_EQ(client.ask("*ESE?;*SRE?;*ESR?;*STB?"), "32;32;32;20");
    EXPECT_EQ(client.ask("SYST:ERR:COUN?;COUN?;NEXT?;COUN?"), "1;1;-113,\"Undefined header\";0");
    EXPECT_EQ(client.ask("FOO;*CLS;*ESR?;*STB?;:SYST:ERR?"), "0;16;0,\"No error\"");
    EXPECT_EQ(client.ask("*SRE 255;*SRE?"), "191");
}

TEST(InstrumentCommands, SwitchTheOutput)
{
    Device device;
    Client client(device);
    EXPECT_EQ(client.ask("OUTP?"), "0");
    EXPECT_EQ(client.ask("OUTP ON;:OUTP?;:OUTP OFF;OUTP?;:OUTPUT:STATE 1;STATE?;STATE 0;STATE?"),
              "1;0;1;0");
    EXPECT_EQ(client.ask("INT:TRIP?"), "\"\"");
    EXPECT_EQ(client.ask("INT:CAT?"), "\"cover_open\",\"fan\"");
    EXPECT_EQ(client.ask("OUTP ON;:INT:STAT \"cover_open\",ON;:OUTP?;:INT:TRIP?"), "0;\"cover\"");
    EXPECT_EQ(errorOf(client, "OUTP ON"), "-221,\"Settings conflict\"");
    EXPECT_EQ(client.ask("INTERLOCK:STATE \"fan\",OFF;STATE? \"fan\";TRIPPED?"),
              "0;\"cover\",\"heat\"");
    EXPECT_EQ(client.ask("INT:STAT 'cover_open',0;STAT \"fan\",1;TRIP?;:OUTP?;:OUTP 1;OUTP?"),
              "\"\";0;1");
    EXPECT_EQ(client.error(), NO_ERROR);
}

TEST(InstrumentClients, ShareTheDeviceAndNothingElse)
{
    Device device;
    Client first(device);
    Client second(device);
    first.ask("VOLT:RANG 1;:OUTP ON;:INT:STAT \"fan\",1;:ACQ:POIN 4;:FORM REAL;FOO;:INIT;*WAI");
    first.ask("INST B");
    EXPECT_EQ(second.ask("VOLT:RANG?;:OUTP?"), "1.000000000E+00;1");
    EXPECT_EQ(second.ask("INST?;:ACQ:POIN?;:FORM?;:SYST:ERR?"), "A;1000;ASC;0,\"No error\"");
    EXPECT_EQ(errorOf(second, "FETC:STAT?"), "-230,\"Data corrupt or stale\"");
    second.ask("*CLS");
    EXPECT_EQ(first.error(), "-113,\"Undefined header\"");
}

TEST(InstrumentClients, DoNotEndEachOthersAcquisitions)
{
    Device device;
    Client first(device);
    first.ask("INST SLOW;:INIT");
    {
        Client second(device);
        second.ask("INST SLOW;:INIT;:ABOR;:INIT;*RST;:INST SLOW;:INIT");
    }
    EXPECT_EQ(first.ask("FETC:STAT?"),
              "1.000000000E+00,1.000000000E+00,1.000000000E+00,1.000000000E+00");
}

TEST(InstrumentClients, OverflowTheirErrorQueue)
{
    Device device;
    Client client(device);
    client.ask("*ESR?");
    for (int i = 0; i < 40; ++i)
    {
        client.ask("FOO");
    }
    EXPECT_EQ(client.ask("SYST:ERR:COUN?;*ESR?"), "32;40");
    for (int i = 0; i < 31; ++i)
    {
        EXPECT_EQ(client.error(), "-113,\"Undefined header\"");
    }
    EXPECT_EQ(client.error(), "-350,\"Queue overflow\"");
    EXPECT_EQ(client.error(), NO_ERROR);
}

TEST(InstrumentClients, AreToldOfLinesThatAreTooLong)
{
    Device device;
    Client client(device);
    client.ask("*ESR?");
    EXPECT_EQ(client.send("*IDN?;" + std::string(100'000, ' ') + "\n*ESR?\n"), "8\n");
    EXPECT_EQ(client.error(), "-363,\"Input buffer overrun\"");
    EXPECT_EQ(client.ask(std::string(65'000, ' ') + "*TST?"), "0");
}

TEST(InstrumentClients, AreNotSentResponsesThatAreTooLong)
{
    Device device;
    Client client(device);
    client.ask("*ESR?;:ACQ:POIN MAX;:INIT");
    EXPECT_EQ(client.ask("FETC:WAV?;WAV?;:OUTP ON"), NOTHING);
    EXPECT_EQ(client.error(), "-430,\"Query DEADLOCKED\"");
    EXPECT_EQ(client.ask("*ESR?;:OUTP?"), "4;0");
    EXPECT_EQ(client.ask("FETC:WAV?").size(), 16'499'999U);
}

TEST(InstrumentClients, MaySendAnything)
{
    Device device;
    std::mt19937 generator(1);
    std::uniform_int_distribution<int> anyByte(0, 255);
    for (int i = 0; i < 50; ++i)
    {
        std::string bytes;
        for (int k = 0; k < 2000; ++k)
        {
            bytes += static_cast<char>(anyByte(generator));
        }
        converse(device.getInstrument(), device.getWork(), bytes);
    }
    EXPECT_EQ(converse(device.getInstrument(), device.getWork(), "*TST?"), "0\n");
}
