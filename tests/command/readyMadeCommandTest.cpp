// The ready-made commands:
// - NoOpCommand and SleepCommand have fixed names, return 0 and do not stop a macro;
// - SleepCommand hands its time to usleep as it stands, a negative one converted to unsigned;
// - it returns 0 also when usleep fails.

#include <errno.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <sstream>

#include "utils/command/NoOpCommand.h"
#include "utils/command/SleepCommand.h"

namespace
{

int numSleeps = 0;
useconds_t lastSleep = 0;
int sleepResult = 0;

}  // namespace

// Stands in for the system's.
extern "C" __attribute__((visibility("default"))) int usleep(useconds_t microseconds)
{
    ++numSleeps;
    lastSleep = microseconds;
    errno = EINVAL;
    return sleepResult;
}

namespace
{

using utils::command::NoOpCommand;
using utils::command::SleepCommand;

TEST(NoOpCommand, HasItsNameAndSucceeds)
{
    NoOpCommand command;
    EXPECT_EQ(command.getName(), "NoOpCommand");
    EXPECT_EQ(command.execute(), 0);
    EXPECT_FALSE(command.stopMacro());
}

TEST(NoOpCommand, WritesItsName)
{
    const NoOpCommand command;
    std::ostringstream os;
    os << command;
    EXPECT_EQ(os.str(), "Name = 'NoOpCommand'\n");
}

TEST(SleepCommand, HasItsNameAndDoesNotStopAMacro)
{
    const SleepCommand command(1);
    EXPECT_EQ(command.getName(), "Sleep");
    EXPECT_FALSE(command.stopMacro());
}

TEST(SleepCommand, SleepsOnlyWhenExecuted)
{
    SleepCommand command(1);
    command.reset();
    EXPECT_EQ(numSleeps, 0);
    EXPECT_EQ(command.execute(), 0);
    EXPECT_EQ(numSleeps, 1);
}

TEST(SleepCommand, HandsItsTimeToTheSystemInMicroseconds)
{
    EXPECT_EQ(SleepCommand(12345).execute(), 0);
    EXPECT_EQ(lastSleep, 12345U);
}

TEST(SleepCommand, HandsZeroOn)
{
    EXPECT_EQ(SleepCommand(0).execute(), 0);
    EXPECT_EQ(numSleeps, 1);
    EXPECT_EQ(lastSleep, 0U);
}

TEST(SleepCommand, HandsANegativeTimeOnAsUnsigned)
{
    EXPECT_EQ(SleepCommand(-1).execute(), 0);
    EXPECT_EQ(lastSleep, 4294967295U);
}

TEST(SleepCommand, SucceedsWhateverTheSystemReports)
{
    sleepResult = -1;
    EXPECT_EQ(SleepCommand(5).execute(), 0);
    EXPECT_EQ(numSleeps, 1);
}

}  // namespace
