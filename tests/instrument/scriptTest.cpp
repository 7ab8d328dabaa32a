// Scripts, with the program as it was built:
// - the lines of a file are executed, and the responses printed; the last line needs no line feed
// - standard input is a script, too: a pipe, a file, nothing
// - errors that nobody has asked for are told on standard error, and make the exit status 1
// - a script that cannot be read is told, with exit status 1
// - a bad configuration is told, with exit status 2
// - SIGTERM and Ctrl-C end a script in order: what has been read is executed and answered
// - output that cannot be written is told, with exit status 1

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>

#include <fstream>

#include "InstrumentProgram.h"
#include "support/TemporaryFolder.h"

using test::Program;
using test::runInstrument;
using test::TemporaryFolder;

namespace
{

Program::Result runScript(const std::string& script)
{
    const TemporaryFolder folder;
    return runInstrument({"--script", folder.write("script", script)});
}

// Runs a shell command, in which $0 is the program.
Program::Result runShell(const std::string& command)
{
    return test::run({"sh", "-c", command, INSTRUMENT_PROGRAM});
}

}  // namespace

TEST(InstrumentScript, IsExecuted)
{
    const auto result = runScript(
        "*IDN?\n"
        "INST REF;:ACQ:POIN 10\r\n"
        "\n"
        "INIT;*OPC?;:FETC:STAT?\n"
        "SYST:ERR?");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(result.output,
              "generic_utils,Virtual Instrument,0,1.0.0\n"
              "1;2.500000000E+00,2.500000000E+00,2.500000000E+00,2.500000000E+00\n"
              "0,\"No error\"\n");
}

TEST(InstrumentScript, ComesFromStandardInput)
{
    EXPECT_EQ(runShell("printf '*TST?\\nINST?\\n' | \"$0\" --script -").output, "0\nCH1\n");
    EXPECT_EQ(runShell("printf '*TST?' | \"$0\" --script -").output, "0\n");

    const TemporaryFolder folder;
    const std::string path = folder.write("script", "*TST?\nINST?\n");
    EXPECT_EQ(runShell("\"$0\" --script - < '" + path + "'").output, "0\nCH1\n");

    const auto empty = runShell("\"$0\" --script - < /dev/null");
    EXPECT_EQ(empty.status, 0);
    EXPECT_EQ(empty.output, "");
}

TEST(InstrumentScript, IsExecutedHoweverLongItIs)
{
    std::string script;
    for (int i = 0; i < 5000; ++i)
    {
        script += "*ESE " + std::to_string(i % 256) + "\n";
    }
    EXPECT_EQ(runScript(script + "*ESE?\n").output, "135\n");
}

TEST(InstrumentScript, TellsTheErrorsThatItLeaves)
{
    const auto result = runScript("FOO\n*TST?\nVOLT:RANG 1e9\n");
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.output, "0\n");
    EXPECT_EQ(result.errors, "-113,\"Undefined header\"\n-222,\"Data out of range\"\n");
}

TEST(InstrumentScript, IsNotBlamedForErrorsThatItAskedFor)
{
    const auto result = runScript("FOO;:SYST:ERR?\n");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, "-113,\"Undefined header\"\n");
    EXPECT_EQ(result.errors, "");
}

TEST(InstrumentScript, ThatCannotBeReadIsTold)
{
    const TemporaryFolder folder;
    const auto missing = runInstrument({"--script", folder / "none"});
    EXPECT_EQ(missing.status, 1);
    EXPECT_EQ(missing.errors, "instrument: " + folder / "none" + ": No such file or directory\n");

    const auto directory = runInstrument({"--script", folder.getPath()});
    EXPECT_EQ(directory.status, 1);
    EXPECT_EQ(directory.errors, "instrument: " + folder.getPath() + ": Is a directory\n");
}

TEST(InstrumentScript, IsNotBegunWithABadConfiguration)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("bad.xml", "<instrument>\n  <pool size='0'/>\n");
    const auto result = runInstrument({"--config", path, "--script", "/dev/null"});
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.errors,
              "instrument: " + path + ":2:9: attribute 'size': 0 is not in 1 ... 64\n");

    const auto malformed =
        runInstrument({"--config", folder.write("malformed.xml", "<instrument>\n</instrumemt>\n"),
                       "--script", "/dev/null"});
    EXPECT_EQ(malformed.status, 2);
    EXPECT_EQ(malformed.errors,
              "instrument: " + folder / "malformed.xml" +
                  ":2:1: Tag Mismatch: End tag 'instrumemt' does not match begin tag "
                  "'instrument\n");

    const auto missing = runInstrument({"--config", folder / "none", "--script", "/dev/null"});
    EXPECT_EQ(missing.status, 2);
    EXPECT_EQ(missing.errors, "instrument: " + folder / "none" + ": No such file or directory\n");
}

class InstrumentScriptSignal : public testing::TestWithParam<int>
{
};

TEST_P(InstrumentScriptSignal, EndsTheScriptInOrder)
{
    const TemporaryFolder folder;
    const std::string pipe = folder / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    // Opened for reading and writing, the pipe has no end, as a terminal has none.
    Program program({"sh", "-c", "exec \"$0\" --script - <> \"$1\"", INSTRUMENT_PROGRAM, pipe});
    {
        std::ofstream input(pipe);
        input << "*TST?\nINST SLOW;:INIT;*OPC?\n*ESE?\n*IDN" << std::flush;
        EXPECT_EQ(program.readLine(), "0");
    }
    program.sendSignal(GetParam());
    const Program::Result result = program.finish();
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, "1\n0\n");
    EXPECT_EQ(result.errors, "");
}

INSTANTIATE_TEST_SUITE_P(All, InstrumentScriptSignal, testing::Values(SIGINT, SIGTERM));

TEST(InstrumentScript, TellsThatItsOutputCannotBeWritten)
{
    const auto result = runShell("printf '*TST?\\n*TST?\\n' | \"$0\" --script - > /dev/full");
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.errors, "instrument: standard output could not be written\n");
}
