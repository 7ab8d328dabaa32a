// Traces of many threads.
//
// - messages that pass one call site at once stay whole: each that arrives is header and words of
//   one thread, and none is lost
// - lines on the log stream do not mix
// - a level that is changed at run time is seen by other threads
// - first call sites of two subsystems that are passed at once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <latch>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include <utils/command/NoOpCommand.h>
#include <utils/flag/Flags.h>
#include <utils/flag/Trace.h>
#include <utils/queue/Queue.h>

#include "support/ClogCapture.h"
#include "support/ConfigDirectory.h"
#include "support/RecordingTraceStrategy.h"

namespace
{

using testing::UnorderedElementsAreArray;
using utils::flag::FlagT;

constexpr int THREADS = 8;
constexpr int ROUNDS = 200;

void runOnThreads(const std::function<void(int)>& work)
{
    std::latch start(THREADS);
    std::vector<std::thread> threads;
    for (int number = 0; number < THREADS; ++number)
    {
        threads.emplace_back(
            [&start, &work, number]
            {
                start.arrive_and_wait();
                work(number);
            });
    }
    for (std::thread& thread : threads)
    {
        thread.join();
    }
}

// Different for each thread and round, also in length.
std::string wordsOf(int number, int round)
{
    return "thread " + std::to_string(number) + " round " + std::to_string(round) + " " +
           std::string(static_cast<std::size_t>(number * 7 + round % 13),
                       static_cast<char>('a' + number));
}

std::vector<std::string> allMessages(const std::string& header)
{
    std::vector<std::string> messages;
    for (int number = 0; number < THREADS; ++number)
    {
        for (int round = 0; round < ROUNDS; ++round)
        {
            messages.push_back(header + wordsOf(number, round));
        }
    }
    return messages;
}

class TraceThreads : public testing::Test
{
  protected:
    void traceOnManyThreads() const
    {
        runOnThreads(
            [this](int number)
            {
                for (int round = 0; round < ROUNDS; ++round)
                {
                    GENERIC_UTILS_TRACE_AT((utils::SourceLocation{"here", 8, "f"}), m_level, 1,
                                           wordsOf(number, round));
                }
            });
    }

    const test::ConfigDirectory m_config;
    FlagT<int> m_level{"app::m_traceSteps", 1};
};

TEST_F(TraceThreads, MessagesOfOneCallSiteStayWhole)
{
    const test::RecordingTraceStrategy traces;
    traceOnManyThreads();
    EXPECT_THAT(traces.getTexts(), UnorderedElementsAreArray(allMessages("2001-02-03 04:05:06: ")));
}

TEST_F(TraceThreads, MessagesWithFullHeadersStayWhole)
{
    utils::singleton::SingletonT<utils::flag::Flags>::getInstancePtr()
        ->m_enableTraceMsgHeaders.setValue(0);
    const test::RecordingTraceStrategy traces;
    traceOnManyThreads();
    EXPECT_THAT(traces.getTexts(),
                UnorderedElementsAreArray(
                    allMessages("!TRACE (app::m_traceSteps = 1; trace level = 1) by tester on "
                                "2001-02-03 04:05:06.\n"
                                "Generated from here/8/f:\n")));
}

TEST_F(TraceThreads, LinesOfTheLogStreamDoNotMix)
{
    const test::ClogCapture clog;
    traceOnManyThreads();

    std::istringstream text(clog.getText());
    std::vector<std::string> lines;
    for (std::string line; std::getline(text, line);)
    {
        lines.push_back(line);
    }
    EXPECT_THAT(lines, UnorderedElementsAreArray(allMessages("2001-02-03 04:05:06: ")));
}

TEST_F(TraceThreads, ChangedLevelIsSeenByOtherThreads)
{
    const test::RecordingTraceStrategy traces;
    m_level.setValue(0);
    std::latch firstEmission(1);
    std::thread tracer(
        [&]
        {
            while (traces.getTexts().empty())
            {
                GENERIC_UTILS_TRACE(m_level, 1, "now");
            }
            firstEmission.count_down();
        });
    m_level.setValue(1);
    firstEmission.wait();
    tracer.join();
    EXPECT_THAT(traces.getWords(), testing::ElementsAre("now"));
}

// Each creates its subsystem's flag collection; both register in one registry, and the first reads
// the values file.
TEST(TraceThreadsFirst, CallSitesOfTwoSubsystemsMayBePassedAtOnce)
{
    const test::ConfigDirectory config(
        "utils::command::m_traceSteps\n1\nutils::queue::m_traceSteps\n1\n");
    const test::RecordingTraceStrategy traces;
    runOnThreads(
        [](int number)
        {
            if (number % 2 == 0)
            {
                const utils::command::NoOpCommand command;
            }
            else
            {
                const utils::queue::Queue queue("queue " + std::to_string(number), 1);
            }
        });
    EXPECT_THAT(traces.getWords(), testing::Not(testing::IsEmpty()));
    EXPECT_NE(utils::flag::Flag::getFlagPtr("utils::command::m_traceSteps"), nullptr);
    EXPECT_NE(utils::flag::Flag::getFlagPtr("utils::queue:m_defaultMaxQueueSize"), nullptr);
}

}  // namespace
