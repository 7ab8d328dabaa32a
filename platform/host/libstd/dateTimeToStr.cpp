#include <libstd/system.h>
#include <time.h>

namespace std
{
namespace
{

constexpr int firstYear = 1900;
constexpr int firstMonth = 1;

void appendTwoDigits(string& text, int value)
{
    text += static_cast<char>('0' + value / 10);
    text += static_cast<char>('0' + value % 10);
}

void appendYear(string& text, long year)
{
    const string digits = to_string(year);
    if (digits.size() < 4)
    {
        text.append(4 - digits.size(), '0');
    }
    text += digits;
}

}  // namespace

string dateTimeToStr(const long& secondsSinceEpoch)
{
    const time_t time = secondsSinceEpoch;
    tm local{};
    if (localtime_r(&time, &local) == nullptr)
    {
        return to_string(secondsSinceEpoch);
    }
    string text;
    text.reserve(sizeof "YYYY-MM-DD HH:MM:SS");
    appendYear(text, static_cast<long>(local.tm_year) + firstYear);
    text += '-';
    appendTwoDigits(text, local.tm_mon + firstMonth);
    text += '-';
    appendTwoDigits(text, local.tm_mday);
    text += ' ';
    appendTwoDigits(text, local.tm_hour);
    text += ':';
    appendTwoDigits(text, local.tm_min);
    text += ':';
    appendTwoDigits(text, local.tm_sec);
    return text;
}

}  // namespace std
