// The texts quote the examples as they are:
// - the README's first program is examples/quick_start/main.cpp
// - every piece of code in the tutorial is found in the worker pool, in the file named before it

#include <gtest/gtest.h>

#include "support/Quotations.h"
#include "support/TemporaryFolder.h"

using test::Quotation;
using test::readFile;

TEST(Quotation, TheReadmesFirstProgramIsTheQuickStart)
{
    for (const Quotation& quotation : test::findQuotations(PROJECT_FOLDER "/README.md"))
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
    const auto quotations = test::findQuotations(PROJECT_FOLDER "/docs/tutorial.md");
    EXPECT_GE(quotations.size(), 5u);
    for (const Quotation& quotation : quotations)
    {
        const std::string name = test::findFileName(quotation.textBefore);
        const std::string source = readFile(PROJECT_FOLDER "/examples/worker_pool/" + name);
        EXPECT_NE(source.find(quotation.code), std::string::npos) << name << " does not contain:\n"
                                                                  << quotation.code;
    }
}
