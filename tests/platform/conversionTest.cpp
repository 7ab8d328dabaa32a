// Conversions, date, user and directory:
// - strToValue reads numbers and bool as a stream does, and a string as a whole; what cannot be
//   converted gives the fallback;
// - dateTimeToStr writes local time, follows the time zone, and writes a time outside the calendar
//   as a number;
// - getUserName gives the login name of the effective user, or its number, from any thread;
// - an interval is timed from its beginning to its end, while that is wanted;
// - the configuration directory comes from the environment, or is /etc/generic.

#include <gtest/gtest.h>
#include <libdir/DirectoryPaths.h>
#include <libstd/libstd.h>
#include <pwd.h>
#include <stdlib.h>
#include <time.h>
#include <unistd.h>

#include <chrono>
#include <limits>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace
{

TEST(StrToValue, ReadsNumbers)
{
    EXPECT_EQ(std::strToValue<int>("-42"), -42);
    EXPECT_EQ(std::strToValue<long>("-9223372036854775808"), std::numeric_limits<long>::min());
    EXPECT_EQ(std::strToValue<unsigned short>("65535"), 65'535);
    EXPECT_EQ(std::strToValue<unsigned int>("4294967295"), 4'294'967'295U);
    EXPECT_EQ(std::strToValue<unsigned long>("18446744073709551615"), 18'446'744'073'709'551'615UL);
    EXPECT_EQ(std::strToValue<float>("2.5e2"), 250.0F);
}

TEST(StrToValue, SkipsWhiteSpaceAndStopsAtWhatIsNoNumber)
{
    EXPECT_EQ(std::strToValue<int>(" \t\n42abc"), 42);
    EXPECT_EQ(std::strToValue<int>("+7 8"), 7);
    EXPECT_EQ(std::strToValue<unsigned long>("12.5"), 12UL);
    EXPECT_EQ(std::strToValue<int>("0x10"), 0);
}

TEST(StrToValue, WrapsANegativeUnsignedNumber)
{
    EXPECT_EQ(std::strToValue<unsigned long>("-1"), std::numeric_limits<unsigned long>::max());
}

TEST(StrToValue, GivesTheFallbackForWhatIsNoNumber)
{
    EXPECT_EQ(std::strToValue<int>("abc", 5), 5);
    EXPECT_EQ(std::strToValue<int>("", 5), 5);
    EXPECT_EQ(std::strToValue<int>("  ", 5), 5);
    EXPECT_EQ(std::strToValue<float>("e", 1.5F), 1.5F);
    EXPECT_EQ(std::strToValue<int>("abc"), 0);
}

TEST(StrToValue, GivesTheFallbackForOverflow)
{
    EXPECT_EQ(std::strToValue<int>("2147483648", 5), 5);
    EXPECT_EQ(std::strToValue<unsigned short>("65536", 5), 5);
    EXPECT_EQ(std::strToValue<unsigned int>("4294967296", 5), 5U);
    EXPECT_EQ(std::strToValue<long>("9223372036854775808", 5), 5);
    EXPECT_EQ(std::strToValue<unsigned long>("18446744073709551616", 5), 5UL);
    EXPECT_EQ(std::strToValue<float>("1e99", 1.5F), 1.5F);
}

TEST(StrToValue, ReadsABoolAsZeroOrOne)
{
    EXPECT_TRUE(std::strToValue<bool>("1"));
    EXPECT_FALSE(std::strToValue<bool>("0", true));
    EXPECT_TRUE(std::strToValue<bool>("true", true));
    EXPECT_FALSE(std::strToValue<bool>("true", false));
    EXPECT_FALSE(std::strToValue<bool>("2", false));
}

TEST(StrToValue, TakesAStringAsAWhole)
{
    EXPECT_EQ(std::strToValue<std::string>(" two words "), " two words ");
    EXPECT_EQ(std::strToValue<std::string>("", "fallback"), "fallback");
    EXPECT_EQ(std::strToValue<std::string>(" ", "fallback"), " ");
}

std::string dateTimeIn(const char* zone, long time)
{
    setenv("TZ", zone, 1);
    tzset();
    return std::dateTimeToStr(time);
}

TEST(DateTimeToStr, WritesEachFieldWithLeadingZeros)
{
    EXPECT_EQ(dateTimeIn("UTC0", 0), "1970-01-01 00:00:00");
    EXPECT_EQ(dateTimeIn("UTC0", 1'709'209'023), "2024-02-29 12:17:03");
    EXPECT_EQ(dateTimeIn("UTC0", 4'102'444'799), "2099-12-31 23:59:59");
}

TEST(DateTimeToStr, FollowsTheTimeZone)
{
    EXPECT_EQ(dateTimeIn("UTC0", 86'400), "1970-01-02 00:00:00");
    EXPECT_EQ(dateTimeIn("AHEAD-5:30", 86'400), "1970-01-02 05:30:00");
    EXPECT_EQ(dateTimeIn("BEHIND8", 86'400), "1970-01-01 16:00:00");
    EXPECT_EQ(dateTimeIn("UTC0", 86'400), "1970-01-02 00:00:00");
}

TEST(DateTimeToStr, WritesTimesBefore1970AndFarAway)
{
    EXPECT_EQ(dateTimeIn("UTC0", -1), "1969-12-31 23:59:59");
    EXPECT_EQ(dateTimeIn("UTC0", -62'135'596'800), "0001-01-01 00:00:00");
    EXPECT_EQ(dateTimeIn("UTC0", 253'402'300'800), "10000-01-01 00:00:00");
}

TEST(DateTimeToStr, WritesANumberForATimeOutsideTheCalendar)
{
    EXPECT_EQ(dateTimeIn("UTC0", std::numeric_limits<long>::max()), "9223372036854775807");
    EXPECT_EQ(dateTimeIn("UTC0", std::numeric_limits<long>::min()), "-9223372036854775808");
}

TEST(GetUserName, IsTheLoginNameOfTheEffectiveUser)
{
    const passwd* const entry = getpwuid(geteuid());
    EXPECT_EQ(std::getUserName(), entry != nullptr ? entry->pw_name : std::to_string(geteuid()));
}

TEST(GetUserName, IsTheSameOnAllThreads)
{
    const std::string expected = std::getUserName();
    std::vector<std::jthread> threads;
    for (int i = 0; i < 4; ++i)
    {
        threads.emplace_back(
            [&]
            {
                for (int round = 0; round < 500; ++round)
                {
                    ASSERT_EQ(std::getUserName(), expected);
                }
            });
    }
}

/// Ends with status 0 when the name follows a change of the user, as far as the process may change it.
[[noreturn]] void exitWithTheNameOfAUserWithoutName()
{
    constexpr uid_t user = 54'321;
    const std::string before = std::getUserName();
    const bool hasChanged = seteuid(user) == 0;
    const bool isRight = std::getUserName() == (hasChanged ? "54321" : before);
    _exit(isRight ? 0 : 1);
}

TEST(GetUserNameDeathTest, IsTheNumberOfAUserWithoutName)
{
    EXPECT_EXIT(exitWithTheNameOfAUserWithoutName(), testing::ExitedWithCode(0), "");
}

using generic::timing::IntervalAndDuration;

void takeSomeTime()
{
    const auto begin = std::chrono::steady_clock::now();
    while (std::chrono::steady_clock::now() == begin)
    {
    }
}

void measure(IntervalAndDuration& interval)
{
    interval.begin();
    takeSomeTime();
    interval.end();
}

TEST(IntervalAndDuration, TimesFromBeginToEnd)
{
    IntervalAndDuration::setMeasuring(true);
    IntervalAndDuration interval;
    EXPECT_EQ(interval.getDurationNs(), 0);
    measure(interval);
    EXPECT_GT(interval.getDurationNs(), 0);
    EXPECT_LT(interval.getDurationNs(), 20'000'000'000);
}

TEST(IntervalAndDuration, IsNotTimedUnlessWanted)
{
    IntervalAndDuration interval;
    measure(interval);
    EXPECT_EQ(interval.getDurationNs(), 0);
}

TEST(IntervalAndDuration, KeepsTheLatestDurationWhenNoLongerTimed)
{
    IntervalAndDuration::setMeasuring(true);
    IntervalAndDuration interval;
    measure(interval);
    const int64_t durationNs = interval.getDurationNs();

    IntervalAndDuration::setMeasuring(false);
    measure(interval);
    EXPECT_EQ(interval.getDurationNs(), durationNs);
}

TEST(IntervalAndDuration, EndsUntimedWhenItBeganSo)
{
    IntervalAndDuration interval;
    interval.begin();
    IntervalAndDuration::setMeasuring(true);
    interval.end();
    EXPECT_EQ(interval.getDurationNs(), 0);
}

TEST(IntervalAndDuration, MayBeUsedBySeveralThreads)
{
    IntervalAndDuration::setMeasuring(true);
    IntervalAndDuration interval;
    std::vector<std::jthread> threads;
    for (int i = 0; i < 4; ++i)
    {
        threads.emplace_back(
            [&]
            {
                for (int round = 0; round < 1'000; ++round)
                {
                    interval.begin();
                    interval.end();
                    ASSERT_GE(interval.getDurationNs(), 0);
                }
            });
    }
}

std::string configurationDirectory()
{
    const std::unique_ptr<libdir::DirectoryPaths> paths(libdir::DirectoryPathsFactory::create());
    return paths->getGenericConfigurationDirectory();
}

TEST(DirectoryPaths, ComeFromTheEnvironment)
{
    setenv("GENERIC_CONFIG_DIR", "/some/where", 1);
    EXPECT_EQ(configurationDirectory(), "/some/where");
}

TEST(DirectoryPaths, HaveADefault)
{
    unsetenv("GENERIC_CONFIG_DIR");
    EXPECT_EQ(configurationDirectory(), "/etc/generic");
}

}  // namespace
