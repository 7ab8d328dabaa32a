// What notifiers may do to the event that calls them.
//
// - unregister the registration that they are called for: the others are still called
// - unregister the last registration: the walk ends
// - unregister all, also those still to come: the walk ends
// - unregister and register again as the only notifier: the walk ends, the next one calls it
// - register: called by the same walk when the turn is still to come, not when it is over
// - register behind themselves as the last one: the walk was at its end, the next one calls it
// - notify the event again
// - throw: the exception is passed on, those behind are not called, the event stays usable
// - all of this also with a lock, when the platform's mutex is recursive

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include <utils/observer/Event.h>

#include "observer/Notifiers.h"
#include "support/ConfigDirectory.h"

namespace
{

using test::FunctionNotifier;
using test::JournalNotifier;
using testing::ElementsAre;
using testing::IsEmpty;
using utils::observer::Event;

class EventReentry : public testing::TestWithParam<bool>
{
  protected:
    EventReentry()
    {
        if (GetParam())
        {
            m_event.enableLock();
        }
    }

    // Has the event notify; what the notifiers wrote into the journal.
    std::vector<std::string> notify()
    {
        m_journal.clear();
        m_event.notify(nullptr);
        return m_journal;
    }

    const test::ConfigDirectory m_emptyConfiguration;
    Event m_event;
    std::vector<std::string> m_journal;
    JournalNotifier m_a{"a", m_journal};
    JournalNotifier m_z{"z", m_journal};
};

INSTANTIATE_TEST_SUITE_P(LockedOrNot, EventReentry, testing::Bool(),
                         [](const auto& lock) { return lock.param ? "WithLock" : "WithoutLock"; });

TEST_P(EventReentry, ANotifierMayUnregisterItself)
{
    FunctionNotifier once(
        [&](void*)
        {
            m_journal.push_back("once");
            EXPECT_TRUE(m_event.unregisterInterest(&once, 1));
        });
    m_event.registerInterest(&m_a, 1);
    m_event.registerInterest(&once, 1);
    m_event.registerInterest(&m_z, 1);
    EXPECT_THAT(notify(), ElementsAre("a", "once", "z"));
    EXPECT_THAT(notify(), ElementsAre("a", "z"));
}

TEST_P(EventReentry, ANotifierMayUnregisterOneThatWasCalledBefore)
{
    FunctionNotifier remover(
        [&](void*)
        {
            m_journal.push_back("remover");
            EXPECT_TRUE(m_event.unregisterInterest(&m_a, 0));
        });
    m_event.registerInterest(&m_a, 0);
    m_event.registerInterest(&remover, 1);
    m_event.registerInterest(&m_z, 2);
    EXPECT_THAT(notify(), ElementsAre("a", "remover", "z"));
}

TEST_P(EventReentry, TheOnlyNotifierMayUnregisterItself)
{
    FunctionNotifier once([&](void*) { EXPECT_TRUE(m_event.unregisterInterest(&once, 1)); });
    m_event.registerInterest(&once, 1);
    EXPECT_THAT(notify(), IsEmpty());
    EXPECT_THAT(notify(), IsEmpty());
}

TEST_P(EventReentry, ANotifierMayUnregisterAllAlsoThoseStillToCome)
{
    FunctionNotifier remover(
        [&](void*)
        {
            m_journal.push_back("remover");
            EXPECT_TRUE(m_event.unregisterInterest(&m_a, 2));
            EXPECT_TRUE(m_event.unregisterInterest(&m_z, 3));
            EXPECT_TRUE(m_event.unregisterInterest(&remover, 1));
        });
    m_event.registerInterest(&remover, 1);
    m_event.registerInterest(&m_a, 2);
    m_event.registerInterest(&m_z, 3);
    EXPECT_THAT(notify(), ElementsAre("remover"));
    EXPECT_THAT(notify(), IsEmpty());
}

TEST_P(EventReentry, TheOnlyNotifierMayUnregisterAndRegisterAgain)
{
    FunctionNotifier again(
        [&](void*)
        {
            m_journal.push_back("again");
            EXPECT_TRUE(m_event.unregisterInterest(&again, 1));
            m_event.registerInterest(&again, 1);
        });
    m_event.registerInterest(&again, 1);
    EXPECT_THAT(notify(), ElementsAre("again"));
    EXPECT_THAT(notify(), ElementsAre("again"));
}

TEST_P(EventReentry, TheLastToBeCalledMayReplaceAllRegistrations)
{
    FunctionNotifier replacer(
        [&](void*)
        {
            m_journal.push_back("replacer");
            EXPECT_TRUE(m_event.unregisterInterest(&m_a, 1));
            EXPECT_TRUE(m_event.unregisterInterest(&replacer, 2));
            m_event.registerInterest(&m_z, 3);
        });
    m_event.registerInterest(&m_a, 1);
    m_event.registerInterest(&replacer, 2);
    EXPECT_THAT(notify(), ElementsAre("a", "replacer"));
    EXPECT_THAT(notify(), ElementsAre("z"));
}

TEST_P(EventReentry, ARegistrationWhoseTurnIsToComeIsCalledByTheSameWalk)
{
    FunctionNotifier adder([&](void*) { m_event.registerInterest(&m_a, 2); });
    m_event.registerInterest(&adder, 1);
    m_event.registerInterest(&m_z, 2);
    EXPECT_THAT(notify(), ElementsAre("z", "a"));
}

TEST_P(EventReentry, ARegistrationWhoseTurnIsOverIsCalledByTheNextWalk)
{
    FunctionNotifier adder(
        [&](void*)
        {
            m_event.unregisterInterest(&adder, 1);
            m_event.registerInterest(&m_a, 0);
        });
    m_event.registerInterest(&adder, 1);
    m_event.registerInterest(&m_z, 2);
    EXPECT_THAT(notify(), ElementsAre("z"));
    EXPECT_THAT(notify(), ElementsAre("a", "z"));
}

// The position is taken before the call.
TEST_P(EventReentry, ARegistrationRightBehindTheOneCalledWaitsForTheNextWalk)
{
    FunctionNotifier adder(
        [&](void*)
        {
            m_event.unregisterInterest(&adder, 1);
            m_event.registerInterest(&m_a, 1);
        });
    m_event.registerInterest(&adder, 1);
    m_event.registerInterest(&m_z, 2);
    EXPECT_THAT(notify(), ElementsAre("z"));
    EXPECT_THAT(notify(), ElementsAre("a", "z"));
}

TEST_P(EventReentry, ARegistrationBehindTheLastOneWaitsForTheNextWalk)
{
    bool isAdded = false;
    FunctionNotifier adder(
        [&](void*)
        {
            if (!isAdded)
            {
                m_event.registerInterest(&m_a, 9);
                isAdded = true;
            }
        });
    m_event.registerInterest(&adder, 1);
    EXPECT_THAT(notify(), IsEmpty());
    EXPECT_THAT(notify(), ElementsAre("a"));
}

TEST_P(EventReentry, ANotifierMayNotifyAgain)
{
    int depth = 0;
    FunctionNotifier nested(
        [&](void*)
        {
            if (++depth < 3)
            {
                m_event.notify(nullptr);
            }
        });
    m_event.registerInterest(&nested, 1);
    m_event.registerInterest(&m_z, 2);
    EXPECT_THAT(notify(), ElementsAre("z", "z", "z"));
}

TEST_P(EventReentry, AnExceptionIsPassedOnAndTheEventStaysUsable)
{
    bool isThrowing = true;
    FunctionNotifier thrower(
        [&](void*)
        {
            if (isThrowing)
            {
                throw std::runtime_error("enough");
            }
        });
    m_event.registerInterest(&m_a, 1);
    m_event.registerInterest(&thrower, 2);
    m_event.registerInterest(&m_z, 3);
    EXPECT_THROW(notify(), std::runtime_error);
    EXPECT_THAT(m_journal, ElementsAre("a"));

    isThrowing = false;
    EXPECT_THAT(notify(), ElementsAre("a", "z"));
}

}  // namespace
