// Delivery of the older errors.
//
// - without a strategy: the default sets the last error, writes to std::clog, and ends the process
//   unless the error is recoverable; through the error's own exitOnError()
// - with strategies: every interested one, in the order of registration; never the default, and
//   the process goes on
// - strategies leave when they are destroyed or cleaned up, however often they are listed
// - strategies may end themselves and others, register and report while an error is delivered
// - StandardOutStrategy, SysLogStrategy and its writer
// - the platform's last error is passed through

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <libos/osError.h>

#include <cstdlib>
#include <functional>
#include <list>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include <utils/errNullPtrError.h>
#include <utils/errObjectAlreadyExistsError.h>
#include <utils/errStandardOutStrategy.h>
#include <utils/errStrategy.h>
#include <utils/errSysLogStrategy.h>

#include "err/Header.h"
#include "err/RecordingStrategy.h"
#include "err/SyslogStandIn.h"
#include "support/ClogCapture.h"

namespace
{

using namespace std::string_literals;
using namespace utils::err;
using test::ClogCapture;
using test::RecordingErrStrategy;
using test::syslogRecords;
using test::withoutTime;
using testing::ElementsAre;
using testing::IsEmpty;

class ErrStrategy : public testing::Test
{
  protected:
    // Before the error, which takes the user from the environment.
    const int m_userIsSet = setenv("USER", "marie", 1);
    const Err_ObjectAlreadyExistsError m_error{"file", 7, "function", "twin"};
};

const std::string TEXT =
    "!([1.0.0.13]Warning/Err_ObjectAlreadyExistsError) by marie on TIME.\n"
    "        Generated from file/7/function:\n"
    "        Object 'twin' already exists.\0"s;

// Does what the test says.
class Scripted : public Err_Strategy
{
  public:
    using Action = std::function<void(const Err_Error&, bool)>;

    explicit Scripted(Action action, bool isInterestedInAll = true)
        : Err_Strategy("Scripted"), m_action(std::move(action)), m_isInterested(isInterestedInAll)
    {
    }

    bool processError(const Err_Error& error, bool recoverable) override
    {
        // A copy, since the action may end this strategy.
        const Action action = m_action;
        action(error, recoverable);
        return false;
    }

    bool isInterested(const Err_Error&, bool) const override { return m_isInterested; }

  private:
    Action m_action;
    bool m_isInterested;
};

TEST_F(ErrStrategy, DefaultWritesToTheLogStream)
{
    const ClogCapture clog;
    m_error.notifyStrategies(true);
    EXPECT_EQ(withoutTime(clog.getText()), TEXT + "\n");
}

TEST_F(ErrStrategy, DefaultSetsTheLastError)
{
    const ClogCapture clog;
    osSetLastError(0);
    m_error.notifyStrategies(true);
    EXPECT_EQ(osGetLastError(), 0x8000000DU);
}

TEST_F(ErrStrategy, DefaultEndsTheProcessWhenNotRecoverable)
{
    EXPECT_EXIT(m_error.notifyStrategies(false), testing::ExitedWithCode(1),
                "^!\\(\\[1\\.0\\.0\\.13\\]Warning/Err_ObjectAlreadyExistsError\\) by marie on "
                "[^\n]*\\.\n"
                "        Generated from file/7/function:\n"
                "        Object 'twin' already exists\\.");
}

class Lenient : public Err_Error
{
  public:
    Lenient() : Err_Error("file", 7, "function", "Severe", "Lenient") {}
    void exitOnError() const override { ++m_numExits; }
    mutable int m_numExits = 0;
};

TEST_F(ErrStrategy, DefaultEndsTheProcessThroughTheError)
{
    const ClogCapture clog;
    const Lenient error;
    error.notifyStrategies(true);
    EXPECT_EQ(error.m_numExits, 0);
    error.notifyStrategies(false);
    EXPECT_EQ(error.m_numExits, 1);
}

TEST_F(ErrStrategy, DefaultSetsTheLastErrorBeforeItWrites)
{
    class Looking : public Err_Error
    {
      public:
        Looking() : Err_Error("file", 7, "function", "Severe", "Looking") {}
        void output(std::ostream& os) const override { os << osGetLastError(); }
    };
    const ClogCapture clog;
    osSetLastError(0);
    Looking().notifyStrategies(true);
    EXPECT_EQ(clog.getText(), "4294967295\n");
}

TEST_F(ErrStrategy, DefaultCanBeCalledDirectly)
{
    const ClogCapture clog;
    const RecordingErrStrategy strategy;
    Err_Strategy::defaultProcessError(m_error, true);
    EXPECT_EQ(withoutTime(clog.getText()), TEXT + "\n");
    EXPECT_THAT(strategy.getTexts(), IsEmpty());
}

TEST_F(ErrStrategy, RegisteredStrategyReplacesTheDefault)
{
    const ClogCapture clog;
    osSetLastError(0);
    const RecordingErrStrategy strategy;
    m_error.notifyStrategies(true);
    m_error.notifyStrategies(false);
    EXPECT_THAT(strategy.getTexts(), ElementsAre(TEXT, TEXT));
    EXPECT_THAT(strategy.getRecoverables(), ElementsAre(true, false));
    EXPECT_EQ(clog.getText(), "");
    EXPECT_EQ(osGetLastError(), 0U);
}

TEST_F(ErrStrategy, StrategiesAreCalledInTheOrderOfRegistration)
{
    std::string order;
    const Scripted first([&](const Err_Error&, bool) { order += "1"; });
    const Scripted second([&](const Err_Error&, bool) { order += "2"; });
    const Scripted third([&](const Err_Error&, bool) { order += "3"; });
    m_error.notifyStrategies(true);
    EXPECT_EQ(order, "123");
}

TEST_F(ErrStrategy, UninterestedStrategyIsPassedOver)
{
    const ClogCapture clog;
    std::string order;
    const Scripted first([&](const Err_Error&, bool) { order += "1"; }, false);
    const Scripted second([&](const Err_Error&, bool) { order += "2"; });
    m_error.notifyStrategies(true);
    EXPECT_EQ(order, "2");
}

TEST_F(ErrStrategy, UninterestedStrategyStillSilencesTheDefault)
{
    const ClogCapture clog;
    const Scripted strategy([](const Err_Error&, bool) {}, false);
    m_error.notifyStrategies(false);
    EXPECT_EQ(clog.getText(), "");
}

TEST_F(ErrStrategy, KeepsItsName)
{
    EXPECT_EQ(RecordingErrStrategy("A Name").getName(), "A Name");
}

TEST_F(ErrStrategy, LeavesWhenDestroyed)
{
    const ClogCapture clog;
    {
        const RecordingErrStrategy strategy;
    }
    m_error.notifyStrategies(true);
    EXPECT_EQ(withoutTime(clog.getText()), TEXT + "\n");
}

TEST_F(ErrStrategy, CleanUpRemovesEveryEntry)
{
    auto& list = *utils::Std_Singleton<std::list<Err_Strategy*>>::getInstancePtr();
    RecordingErrStrategy strategy;
    const RecordingErrStrategy other;
    list.push_back(&strategy);
    m_error.notifyStrategies(true);
    EXPECT_EQ(strategy.getTexts().size(), 2U);

    strategy.cleanUp();
    EXPECT_EQ(list.size(), 1U);
    strategy.cleanUp();
    m_error.notifyStrategies(true);
    EXPECT_EQ(strategy.getTexts().size(), 2U);
    EXPECT_EQ(other.getTexts().size(), 2U);
}

TEST_F(ErrStrategy, CannotBeCopied)
{
    static_assert(!std::is_copy_constructible_v<StandardOutStrategy>);
    static_assert(!std::is_copy_assignable_v<StandardOutStrategy>);
    static_assert(std::is_abstract_v<Err_Strategy>);
    static_assert(std::has_virtual_destructor_v<Err_Strategy>);
}

// AddressSanitizer sees a walk over the list itself touch the entry that is gone.
TEST_F(ErrStrategy, StrategyEndsItselfDuringDelivery)
{
    std::unique_ptr<Scripted> strategy;
    strategy = std::make_unique<Scripted>([&](const Err_Error&, bool) { strategy.reset(); });
    const RecordingErrStrategy next;
    m_error.notifyStrategies(true);
    EXPECT_EQ(next.getTexts().size(), 1U);
}

TEST_F(ErrStrategy, StrategyThatIsListedTwiceEndsItself)
{
    std::unique_ptr<Scripted> strategy;
    strategy = std::make_unique<Scripted>([&](const Err_Error&, bool) { strategy.reset(); });
    utils::Std_Singleton<std::list<Err_Strategy*>>::getInstancePtr()->push_back(strategy.get());
    const RecordingErrStrategy next;
    m_error.notifyStrategies(true);
    EXPECT_EQ(next.getTexts().size(), 1U);
}

TEST_F(ErrStrategy, StrategyEndsTheNextOneDuringDelivery)
{
    std::unique_ptr<Scripted> next;
    const Scripted strategy([&](const Err_Error&, bool) { next.reset(); });
    next = std::make_unique<Scripted>([](const Err_Error&, bool) { FAIL() << "has ended"; });
    const RecordingErrStrategy last;
    m_error.notifyStrategies(true);
    EXPECT_EQ(last.getTexts().size(), 1U);
}

TEST_F(ErrStrategy, StrategyThatIsRegisteredDuringDeliveryGetsTheNextError)
{
    std::unique_ptr<RecordingErrStrategy> added;
    const Scripted strategy(
        [&](const Err_Error&, bool)
        {
            if (added == nullptr)
            {
                added = std::make_unique<RecordingErrStrategy>();
            }
        });
    m_error.notifyStrategies(true);
    EXPECT_EQ(added->getTexts().size(), 0U);
    m_error.notifyStrategies(true);
    EXPECT_EQ(added->getTexts().size(), 1U);
}

TEST_F(ErrStrategy, StrategyReportsAnError)
{
    std::vector<std::string> names;
    const Scripted strategy(
        [&](const Err_Error& error, bool)
        {
            names.push_back(error.getName());
            if (names.size() == 1)
            {
                Err_NullPtrError("file", 8, "function", "thePtr").notifyStrategies(true);
            }
        });
    m_error.notifyStrategies(true);
    EXPECT_THAT(names, ElementsAre("Err_ObjectAlreadyExistsError", "Err_NullPtrError"));
}

TEST_F(ErrStrategy, LastErrorIsThePlatforms)
{
    Err_Strategy::setLastError(0x80000123);
    EXPECT_EQ(osGetLastError(), 0x80000123U);
    EXPECT_EQ(Err_Strategy::getLastError(), 0x80000123U);
    EXPECT_TRUE(Err_Strategy::isError());
    osSetLastError(0);
    EXPECT_EQ(Err_Strategy::getLastError(), 0U);
    EXPECT_FALSE(Err_Strategy::isError());
}

TEST_F(ErrStrategy, StandardOutWritesToTheLogStream)
{
    const ClogCapture clog;
    StandardOutStrategy strategy;
    EXPECT_EQ(strategy.getName(), "StandardOut");
    EXPECT_TRUE(strategy.isInterested(m_error, false));
    EXPECT_TRUE(strategy.processError(m_error, false));
    EXPECT_EQ(withoutTime(clog.getText()), TEXT + "\n");
}

TEST_F(ErrStrategy, StandardOutDoesNotEndTheProcess)
{
    const ClogCapture clog;
    osSetLastError(0);
    const StandardOutStrategy strategy;
    m_error.notifyStrategies(false);
    EXPECT_EQ(withoutTime(clog.getText()), TEXT + "\n");
    EXPECT_EQ(osGetLastError(), 0U);
}

// The record ends at the first NUL character, that of the leaf class.
TEST_F(ErrStrategy, SysLogSendsTheErrorToTheSystemLog)
{
    const ClogCapture clog;
    SysLogStrategy strategy;
    EXPECT_EQ(strategy.getName(), "SysLog");
    EXPECT_TRUE(strategy.isInterested(m_error, true));
    EXPECT_TRUE(strategy.processError(m_error, true));
    ASSERT_EQ(syslogRecords().size(), 1U);
    EXPECT_EQ(syslogRecords()[0].priority, 4);
    EXPECT_EQ(withoutTime(syslogRecords()[0].text),
              "!([1.0.0.13]Warning/Err_ObjectAlreadyExistsError) by marie on TIME.\n"
              "        Generated from file/7/function:\n"
              "        Object 'twin' already exists.");
    EXPECT_EQ(clog.getText(), "");
}

TEST_F(ErrStrategy, SysLogReplacesTheDefault)
{
    const ClogCapture clog;
    const SysLogStrategy strategy;
    m_error.notifyStrategies(false);
    ASSERT_EQ(syslogRecords().size(), 1U);
    EXPECT_EQ(syslogRecords()[0].priority, 4);
    EXPECT_EQ(clog.getText(), "");
}

TEST_F(ErrStrategy, LogMessageMapsSeverities)
{
    for (const char* const severity : {"fatal", "critical", "error", "warning", "info", "debug",
                                       "FATAL", "Warning", "eRRoR", "notice", "unknown", ""})
    {
        SysLogStrategy::logMessage(severity, "text");
    }
    std::vector<int> priorities;
    for (const test::SyslogRecord& record : syslogRecords())
    {
        EXPECT_EQ(record.text, "text");
        priorities.push_back(record.priority);
    }
    EXPECT_THAT(priorities, ElementsAre(2, 2, 3, 4, 6, 7, 2, 4, 3, 5, 5, 5));
}

TEST_F(ErrStrategy, LogMessageTakesTheTextAsItIs)
{
    SysLogStrategy::logMessage("info", "100 %s %n");
    ASSERT_EQ(syslogRecords().size(), 1U);
    EXPECT_EQ(syslogRecords()[0].text, "100 %s %n");
}

}  // namespace
