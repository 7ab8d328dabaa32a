// Errors while the process ends.
//
// - static destructors may use every constant, the default strategy and strategies of their own
// - so may a thread that runs past main's end

#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <latch>
#include <string>
#include <thread>

#include <utils/error/Error.h>
#include <utils/error/StandardOutStrategy.h>

namespace
{

using testing::ExitedWithCode;
using utils::error::Error;

template <typename Action>
struct AtDestruction
{
    explicit AtDestruction(Action action) : m_action(action) {}
    ~AtDestruction() { m_action(); }

    Action m_action;
};

void report()
{
    Error error("file", 1, "f", Error::UNKNOWN_EXCEPTION, Error::ERROR);
    error.getStream() << "words";
    utils::strategy::StrategyT<Error>::invokeStrategies(Error::STRATEGY_TYPE, error);
}

constexpr const char* REPORT =
    "^!ERROR: UnknownException by tester on 2001-02-03 04:05:06\\.\n"
    "Generated from file/1/f:\n"
    "words\n$";

class ErrorExit : public testing::Test
{
  protected:
    void SetUp() override { testing::FLAGS_gtest_death_test_style = "threadsafe"; }
};

// "UnknownException" does not fit into a short string: destroyed, it would be read after free.
TEST_F(ErrorExit, StaticDestructorUsesTheConstants)
{
    EXPECT_EXIT(
        {
            static const AtDestruction user(
                []
                {
                    std::cerr << Error::STRATEGY_TYPE << ',' << Error::ALREADY_EXISTS << ','
                              << Error::DOES_NOT_EXIST << ',' << Error::INVALID_ARGUMENT << ','
                              << Error::NOT_IMPLEMENTED << ',' << Error::NULL_PTR << ','
                              << Error::UNKNOWN_EXCEPTION;
                });
            std::exit(0);
        },
        ExitedWithCode(0),
        "^Error,AlreadyExists,DoesNotExist,InvalidArgument,NotImplemented,NullPtr,"
        "UnknownException$");
}

TEST_F(ErrorExit, StaticDestructorReportsByTheDefaultStrategy)
{
    EXPECT_EXIT(
        {
            static const AtDestruction user(report);
            report();
            std::clog << "--\n";
            std::exit(0);
        },
        ExitedWithCode(0),
        "words\n--\n"
        "!ERROR: UnknownException by tester on 2001-02-03 04:05:06\\.\n"
        "Generated from file/1/f:\n"
        "words\n$");
}

TEST_F(ErrorExit, StaticDestructorReportsByAStrategyOfItsOwn)
{
    EXPECT_EXIT(
        {
            static const AtDestruction user(
                []
                {
                    const utils::error::StandardOutStrategy strategy;
                    report();
                });
            std::exit(0);
        },
        ExitedWithCode(0), REPORT);
}

TEST_F(ErrorExit, StaticStrategyLivesAndGoes)
{
    EXPECT_EXIT(
        {
            static const AtDestruction last(report);
            static const utils::error::StandardOutStrategy strategy;
            std::exit(0);
        },
        ExitedWithCode(0), REPORT);
}

TEST_F(ErrorExit, ThreadRunningPastMainsEndReports)
{
    EXPECT_EXIT(
        {
            static std::latch teardownBegan(1);
            static std::latch threadIsDone(1);
            static const AtDestruction teardown(
                []
                {
                    teardownBegan.count_down();
                    threadIsDone.wait();
                });
            std::thread(
                []
                {
                    teardownBegan.wait();
                    report();
                    threadIsDone.count_down();
                })
                .detach();
            std::exit(0);
        },
        ExitedWithCode(0), REPORT);
}

}  // namespace
