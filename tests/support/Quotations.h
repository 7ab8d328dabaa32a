#ifndef TESTS_SUPPORT_QUOTATIONS_H
#define TESTS_SUPPORT_QUOTATIONS_H

#include <sstream>
#include <string>
#include <vector>

#include "support/TemporaryFolder.h"

namespace test
{

/// A piece of code that a text quotes.
struct Quotation
{
    std::string textBefore;  ///< the last line before the code that is not empty
    std::string code;
};

/// All pieces of C++ code in a text.
inline std::vector<Quotation> findQuotations(const std::string& path)
{
    std::vector<Quotation> quotations;
    std::istringstream text(readFile(path));
    std::string before;
    bool isInside = false;
    for (std::string line; std::getline(text, line);)
    {
        if (line == "```cpp")
        {
            isInside = true;
            quotations.push_back({before, ""});
        }
        else if (line == "```")
        {
            isInside = false;
        }
        else if (isInside)
        {
            quotations.back().code += line + "\n";
        }
        else if (!line.empty())
        {
            before = line;
        }
    }
    return quotations;
}

/// The first word between backquotes.
inline std::string findFileName(const std::string& line)
{
    const std::size_t begin = line.find('`') + 1;
    return line.substr(begin, line.find('`', begin) - begin);
}

}  // namespace test

#endif
