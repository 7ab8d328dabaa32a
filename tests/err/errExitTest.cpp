// The older errors while the process ends.
//
// - static destructors report to strategies and to the default
// - an error that ends the process while it ends already ends it at once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>

#include <utils/errNullPtrError.h>
#include <utils/errStandardOutStrategy.h>

namespace
{

using utils::err::Err_NullPtrError;

class ErrExit : public testing::Test
{
  protected:
    void SetUp() override { testing::FLAGS_gtest_death_test_style = "threadsafe"; }
};

template <bool isRecoverable>
struct ReportsAtExit
{
    ~ReportsAtExit()
    {
        Err_NullPtrError("file", 7, "function", "late").notifyStrategies(isRecoverable);
    }
};

TEST_F(ErrExit, StaticDestructorReportsToAStrategy)
{
    EXPECT_EXIT(
        {
            static const utils::err::StandardOutStrategy strategy;
            static const ReportsAtExit<false> reporter;
            std::exit(0);
        },
        testing::ExitedWithCode(0), "Invalid null pointer 'late' encountered\\.");
}

TEST_F(ErrExit, StaticDestructorReportsToTheDefault)
{
    EXPECT_EXIT(
        {
            static const ReportsAtExit<true> reporter;
            std::exit(0);
        },
        testing::ExitedWithCode(0), "Invalid null pointer 'late' encountered\\.");
}

TEST_F(ErrExit, FatalErrorOfAStaticDestructorEndsTheProcess)
{
    EXPECT_EXIT(
        {
            static const ReportsAtExit<false> reporter;
            Err_NullPtrError("file", 7, "function", "early").notifyStrategies(false);
        },
        testing::ExitedWithCode(1),
        testing::AllOf(testing::HasSubstr("Invalid null pointer 'early' encountered."),
                       testing::HasSubstr("Invalid null pointer 'late' encountered.")));
}

}  // namespace
