// Older trace messages and their strategies.
//
// - the flag's name; its value is copied at construction
// - the stream is made empty, and its whole text is handed out
// - isActive() by level and master switch
// - headers: short and full by the flag's three ways; null texts
// - numbers are written without the grouping of the global locale
// - interest and delivery: the default without strategies, else every interested strategy in order
// - strategies leave when they are destroyed or cleaned up, however often they are listed
// - strategies may end themselves and others while a message is delivered

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <list>
#include <memory>
#include <string>
#include <type_traits>

#include <utils/flagFlags.h>
#include <utils/flagTraceMsg.h>
#include <utils/flagTraceStrategy.h>

#include "flag_legacy/RecordingOlderTraces.h"
#include "support/ClogCapture.h"
#include "support/ConfigDirectory.h"
#include "support/GroupedNumbers.h"

namespace
{

using namespace std::string_literals;
using test::ClogCapture;
using test::RecordingOlderTraces;
using test::withoutTraceTime;
using testing::ElementsAre;
using testing::IsEmpty;
using utils::flag::Flag_Flag;
using utils::flag::Flag_Flags;
using utils::flag::Flag_TraceMsg;
using utils::flag::Flag_TraceStrategy;

class FlagTraceMsg : public testing::Test
{
  protected:
    void SetUp() override { setenv("USER", "marie", 1); }

    static Flag_Flags& flags() { return *utils::Std_Singleton<Flag_Flags>::getInstancePtr(); }

    const test::ConfigDirectory m_config;
    Flag_Flag<int> m_level{"App::m_traceSteps", 2};
};

// Does what the test says.
class Scripted : public Flag_TraceStrategy
{
  public:
    explicit Scripted(std::function<void()> action, bool isInterestedInAll = true)
        : Flag_TraceStrategy("Scripted"),
          m_action(std::move(action)),
          m_isInterested(isInterestedInAll)
    {
    }

    bool isInterested(const Flag_TraceMsg&) override
    {
        ++m_numAsked;
        return m_isInterested;
    }

    void processTrace(const Flag_TraceMsg&) override
    {
        // A copy, since the action may end this strategy.
        const std::function<void()> action = m_action;
        action();
    }

    int m_numAsked = 0;

  private:
    std::function<void()> m_action;
    bool m_isInterested;
};

TEST_F(FlagTraceMsg, NamesTheFlagItself)
{
    const Flag_TraceMsg msg(m_level, 1);
    EXPECT_EQ(&msg.getName(), &m_level.getName());
}

TEST_F(FlagTraceMsg, TextIsEmptyAtFirst)
{
    Flag_TraceMsg msg(m_level, 1);
    EXPECT_EQ(msg.getString(), "");
    EXPECT_EQ(msg.getStream().str(), "");
    EXPECT_EQ(msg.getString(), "");
}

TEST_F(FlagTraceMsg, TextIsHandedOutWhole)
{
    Flag_TraceMsg msg(m_level, 1);
    msg.getStream() << "a" << '\0' << 16 << "\n";
    EXPECT_EQ(&msg.getStream(), &msg.getStream());
    EXPECT_EQ(msg.getString(), "a\0"s + "16\n");
}

TEST_F(FlagTraceMsg, IsActiveUpToTheFlagsValue)
{
    EXPECT_TRUE(Flag_TraceMsg(m_level, 1).isActive());
    EXPECT_TRUE(Flag_TraceMsg(m_level, 2).isActive());
    EXPECT_FALSE(Flag_TraceMsg(m_level, 3).isActive());
}

TEST_F(FlagTraceMsg, MasterSwitchTurnsItOff)
{
    flags().m_traceMsgActive.setValue(false);
    EXPECT_FALSE(Flag_TraceMsg(m_level, 1).isActive());
    EXPECT_FALSE(Flag_TraceMsg(m_level, 3).isActive());
}

TEST_F(FlagTraceMsg, FlagsValueIsThatOfConstruction)
{
    const Flag_TraceMsg low(m_level, 3);
    m_level.setValue(3);
    EXPECT_FALSE(low.isActive());
    const Flag_TraceMsg high(m_level, 3);
    m_level.setValue(-1);
    EXPECT_TRUE(high.isActive());
}

TEST_F(FlagTraceMsg, HeaderIsShortByDefault)
{
    Flag_TraceMsg msg(m_level, 1);
    msg.addHeader("file", 7, "function");
    EXPECT_EQ(withoutTraceTime(msg.getString()), "TIME: ");
}

TEST_F(FlagTraceMsg, EveryHeaderIsFullAtZero)
{
    flags().m_traceMsgHeaderActive.setValue(0);
    Flag_TraceMsg msg(m_level, 5);
    msg.addHeader("file", 7, "function");
    EXPECT_EQ(withoutTraceTime(msg.getString()),
              "!(TRACE Name=App::m_traceSteps CurrLevel=2 TraceLevel=5 ) by marie on TIME\n"
              "Generated from file/7/function:\n");
}

TEST_F(FlagTraceMsg, HeadersUpToTheFlagsValueAreFull)
{
    flags().m_traceMsgHeaderActive.setValue(1);
    Flag_TraceMsg first(m_level, 1);
    first.addHeader("file", 7, "function");
    EXPECT_EQ(withoutTraceTime(first.getString()),
              "!(TRACE Name=App::m_traceSteps CurrLevel=2 TraceLevel=1 ) by marie on TIME\n"
              "Generated from file/7/function:\n");
    Flag_TraceMsg second(m_level, 2);
    second.addHeader("file", 7, "function");
    EXPECT_EQ(withoutTraceTime(second.getString()), "TIME: ");
}

TEST_F(FlagTraceMsg, LevelsBelowTheFlagsValueAreFullAlsoWhenNegative)
{
    Flag_TraceMsg msg(m_level, -1);
    msg.addHeader("file", 7, "function");
    EXPECT_EQ(withoutTraceTime(msg.getString()),
              "!(TRACE Name=App::m_traceSteps CurrLevel=2 TraceLevel=-1 ) by marie on TIME\n"
              "Generated from file/7/function:\n");
}

TEST_F(FlagTraceMsg, HeaderShowsTheValueOfConstruction)
{
    flags().m_traceMsgHeaderActive.setValue(0);
    Flag_TraceMsg msg(m_level, 1);
    m_level.setValue(9);
    msg.addHeader("file", 7, "function");
    EXPECT_EQ(withoutTraceTime(msg.getString()),
              "!(TRACE Name=App::m_traceSteps CurrLevel=2 TraceLevel=1 ) by marie on TIME\n"
              "Generated from file/7/function:\n");
}

TEST_F(FlagTraceMsg, HeaderWithoutUser)
{
    unsetenv("USER");
    flags().m_traceMsgHeaderActive.setValue(0);
    Flag_TraceMsg msg(m_level, 1);
    msg.addHeader("file", 7, "function");
    EXPECT_EQ(withoutTraceTime(msg.getString()),
              "!(TRACE Name=App::m_traceSteps CurrLevel=2 TraceLevel=1 ) by -- not available -- "
              "on TIME\n"
              "Generated from file/7/function:\n");
}

TEST_F(FlagTraceMsg, NullFileEndsTheMessage)
{
    flags().m_traceMsgHeaderActive.setValue(0);
    Flag_TraceMsg msg(m_level, 1);
    msg.addHeader(nullptr, 7, "function");
    msg.getStream() << "words";
    EXPECT_TRUE(msg.getStream().bad());
    EXPECT_EQ(withoutTraceTime(msg.getString()),
              "!(TRACE Name=App::m_traceSteps CurrLevel=2 TraceLevel=1 ) by marie on TIME\n"
              "Generated from ");
}

TEST_F(FlagTraceMsg, NullFunctionEndsTheMessage)
{
    flags().m_traceMsgHeaderActive.setValue(0);
    Flag_TraceMsg msg(m_level, 1);
    msg.addHeader("file", 7, nullptr);
    msg.getStream() << "words";
    EXPECT_TRUE(msg.getStream().bad());
    EXPECT_EQ(withoutTraceTime(msg.getString()),
              "!(TRACE Name=App::m_traceSteps CurrLevel=2 TraceLevel=1 ) by marie on TIME\n"
              "Generated from file/7/");
}

TEST_F(FlagTraceMsg, ShortHeaderDoesNotCareForNullTexts)
{
    Flag_TraceMsg msg(m_level, 1);
    msg.addHeader(nullptr, 7, nullptr);
    msg.getStream() << "words";
    EXPECT_EQ(withoutTraceTime(msg.getString()), "TIME: words");
}

TEST_F(FlagTraceMsg, DefaultWritesToTheLogStream)
{
    const ClogCapture clog;
    Flag_TraceMsg msg(m_level, 1);
    msg.getStream() << "words\n";
    EXPECT_TRUE(msg.isAnyInterested());
    msg.notifyStrategies();
    EXPECT_EQ(clog.getText(), "words\n\n");
}

TEST_F(FlagTraceMsg, DefaultCanBeCalledDirectly)
{
    const ClogCapture clog;
    const RecordingOlderTraces strategy;
    Flag_TraceMsg msg(m_level, 1);
    msg.getStream() << "words";
    Flag_TraceStrategy::defaultProcessTrace(msg);
    EXPECT_EQ(clog.getText(), "words\n");
    EXPECT_THAT(strategy.getTexts(), IsEmpty());
}

TEST_F(FlagTraceMsg, StrategyReplacesTheDefault)
{
    const ClogCapture clog;
    const RecordingOlderTraces strategy;
    Flag_TraceMsg msg(m_level, 1);
    msg.getStream() << "words";
    msg.notifyStrategies();
    EXPECT_THAT(strategy.getTexts(), ElementsAre("words"));
    EXPECT_EQ(clog.getText(), "");
}

TEST_F(FlagTraceMsg, DeliveryDoesNotLookAtLevels)
{
    const RecordingOlderTraces strategy;
    Flag_TraceMsg msg(m_level, 3);
    msg.getStream() << "words";
    msg.notifyStrategies();
    EXPECT_THAT(strategy.getTexts(), ElementsAre("words"));
}

TEST_F(FlagTraceMsg, StrategiesAreCalledInTheOrderOfRegistration)
{
    std::string order;
    const Scripted first([&] { order += "1"; });
    const Scripted second([&] { order += "2"; }, false);
    const Scripted third([&] { order += "3"; });
    Flag_TraceMsg(m_level, 1).notifyStrategies();
    EXPECT_EQ(order, "13");
}

TEST_F(FlagTraceMsg, UninterestedStrategySilencesTheDefault)
{
    const ClogCapture clog;
    const Scripted strategy([] {}, false);
    const Flag_TraceMsg msg(m_level, 1);
    EXPECT_FALSE(msg.isAnyInterested());
    msg.notifyStrategies();
    EXPECT_EQ(clog.getText(), "");
}

TEST_F(FlagTraceMsg, AskingStopsAtTheFirstInterested)
{
    Scripted first([] {}, false);
    Scripted second([] {});
    Scripted third([] {});
    EXPECT_TRUE(Flag_TraceMsg(m_level, 1).isAnyInterested());
    EXPECT_EQ(first.m_numAsked, 1);
    EXPECT_EQ(second.m_numAsked, 1);
    EXPECT_EQ(third.m_numAsked, 0);
}

TEST_F(FlagTraceMsg, StrategyKeepsItsName)
{
    EXPECT_EQ(RecordingOlderTraces("A Name").getName(), "A Name");
}

TEST_F(FlagTraceMsg, StrategyLeavesWhenDestroyed)
{
    const ClogCapture clog;
    {
        const RecordingOlderTraces strategy;
    }
    Flag_TraceMsg(m_level, 1).notifyStrategies();
    EXPECT_EQ(clog.getText(), "\n");
}

TEST_F(FlagTraceMsg, CleanUpRemovesEveryEntry)
{
    auto& list = *utils::Std_Singleton<std::list<Flag_TraceStrategy*>>::getInstancePtr();
    RecordingOlderTraces strategy;
    const RecordingOlderTraces other;
    list.push_back(&strategy);
    Flag_TraceMsg(m_level, 1).notifyStrategies();
    EXPECT_EQ(strategy.getTexts().size(), 2U);

    strategy.cleanUp();
    EXPECT_EQ(list.size(), 1U);
    strategy.cleanUp();
    Flag_TraceMsg(m_level, 1).notifyStrategies();
    EXPECT_EQ(strategy.getTexts().size(), 2U);
    EXPECT_EQ(other.getTexts().size(), 2U);
}

// AddressSanitizer sees a walk over the list itself touch the entries that are gone.
TEST_F(FlagTraceMsg, StrategyEndsItselfAndTheNextDuringDelivery)
{
    std::unique_ptr<Scripted> first;
    std::unique_ptr<Scripted> second;
    first = std::make_unique<Scripted>(
        [&]
        {
            first.reset();
            second.reset();
        });
    second = std::make_unique<Scripted>([] { FAIL() << "has ended"; });
    const RecordingOlderTraces last;
    Flag_TraceMsg(m_level, 1).notifyStrategies();
    EXPECT_EQ(last.getTexts().size(), 1U);
}

TEST_F(FlagTraceMsg, NumbersAreIndependentOfTheGlobalLocale)
{
    const test::GroupedNumbers locale;
    const Flag_Flag<int> flag("App::m_many", 3000);
    flags().m_traceMsgHeaderActive.setValue(0);
    Flag_TraceMsg message(flag, 2000);
    message.addHeader("some/file", 1200, "function");
    message.getStream() << 1234567;
    const std::string text = message.getString();
    EXPECT_THAT(text, testing::HasSubstr("CurrLevel=3000 TraceLevel=2000 )"));
    EXPECT_THAT(text, testing::EndsWith("Generated from some/file/1200/function:\n1234567"));
}

TEST_F(FlagTraceMsg, ClassesAreWhatTheyShouldBe)
{
    static_assert(std::has_virtual_destructor_v<Flag_TraceMsg>);
    static_assert(!std::is_copy_constructible_v<Flag_TraceMsg>);
    static_assert(!std::is_copy_assignable_v<Flag_TraceMsg>);
    static_assert(std::is_abstract_v<Flag_TraceStrategy>);
    static_assert(std::has_virtual_destructor_v<Flag_TraceStrategy>);
    static_assert(!std::is_copy_constructible_v<RecordingOlderTraces>);
}

}  // namespace
