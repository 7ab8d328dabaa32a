// The texts quote the examples as they are:
// - the README's first program is examples/quick_start/main.cpp
// - every piece of code in the tutorial is found in the worker pool, in the file named before it

#include <gtest/gtest.h>

#include <sstream>

#include "TemporaryFolder.h"

using test::readFile;

namespace
{

struct Quotation
{
    std::string textBefore;  ///< the last line before the code that is not empty
    std::string code;
};

// All pieces of C++ code in a text.
std::vector<Quotation> findQuotations(const std::string& path)
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

// The first word between backquotes.
std::string findFileName(const std::string& line)
{
    const std::size_t begin = line.find('`') + 1;
    return line.substr(begin, line.find('`', begin) - begin);
}

}  // namespace

TEST(Quotation, TheReadmesFirstProgramIsTheQuickStart)
{
    for (const Quotation& quotation : findQuotations(PROJECT_FOLDER "/README.md"))
    {
        if (quotation.textBefore == "## A first program")
        {
            EXPECT_EQ(quotation.code, readFile(PROJECT_FOLDER "/examples/quick_start/main.cpp"));
            return;
        }
    }
    FAIL() << "the README has no first program";
}

TEST(Quotation, TheTutorialShowsTheWorkerPoolAsItIs)
{
    const auto quotations = findQuotations(PROJECT_FOLDER "/docs/tutorial.md");
    EXPECT_GE(quotations.size(), 5u);
    for (const Quotation& quotation : quotations)
    {
        const std::string name = findFileName(quotation.textBefore);
        const std::string source = readFile(PROJECT_FOLDER "/examples/worker_pool/" + name);
        EXPECT_NE(source.find(quotation.code), std::string::npos) << name << " does not contain:\n"
                                                                  << quotation.code;
    }
}
