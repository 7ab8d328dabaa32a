// The lock of an event.
//
// - the three operations time the wait, pass 0 for it, and unlock at their end
// - without a lock nothing is locked; enabling twice makes one mutex
// - notifiers run with the lock held; the notification is traced without it, as are a registration
//   and the destruction; an unregistration is traced with the lock held, hence not when that fails
// - a null notifier is refused before anything is locked when it registers, with the lock held and
//   kept when it unregisters
// - a lock that fails: nothing is registered, unregistering says true, nobody is notified; nothing
//   is unlocked, nothing reported
// - a failed unregistration keeps the lock, on each of its paths; the event can still be used by
//   that thread, and be destroyed
// - a notifier that throws releases the lock
// - with a lock, threads may register, unregister and notify at once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <thread>

#include <utils/observer/Event.h>
#include <utils/observer/Flags.h>

#include "observer/MutexStandIn.h"
#include "observer/Notifiers.h"
#include "support/ConfigDirectory.h"
#include "support/RecordingErrorStrategy.h"
#include "support/RecordingTraceStrategy.h"

namespace
{

using test::countHeldLocks;
using test::FunctionNotifier;
using test::JournalNotifier;
using test::setLockFailing;
using test::takeMutexCalls;
using testing::ElementsAre;
using testing::IsEmpty;
using utils::observer::Event;
using utils::observer::Flags;
using utils::singleton::SingletonT;

// How many locks are held, and how many mutexes have been destroyed, when a trace arrives.
class TraceListener : public utils::strategy::StrategyT<utils::flag::TraceMsg>
{
  public:
    TraceListener() : StrategyT("Trace", "Listener", false)
    {
        SingletonT<Flags>::getInstancePtr()->m_traceSteps.setValue(2);
    }
    ~TraceListener() override { SingletonT<Flags>::getInstancePtr()->m_traceSteps.setValue(0); }

    bool isInterested(const utils::flag::TraceMsg&) override { return true; }

    void processClientObject(utils::flag::TraceMsg& traceMsg) override
    {
        const int numHeld = countHeldLocks();
        std::ostringstream text;
        traceMsg.output(text);
        const std::string words = test::RecordingTraceStrategy::withoutHeader(text.str());
        m_traces.push_back(words.substr(0, words.find(' ')) + ", " + std::to_string(numHeld) +
                           " held");
        for (const std::string& call : takeMutexCalls())
        {
            m_isDestroyed = m_isDestroyed || call == "destroy";
        }
    }

    std::vector<std::string> m_traces;
    bool m_isDestroyed = false;
};

class EventLock : public testing::Test
{
  protected:
    EventLock()
    {
        m_event->enableLock();
        m_event->registerInterest(&m_a, 1);
        takeMutexCalls();
    }

    const test::ConfigDirectory m_emptyConfiguration;
    test::RecordingErrorStrategy m_errors;
    std::vector<std::string> m_journal;
    JournalNotifier m_a{"a", m_journal};
    JournalNotifier m_b{"b", m_journal};
    std::optional<Event> m_event{std::in_place};
};

TEST_F(EventLock, IsTakenWithTimingAndReleasedByEveryOperation)
{
    m_event->registerInterest(&m_b, 2);
    EXPECT_THAT(takeMutexCalls(), ElementsAre("begin", "lock 0", "end", "output", "unlock"));
    m_event->notify(nullptr);
    EXPECT_THAT(takeMutexCalls(), ElementsAre("begin", "lock 0", "end", "output", "unlock"));
    EXPECT_TRUE(m_event->unregisterInterest(&m_b, 2));
    EXPECT_THAT(takeMutexCalls(), ElementsAre("begin", "lock 0", "end", "output", "unlock"));
}

TEST_F(EventLock, IsNotThereUntilEnabled)
{
    Event event;
    event.registerInterest(&m_a, 1);
    event.notify(nullptr);
    EXPECT_TRUE(event.unregisterInterest(&m_a, 1));
    EXPECT_FALSE(event.unregisterInterest(&m_a, 1));
    EXPECT_THAT(takeMutexCalls(), IsEmpty());
}

TEST_F(EventLock, IsOneMutexHoweverOftenEnabled)
{
    m_event->enableLock();
    m_event.reset();
    EXPECT_THAT(takeMutexCalls(), ElementsAre("destroy"));
}

TEST_F(EventLock, IsHeldWhileNotifiersRun)
{
    int numHeld = 0;
    FunctionNotifier notifier([&](void*) { numHeld = countHeldLocks(); });
    m_event->registerInterest(&notifier, 2);
    m_event->notify(nullptr);
    EXPECT_EQ(numHeld, 1);
    EXPECT_EQ(countHeldLocks(), 0);
}

TEST_F(EventLock, IsReleasedBeforeTheNotificationIsTraced)
{
    const TraceListener listener;
    m_event->notify(nullptr);
    EXPECT_THAT(listener.m_traces, ElementsAre("An, 0 held"));
}

TEST_F(EventLock, IsNotYetTakenWhenARegistrationIsTraced)
{
    const TraceListener listener;
    m_event->registerInterest(&m_b, 2);
    setLockFailing(true);
    m_event->registerInterest(&m_b, 2);
    setLockFailing(false);
    EXPECT_THAT(listener.m_traces, ElementsAre("Registering, 0 held", "Registering, 0 held"));
}

TEST_F(EventLock, IsHeldWhenAnUnregistrationIsTraced)
{
    const TraceListener listener;
    EXPECT_TRUE(m_event->unregisterInterest(&m_a, 1));
    setLockFailing(true);
    EXPECT_TRUE(m_event->unregisterInterest(&m_a, 1));
    setLockFailing(false);
    EXPECT_THAT(listener.m_traces, ElementsAre("Unregistering, 1 held"));
}

TEST_F(EventLock, IsStillThereWhenTheDestructionIsTraced)
{
    const TraceListener listener;
    m_event.reset();
    EXPECT_THAT(listener.m_traces, ElementsAre("Destroying, 0 held"));
    EXPECT_FALSE(listener.m_isDestroyed);
    EXPECT_THAT(takeMutexCalls(), testing::Contains("destroy"));
}

// Tells by its exit how many locks the process held then.
void writeHeldLocksAtExit()
{
    std::atexit([] { std::fprintf(stderr, "%d held, ", countHeldLocks()); });
}

TEST_F(EventLock, IsNotTakenForARegistrationOfNull)
{
    EXPECT_EXIT(
        {
            writeHeldLocksAtExit();
            setLockFailing(true);
            m_event->registerInterest(nullptr, 1);
        },
        testing::ExitedWithCode(1), "^0 held, ");
    EXPECT_EXIT(
        {
            writeHeldLocksAtExit();
            m_event->registerInterest(nullptr, 1);
        },
        testing::ExitedWithCode(1), "^0 held, ");
}

TEST_F(EventLock, IsKeptByUnregisteringNull)
{
    EXPECT_EXIT(
        {
            writeHeldLocksAtExit();
            m_event->unregisterInterest(nullptr, 1);
        },
        testing::ExitedWithCode(1), "^1 held, ");
}

TEST_F(EventLock, ThatFailsKeepsARegistrationOut)
{
    setLockFailing(true);
    m_event->registerInterest(&m_b, 2);
    EXPECT_THAT(takeMutexCalls(), ElementsAre("begin", "lock 0", "end", "output"));
    setLockFailing(false);
    m_event->notify(nullptr);
    EXPECT_THAT(m_journal, ElementsAre("a"));
    EXPECT_THAT(m_errors.getReports(), IsEmpty());
}

TEST_F(EventLock, ThatFailsMakesUnregisteringSayTrueAndRemoveNothing)
{
    setLockFailing(true);
    EXPECT_TRUE(m_event->unregisterInterest(&m_a, 1));
    EXPECT_TRUE(m_event->unregisterInterest(&m_b, 1));
    EXPECT_TRUE(m_event->unregisterInterest(nullptr, 1));
    setLockFailing(false);
    EXPECT_EQ(countHeldLocks(), 0);
    m_event->notify(nullptr);
    EXPECT_THAT(m_journal, ElementsAre("a"));
    EXPECT_THAT(m_errors.getReports(), IsEmpty());
}

TEST_F(EventLock, ThatFailsLetsNobodyBeNotified)
{
    SingletonT<Flags>::getInstancePtr()->m_traceSteps.setValue(2);
    test::RecordingTraceStrategy traces;
    m_event->notify(nullptr);  // makes what tracing needs, under locks of its own
    traces.clear();
    m_journal.clear();
    setLockFailing(true);
    m_event->notify(nullptr);
    setLockFailing(false);
    EXPECT_EQ(countHeldLocks(), 0);
    EXPECT_THAT(m_journal, IsEmpty());
    EXPECT_THAT(traces.getWords(),
                ElementsAre(testing::EndsWith(") has occurred - notified 0 observers.")));
    SingletonT<Flags>::getInstancePtr()->m_traceSteps.setValue(0);
}

TEST_F(EventLock, IsKeptByUnregisteringAnotherNotifier)
{
    EXPECT_FALSE(m_event->unregisterInterest(&m_b, 1));
    EXPECT_THAT(takeMutexCalls(), ElementsAre("begin", "lock 0", "end", "output"));
    EXPECT_EQ(countHeldLocks(), 1);
}

TEST_F(EventLock, IsKeptByUnregisteringWithoutRegistrations)
{
    EXPECT_TRUE(m_event->unregisterInterest(&m_a, 1));
    takeMutexCalls();
    EXPECT_FALSE(m_event->unregisterInterest(&m_a, 1));
    EXPECT_THAT(takeMutexCalls(), ElementsAre("begin", "lock 0", "end", "output"));
    EXPECT_EQ(countHeldLocks(), 1);
}

TEST_F(EventLock, ThatWasKeptLetsTheSameThreadGoOn)
{
    EXPECT_FALSE(m_event->unregisterInterest(&m_b, 1));
    EXPECT_FALSE(m_event->unregisterInterest(&m_b, 1));
    m_event->registerInterest(&m_b, 1);
    m_event->notify(nullptr);
    EXPECT_TRUE(m_event->unregisterInterest(&m_b, 1));
    EXPECT_THAT(m_journal, ElementsAre("a", "b"));
    EXPECT_EQ(countHeldLocks(), 2);
}

TEST_F(EventLock, ThatWasKeptDoesNotHinderDestruction)
{
    EXPECT_FALSE(m_event->unregisterInterest(&m_b, 1));
    EXPECT_FALSE(m_event->unregisterInterest(&m_b, 1));
    takeMutexCalls();
    m_event.reset();
    EXPECT_THAT(takeMutexCalls(), ElementsAre("unlock", "unlock", "destroy"));
    EXPECT_EQ(countHeldLocks(), 0);
}

TEST_F(EventLock, IsReleasedWhenANotifierThrows)
{
    FunctionNotifier thrower([](void*) { throw std::runtime_error("enough"); });
    m_event->registerInterest(&thrower, 2);
    EXPECT_THROW(m_event->notify(nullptr), std::runtime_error);
    EXPECT_EQ(countHeldLocks(), 0);
}

TEST_F(EventLock, LetsThreadsRegisterUnregisterAndNotifyAtOnce)
{
    constexpr int numRounds = 2000;
    constexpr int numThreads = 4;
    long numCalls = 0;  // guarded by the event's lock
    FunctionNotifier counter([&](void*) { ++numCalls; });
    m_event->registerInterest(&counter, 0);
    m_event->unregisterInterest(&m_a, 1);

    std::atomic<int> numFailed{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < numThreads; ++i)
    {
        threads.emplace_back(
            [&]
            {
                FunctionNotifier own([](void*) {});
                for (int round = 0; round < numRounds; ++round)
                {
                    m_event->registerInterest(&own, round % 3 - 1);
                    m_event->notify(nullptr);
                    numFailed += m_event->unregisterInterest(&own, round % 3 - 1) ? 0 : 1;
                }
            });
    }
    for (std::thread& thread : threads)
    {
        thread.join();
    }
    EXPECT_EQ(numCalls, numRounds * numThreads);
    EXPECT_EQ(numFailed, 0);
}

}  // namespace
