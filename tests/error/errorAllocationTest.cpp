// Reports when memory runs out.
//
// - a report is delivered whole, or std::bad_alloc reaches who makes it
// - the line in the log is whole, or there is none
// - the text of an older error is whole, or asking for it fails

#include <gtest/gtest.h>

#include <array>
#include <iostream>
#include <new>
#include <streambuf>
#include <string>
#include <string_view>

#include <utils/errNullPtrError.h>
#include <utils/error/Error.h>
#include <utils/flag/Flag.h>

#include "support/AllocationStandIn.h"
#include "support/ConfigDirectory.h"

namespace
{

using utils::error::Error;

const std::string LONG_NAME(600, 'n');

// More than an operation under test asks for.
constexpr long NUM_ALLOCATIONS = 60;

/// The log stream's text, in memory that is there already.
class LogInPlace : public std::streambuf
{
  public:
    LogInPlace() : m_original(std::clog.rdbuf(this)) { clear(); }
    ~LogInPlace() override { std::clog.rdbuf(m_original); }

    LogInPlace(const LogInPlace&) = delete;
    LogInPlace& operator=(const LogInPlace&) = delete;

    void clear() { setp(m_text.data(), m_text.data() + m_text.size()); }
    std::string_view getText() const
    {
        return {pbase(), static_cast<std::size_t>(pptr() - pbase())};
    }

  private:
    std::array<char, 4096> m_text{};
    std::streambuf* m_original;
};

/// Notes how long the last report was, without asking for memory.
class Measuring : public utils::strategy::StrategyT<Error>
{
  public:
    Measuring() : StrategyT(Error::STRATEGY_TYPE, "measuring", false) {}

    bool isInterested(const Error&) override { return true; }
    void processClientObject(Error& error) override { m_size = error.getStream().view().size(); }

    std::size_t m_size = 0;
};

void reportAMiss()
{
    utils::flag::Flag::getFlagPtr(LONG_NAME);
}

/// Calls function() with only so many allocations.
/// @return whether they were enough
template <typename Function>
bool isDoneWith(long numToSucceed, Function function)
{
    test::setAllocationFailing(numToSucceed);
    try
    {
        function();
        test::setAllocationFailing(-1);
        return true;
    }
    catch (const std::bad_alloc&)
    {
        test::setAllocationFailing(-1);
        return false;
    }
}

// A stream by itself notes that memory has run out, and goes on with half of the text.
TEST(ErrorAllocation, ReportIsWholeOrFails)
{
    const test::ConfigDirectory emptyConfiguration;
    Measuring strategy;
    reportAMiss();
    const std::size_t wholeSize = strategy.m_size;
    ASSERT_GT(wholeSize, LONG_NAME.size());

    EXPECT_FALSE(isDoneWith(0, reportAMiss));
    for (long numToSucceed = 0; numToSucceed < NUM_ALLOCATIONS; ++numToSucceed)
    {
        strategy.m_size = 0;
        const bool isDone = isDoneWith(numToSucceed, reportAMiss);
        EXPECT_EQ(strategy.m_size, isDone ? wholeSize : 0U) << numToSucceed;
    }
    EXPECT_TRUE(isDoneWith(NUM_ALLOCATIONS, reportAMiss));
}

TEST(ErrorAllocation, LineInTheLogIsWholeOrThereIsNone)
{
    const test::ConfigDirectory emptyConfiguration;
    LogInPlace log;
    reportAMiss();
    const std::size_t wholeSize = log.getText().size();
    ASSERT_GT(wholeSize, LONG_NAME.size());

    for (long numToSucceed = 0; numToSucceed < NUM_ALLOCATIONS; ++numToSucceed)
    {
        log.clear();
        const bool isDone = isDoneWith(numToSucceed, reportAMiss);
        EXPECT_EQ(log.getText().size(), isDone ? wholeSize : 0U) << numToSucceed;
    }
    EXPECT_TRUE(isDoneWith(NUM_ALLOCATIONS, reportAMiss));
}

TEST(ErrorAllocation, TextOfAnOlderErrorIsWholeOrAskingFails)
{
    const utils::err::Err_NullPtrError error("file", 1, "function", LONG_NAME.c_str());
    const std::size_t wholeSize = error.getString().size();
    std::size_t size = 0;
    const auto ask = [&] { size = error.getString().size(); };
    EXPECT_FALSE(isDoneWith(0, ask));
    for (long numToSucceed = 0; numToSucceed < NUM_ALLOCATIONS; ++numToSucceed)
    {
        size = 0;
        const bool isDone = isDoneWith(numToSucceed, ask);
        EXPECT_EQ(size, isDone ? wholeSize : 0U) << numToSucceed;
    }
    EXPECT_TRUE(isDoneWith(NUM_ALLOCATIONS, ask));
}

}  // namespace
