#include "support/FixedUserAndTime.h"

#include <atomic>
#include <string>

#include <libstd/system.h>

namespace
{
std::atomic<long> theLastTime{0};
}

namespace test
{

long lastTimeFormatted()
{
    return theLastTime;
}

}  // namespace test

namespace std
{

string dateTimeToStr(const long& secondsSinceEpoch)
{
    theLastTime = secondsSinceEpoch;
    return "2001-02-03 04:05:06";
}

string getUserName()
{
    return "tester";
}

}  // namespace std
