// Strategies that use the library while the missing values file is reported, from inside the
// construction of the first flag; and while a duplicate name is reported.
//
// - a flag made by the strategy starts from its default, and is registered
// - a trace through the collection under construction, or one not yet there, is not emitted, and
//   nothing recurses; afterwards the same call sites trace
// - an error reported by the strategy reaches it
// - a look-up finds the flag under construction
// - several threads make their first flags meanwhile

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <iostream>
#include <latch>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include <utils/command/Flags.h>
#include <utils/command/NoOpCommand.h>
#include <utils/error/Error.h>
#include <utils/flag/Flags.h>
#include <utils/flag/InitialValues.h>
#include <utils/flag/Trace.h>

#include "support/ConfigDirectory.h"
#include "support/RecordingErrorStrategy.h"
#include "support/RecordingTraceStrategy.h"

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;
using utils::error::Error;
using utils::flag::Flag;
using utils::flag::FlagT;
using utils::singleton::SingletonT;

// The collection of an application, with every step traced by default.
class Flags
{
  public:
    FlagT<int> m_traceSteps{"app::m_traceSteps", 9};
    FlagT<int> m_other{"app::m_other", 4};
};

void traceInApplication()
{
    GENERIC_UTILS_TRACE_STEP(1, "a step");
}

// Does what it is told on the first error, and keeps the words of all.
class ActingStrategy : public utils::strategy::StrategyT<Error>
{
  public:
    explicit ActingStrategy(std::function<void()> action)
        : StrategyT("Error", "acting", false), m_action(std::move(action))
    {
    }

    bool isInterested(const Error&) override { return true; }

    void processClientObject(Error& error) override
    {
        m_words.push_back(test::behindTwoLines(error.getStream().str()));
        if (const auto action = std::exchange(m_action, nullptr))
        {
            action();
        }
    }

    std::vector<std::string> m_words;

  private:
    std::function<void()> m_action;
};

class InitialValuesReentry : public testing::Test
{
  protected:
    void SetUp() override
    {
        testing::FLAGS_gtest_death_test_style = "threadsafe";
        m_config.removeValues();
    }

    std::string missingFile() const
    {
        return "Could not read initial flag values from file '" + m_config.getValuesPath() +
               "' - stream read error.";
    }

    const test::ConfigDirectory m_config;
};

// The naive version reads the file again, which reports again, without end.
TEST_F(InitialValuesReentry, StrategyMayMakeAFlag)
{
    std::unique_ptr<FlagT<int>> made;
    const ActingStrategy strategy([&] { made = std::make_unique<FlagT<int>>("made", 3); });

    const FlagT<int> first("first", 1);

    ASSERT_NE(made, nullptr);
    EXPECT_EQ((*made)(), 3);
    EXPECT_EQ(first(), 1);
    EXPECT_EQ(Flag::getFlagPtr("made", true), made.get());
    EXPECT_THAT(strategy.m_words, ElementsAre(missingFile()));
}

TEST_F(InitialValuesReentry, StrategyMayMakeAStringFlag)
{
    std::unique_ptr<FlagT<std::string>> made;
    const ActingStrategy strategy(
        [&] { made = std::make_unique<FlagT<std::string>>("made", "two words"); });
    const FlagT<int> first("first", 1);
    ASSERT_NE(made, nullptr);
    EXPECT_EQ((*made)(), "two words");
}

TEST_F(InitialValuesReentry, StrategyMayMakeAFlagWhileTheValuesThemselvesAreAskedFor)
{
    std::unique_ptr<FlagT<int>> made;
    const ActingStrategy strategy([&] { made = std::make_unique<FlagT<int>>("made", 3); });
    SingletonT<utils::flag::InitialValues>::getInstancePtr();
    ASSERT_NE(made, nullptr);
    EXPECT_EQ((*made)(), 3);
    EXPECT_EQ(strategy.m_words.size(), 1U);
}

TEST_F(InitialValuesReentry, FlagsMadeAfterwardsReadTheFileAgainAfterARedo)
{
    std::unique_ptr<FlagT<int>> made;
    const ActingStrategy strategy([&] { made = std::make_unique<FlagT<int>>("made", 3); });
    const FlagT<int> first("first", 1);

    m_config.writeValues("later\n8\n");
    SingletonT<utils::flag::InitialValues>::getInstancePtr()->redoInitialValuesCollection();

    const FlagT<int> later("later", 2);
    EXPECT_EQ(later(), 8);
}

TEST_F(InitialValuesReentry, StrategyMayLookUpTheFlagUnderConstruction)
{
    const Flag* found = nullptr;
    const ActingStrategy strategy([&] { found = Flag::getFlagPtr("first"); });
    const FlagT<int> first("first", 1);
    EXPECT_EQ(found, &first);
    EXPECT_THAT(strategy.m_words, ElementsAre(missingFile()));
}

TEST_F(InitialValuesReentry, StrategyMayReportInItsTurn)
{
    const ActingStrategy strategy([] { Flag::getFlagPtr("nobody"); });
    const FlagT<int> first("first", 1);
    EXPECT_THAT(strategy.m_words, ElementsAre(missingFile(), "Flag 'nobody' does not exist."));
}

// The naive version asks the collection's singleton, whose constructor is running, for its
// instance: the same flags register twice, which is fatal, or the thread waits for itself.
TEST_F(InitialValuesReentry, TraceThroughTheCollectionUnderConstructionIsNotEmitted)
{
    const test::RecordingTraceStrategy traces;
    const ActingStrategy strategy(traceInApplication);

    traceInApplication();

    EXPECT_THAT(strategy.m_words, ElementsAre(missingFile()));
    EXPECT_THAT(traces.getWords(), ElementsAre("a step"));
    traceInApplication();
    EXPECT_THAT(traces.getWords(), ElementsAre("a step", "a step"));
}

TEST_F(InitialValuesReentry, TraceThroughACollectionNotYetThereIsNotEmitted)
{
    const test::RecordingTraceStrategy traces;
    const ActingStrategy strategy(traceInApplication);

    const FlagT<int> first("first", 1);
    EXPECT_THAT(traces.getWords(), IsEmpty());
    EXPECT_EQ(Flag::getFlagPtr("app::m_traceSteps", true), nullptr);

    traceInApplication();
    EXPECT_THAT(traces.getWords(), ElementsAre("a step"));
}

TEST_F(InitialValuesReentry, TraceThroughTheFlagsOfTracingUnderConstructionIsNotEmitted)
{
    const test::RecordingTraceStrategy traces;
    const ActingStrategy strategy(traceInApplication);

    SingletonT<utils::flag::Flags>::getInstancePtr();

    EXPECT_THAT(traces.getWords(), IsEmpty());
    EXPECT_THAT(strategy.m_words, ElementsAre(missingFile()));
    traceInApplication();
    EXPECT_THAT(traces.getWords(), ElementsAre("a step"));
}

TEST_F(InitialValuesReentry, StrategyMayUseTheLibrarysOwnClasses)
{
    const test::RecordingTraceStrategy traces;
    const ActingStrategy strategy([] { utils::command::NoOpCommand(); });
    SingletonT<utils::command::Flags>::getInstancePtr();
    EXPECT_THAT(strategy.m_words, ElementsAre(missingFile()));
}

// A trace that is emitted from inside the construction, since its own flag exists: the header's
// flag does not, and counts as at its default.
TEST_F(InitialValuesReentry, TraceUnderAnExistingFlagWaitsForTheMasterSwitch)
{
    const test::RecordingTraceStrategy traces;
    std::optional<FlagT<int>> level;
    const ActingStrategy strategy(
        [&]
        {
            level.emplace("level", 5);
            GENERIC_UTILS_TRACE(*level, 1, "early");
        });
    const FlagT<int> first("first", 1);
    EXPECT_THAT(traces.getWords(), IsEmpty());
}

TEST_F(InitialValuesReentry, MessageBuiltDuringTheConstructionGetsTheShortHeader)
{
    std::string text;
    const ActingStrategy strategy(
        [&]
        {
            const FlagT<int> level("level", 5);
            utils::flag::TraceMsg message(level, 1, "file", 2, "function");
            message.header(message.getStream()) << "words";
            text = message.getStream().str();
        });
    const FlagT<int> first("first", 1);
    EXPECT_THAT(text, testing::MatchesRegex("[0-9]{4}-[0-9]{2}-[0-9]{2} [0-9:]{8}: words"));
}

// Every thread makes its first flags while the first of them reports.
TEST_F(InitialValuesReentry, OtherThreadsMayMakeTheirFirstFlagsMeanwhile)
{
    constexpr int THREADS = 4;
    std::unique_ptr<FlagT<int>> made;
    std::latch start(THREADS);
    const ActingStrategy strategy([&] { made = std::make_unique<FlagT<int>>("made", 3); });
    std::vector<std::thread> threads;
    for (int number = 0; number < THREADS; ++number)
    {
        threads.emplace_back(
            [&start, number]
            {
                start.arrive_and_wait();
                const FlagT<int> flag("flag" + std::to_string(number), number);
                EXPECT_EQ(flag(), number);
                traceInApplication();
            });
    }
    for (std::thread& thread : threads)
    {
        thread.join();
    }
    EXPECT_THAT(strategy.m_words, ElementsAre(missingFile()));
    EXPECT_EQ((*made)(), 3);
}

class TracingOnDuplicate : public utils::strategy::StrategyT<Error>
{
  public:
    TracingOnDuplicate() : StrategyT("Error", "tracing", false) {}

    bool isInterested(const Error&) override { return true; }
    void processClientObject(Error& error) override
    {
        traceInApplication();
        std::cerr << error.getName() << ";";
    }
};

// The second flag of the collection finds its name taken, so that the report is made from inside
// the collection's constructor.
TEST_F(InitialValuesReentry, DuplicateNameReportedToAStrategyThatTracesThroughTheCollection)
{
    EXPECT_EXIT(
        {
            m_config.writeValues("");
            const FlagT<int> taken("app::m_other", 1);
            const test::RecordingTraceStrategy traces;
            const TracingOnDuplicate strategy;
            traceInApplication();
        },
        testing::ExitedWithCode(1), "^AlreadyExists;$");
}

TEST_F(InitialValuesReentry, DuplicateNameReportedToAStrategyThatMakesAFlag)
{
    EXPECT_EXIT(
        {
            m_config.writeValues("named\n5\n");
            const ActingStrategy strategy(
                []
                {
                    const FlagT<int> made("made", 3);
                    const FlagT<int> named("named", 3);
                    std::cerr << made.getValueStr() << named.getValueStr();
                });
            const FlagT<int> first("twice", 1);
            const FlagT<int> second("twice", 2);
        },
        testing::ExitedWithCode(1), "^35$");
}

}  // namespace
