// The page about the older generation quotes code that is compiled: every piece is found in the file
// named before it.

#include <gtest/gtest.h>

#include "support/Quotations.h"
#include "support/TemporaryFolder.h"

TEST(OlderGenerationPage, QuotesCompiledCode)
{
    const auto quotations = test::findQuotations(PROJECT_FOLDER "/docs/older-generation.md");
    EXPECT_GE(quotations.size(), 5U);
    for (const test::Quotation& quotation : quotations)
    {
        const std::string name = test::findFileName(quotation.textBefore);
        const std::string source = test::readFile(PROJECT_FOLDER "/" + name);
        EXPECT_NE(source.find(quotation.code), std::string::npos) << name << " does not contain:\n"
                                                                  << quotation.code;
    }
}
