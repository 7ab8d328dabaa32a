// The first program of the README:
// - executes both commands of its macro, with traces on the log stream, and ends with 0

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/Program.h"

TEST(QuickStart, ExecutesAndTracesItsCommands)
{
    const auto result = test::run(
        {QUICK_START_PROGRAM},
        {.environment = {{"GENERIC_CONFIG_DIR", PROJECT_FOLDER "/examples/worker_pool"}}});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, "channel 1\nchannel 2\n");
    EXPECT_THAT(result.errors, testing::HasSubstr(": Executing command 'Measure'.\n"));
    EXPECT_THAT(result.errors, testing::Not(testing::HasSubstr("ERROR")));
}
