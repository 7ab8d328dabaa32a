#ifndef TESTS_SUPPORT_HEADER_H
#define TESTS_SUPPORT_HEADER_H

#include <cstddef>
#include <string>

namespace test
{

/// Cuts the text behind its second line: what follows the header of an error or the full header of
/// a trace.
inline std::string behindTwoLines(const std::string& text)
{
    const std::size_t first = text.find('\n');
    const std::size_t second = first == std::string::npos ? first : text.find('\n', first + 1);
    return second == std::string::npos ? std::string() : text.substr(second + 1);
}

/// What the second line of such a header names, "file/line/function"; empty without such a line.
inline std::string generatedFrom(const std::string& text)
{
    const std::string opening = "\nGenerated from ";
    const std::string closing = ":\n";
    const std::size_t found = text.find(opening);
    if (found == std::string::npos)
    {
        return {};
    }
    const std::size_t begin = found + opening.size();
    const std::size_t end = text.find(closing, begin);
    return end == std::string::npos ? std::string() : text.substr(begin, end - begin);
}

}  // namespace test

#endif
