#ifndef TESTS_ERR_HEADER_H
#define TESTS_ERR_HEADER_H

#include <regex>
#include <string>

namespace test
{

/// Replaces the time of every header, which is that of the test's run, with "TIME".
inline std::string withoutTime(const std::string& text)
{
    static const std::regex time(
        " on [A-Z][a-z]{2} [A-Z][a-z]{2} [ 0-9][0-9] [0-9]{2}:[0-9]{2}:[0-9]{2} [0-9]{4}\\.\n");
    return std::regex_replace(text, time, " on TIME.\n");
}

}  // namespace test

#endif
