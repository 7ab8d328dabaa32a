// The debug trace:
// - a record is one line on standard error: its kind, its location and its words, of any length;
// - records of several threads stay whole;
// - a record may be written while another is being prepared on the same thread;
// - the level is the number in GENERIC_DBG_LEVEL, 0 when that is not a number.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <libdbg/libdbg.h>
#include <stdlib.h>
#include <unistd.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

namespace
{

using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

void prepare(const char* file, int line)
{
    _dbg_lock(1);
    _dbg_type = 2;
    _dbg_filename = file;
    _dbg_line = line;
    _dbg_function = "function";
}

TEST(DebugTrace, WritesOneLine)
{
    CaptureStderr();
    prepare("folder/file", 19);
    _dbg_trace("Constructing aspect Name (%s)", "name");
    EXPECT_EQ(GetCapturedStderr(),
              "[2] folder/file:19 function: Constructing aspect Name (name)\n");
}

TEST(DebugTrace, WritesWithoutLocation)
{
    CaptureStderr();
    _dbg_lock(1);
    _dbg_filename = nullptr;
    _dbg_function = nullptr;
    _dbg_line = 0;
    _dbg_type = 0;
    _dbg_trace("%s", "");
    EXPECT_EQ(GetCapturedStderr(), "[0] ?:0 ?: \n");
}

TEST(DebugTrace, WritesWordsOfAnyLength)
{
    const std::string words(100'000, 'w');
    CaptureStderr();
    prepare("file", 1);
    _dbg_trace("%s", words.c_str());
    EXPECT_EQ(GetCapturedStderr(), "[2] file:1 function: " + words + "\n");
}

TEST(DebugTrace, KeepsTheRecordsOfSeveralThreadsWhole)
{
    CaptureStderr();
    std::vector<std::jthread> threads;
    for (int i = 0; i < 4; ++i)
    {
        threads.emplace_back(
            []
            {
                for (int round = 0; round < 100; ++round)
                {
                    prepare("file", 1);
                    _dbg_trace("%s %s", "some", "words");
                }
            });
    }
    threads.clear();
    std::istringstream lines(GetCapturedStderr());
    std::string line;
    int count = 0;
    for (; std::getline(lines, line); ++count)
    {
        ASSERT_EQ(line, "[2] file:1 function: some words");
    }
    EXPECT_EQ(count, 400);
}

const char* describe()
{
    prepare("inner", 2);
    _dbg_trace("inner");
    return "outer";
}

TEST(DebugTrace, MayBeNested)
{
    CaptureStderr();
    prepare("outer", 1);
    const char* const words = describe();
    prepare("outer", 1);
    _dbg_trace("%s", words);
    _dbg_trace("%s", "again");
    EXPECT_EQ(GetCapturedStderr(),
              "[2] inner:2 function: inner\n"
              "[2] outer:1 function: outer\n"
              "[2] outer:1 function: again\n");
    std::thread([] { prepare("other", 1), _dbg_trace("not locked out"); }).join();
}

/// The level in a new process whose environment has this text.
void expectLevel(const char* text, int level)
{
    setenv("GENERIC_DBG_LEVEL", text, 1);
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(_exit(_dbg_level), testing::ExitedWithCode(level), "") << text;
}

TEST(DebugLevelDeathTest, IsTheNumberInTheEnvironment)
{
    expectLevel("3", 3);
    expectLevel("0", 0);
}

TEST(DebugLevelDeathTest, IsZeroForWhatIsNoNumber)
{
    expectLevel("", 0);
    expectLevel("much", 0);
    expectLevel("3x", 0);
    expectLevel("99999999999999999999", 0);
}

TEST(DebugLevel, IsZeroWithoutTheEnvironment)
{
    EXPECT_EQ(_dbg_level, 0);
}

}  // namespace
