// Calendar times and their texts.
//
// - the time is kept, its text is that of ctime() without the line feed
// - days and hours are padded as ctime() pads them
// - the text is local time, and follows a change of the time zone
// - times before 1970 and years of five digits have texts
// - a time that the calendar cannot represent fails with std::logic_error
// - threads make times at once

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <limits>
#include <stdexcept>
#include <string>
#include <thread>
#include <type_traits>

#include <utils/llsCalendarTime.h>

namespace
{

using utils::Lls_CalendarTime;

class LlsCalendarTime : public testing::Test
{
  protected:
    void SetUp() override { setenv("TZ", "UTC0", 1); }
};

// What the C library writes.
std::string ctimeText(long calendarTime)
{
    const std::time_t time = calendarTime;
    std::string text = std::ctime(&time);
    text.pop_back();
    return text;
}

TEST_F(LlsCalendarTime, KeepsTheTime)
{
    EXPECT_EQ(Lls_CalendarTime(1234567890).getCalendarTime(), 1234567890);
}

TEST_F(LlsCalendarTime, TextOfTheEpoch)
{
    EXPECT_EQ(Lls_CalendarTime(0).getStr(), "Thu Jan  1 00:00:00 1970");
}

TEST_F(LlsCalendarTime, TextOfADayOfTwoDigits)
{
    EXPECT_EQ(Lls_CalendarTime(1234567890).getStr(), "Fri Feb 13 23:31:30 2009");
}

TEST_F(LlsCalendarTime, TextBeforeTheEpoch)
{
    EXPECT_EQ(Lls_CalendarTime(-1).getStr(), "Wed Dec 31 23:59:59 1969");
}

TEST_F(LlsCalendarTime, TextOfAYearOfFiveDigits)
{
    EXPECT_EQ(Lls_CalendarTime(253402300800).getStr(), "Sat Jan  1 00:00:00 10000");
}

TEST_F(LlsCalendarTime, TextsAreThoseOfCtime)
{
    constexpr long DAY_AND_A_BIT = 90061;
    constexpr long YEARS = 366L * 24 * 60 * 60 * 9000;
    for (long time = -YEARS; time < YEARS; time += DAY_AND_A_BIT * 1009)
    {
        ASSERT_EQ(Lls_CalendarTime(time).getStr(), ctimeText(time)) << time;
    }
}

TEST_F(LlsCalendarTime, TextIsLocalTime)
{
    setenv("TZ", "XXX-5:30", 1);
    EXPECT_EQ(Lls_CalendarTime(0).getStr(), "Thu Jan  1 05:30:00 1970");
}

TEST_F(LlsCalendarTime, TextFollowsAChangeOfTheTimeZone)
{
    const Lls_CalendarTime before(0);
    setenv("TZ", "XXX1", 1);
    EXPECT_EQ(Lls_CalendarTime(0).getStr(), "Wed Dec 31 23:00:00 1969");
    EXPECT_EQ(before.getStr(), "Thu Jan  1 00:00:00 1970");
}

TEST_F(LlsCalendarTime, UnrepresentableTimeFails)
{
    EXPECT_THROW(Lls_CalendarTime{std::numeric_limits<long>::max()}, std::logic_error);
    EXPECT_THROW(Lls_CalendarTime{std::numeric_limits<long>::min()}, std::logic_error);
}

// The last second whose year fits into an int, and the first whose year does not.
TEST_F(LlsCalendarTime, LimitIsThatOfTheYear)
{
    constexpr long LAST = 67767976233532799;
    EXPECT_EQ(Lls_CalendarTime(LAST).getStr(), "Tue Dec 31 23:59:59 2147483647");
    EXPECT_THROW(Lls_CalendarTime(LAST + 1), std::logic_error);
}

// With ctime() itself, ThreadSanitizer reports its shared buffer.
TEST_F(LlsCalendarTime, ThreadsMakeTimesAtOnce)
{
    const auto makeTimes = [](long time, const std::string& text)
    {
        for (int i = 0; i < 1000; ++i)
        {
            ASSERT_EQ(Lls_CalendarTime(time).getStr(), text);
        }
    };
    std::thread other(makeTimes, 0, "Thu Jan  1 00:00:00 1970");
    makeTimes(1234567890, "Fri Feb 13 23:31:30 2009");
    other.join();
}

TEST_F(LlsCalendarTime, IsDestroyedThroughABasePointer)
{
    static_assert(std::has_virtual_destructor_v<Lls_CalendarTime>);
}

}  // namespace
