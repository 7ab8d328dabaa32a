// The options of the program:
// - --help tells them, with exit status 0
// - bad ones are told on standard error, with exit status 2
// - a port that is not to be had, and an address that is none, are told, with exit status 1

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "InstrumentProgram.h"
#include "support/TemporaryFolder.h"

using test::Program;
using test::runInstrument;
using testing::HasSubstr;
using testing::StartsWith;

TEST(InstrumentOptions, AreToldByHelp)
{
    const auto result = runInstrument({"--help"});
    EXPECT_EQ(result.status, 0);
    for (const char* const part :
         {"--config FILE", "--flags FILE", "--port NUMBER", "--listen ADDRESS", "--script FILE"})
    {
        EXPECT_THAT(result.output, HasSubstr(part));
    }
    EXPECT_EQ(result.errors, "");
}

class InstrumentBadOptions : public testing::TestWithParam<std::vector<std::string>>
{
};

TEST_P(InstrumentBadOptions, AreTold)
{
    const auto result = runInstrument(GetParam());
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.output, "");
    EXPECT_NE(result.errors, "");
}

INSTANTIATE_TEST_SUITE_P(
    All, InstrumentBadOptions,
    testing::Values(std::vector<std::string>{"--bogus"}, std::vector<std::string>{"file"},
                    std::vector<std::string>{"--port"}, std::vector<std::string>{"--port", "x"},
                    std::vector<std::string>{"--port", "65536"},
                    std::vector<std::string>{"--port", "-1"},
                    std::vector<std::string>{"--script", "-", "--port", "5025"},
                    std::vector<std::string>{"--flags", "/nowhere/generic_flags.txt"},
                    std::vector<std::string>{"--flags", "/dev/null"}));

TEST(InstrumentOptions, OfAnAddressThatIsNoneAreTold)
{
    const auto result = runInstrument({"--listen", "nowhere", "--port", "0"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.output, "");
    EXPECT_THAT(result.errors, StartsWith("instrument: "));
}

TEST(InstrumentOptions, OfAPortThatIsTakenAreTold)
{
    Program first(test::instrumentCommand({"--port", "0"}));
    const std::string line = first.readLine();
    const auto second = runInstrument({"--port", line.substr(line.rfind(':') + 1)});
    EXPECT_EQ(second.status, 1);
    EXPECT_EQ(second.output, "");
    EXPECT_THAT(second.errors, HasSubstr("Address already in use"));
}
