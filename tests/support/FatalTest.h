#ifndef TESTS_SUPPORT_FATALTEST_H
#define TESTS_SUPPORT_FATALTEST_H

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "support/ConfigDirectory.h"

namespace test
{

/// A fixture for misuse that ends the process. The default strategy writes the report to the
/// standard log stream, where EXPECT_EXIT finds it.
///
///     EXPECT_EXIT(queue.write(nullptr, 0), testing::ExitedWithCode(1),
///                 test::isReport("ERROR: NullPtr", "generic/utils/src/queue/src/Queue",
///                                "write:\nNull pointer ..."));
class FatalTest : public testing::Test
{
  protected:
    FatalTest() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }

  private:
    const ConfigDirectory m_emptyConfiguration;
};

/// Matches a text that holds one whole report.
/// @param what severity and error name
/// @param source source file
/// @param functionAndWords function, ":\n" and the words to their end
inline testing::Matcher<const std::string&> isReport(const std::string& what,
                                                     const std::string& source,
                                                     const std::string& functionAndWords)
{
    return testing::AllOf(testing::HasSubstr("!" + what + " by "),
                          testing::HasSubstr(".\nGenerated from " + source + "/"),
                          testing::HasSubstr("/" + functionAndWords + "\n"));
}

}  // namespace test

#endif
