// Events and their notifiers.
//
// - notify() hands its data pointer, null included, to every registered notifier
// - the lowest priority is called first; equal priorities in the order of registration
// - every registration is called, also several of one notifier, at one priority or at several
// - an unregistration removes the earliest registration of that notifier at that priority, no more
// - an event without registrations calls nobody, and so does one whose last one was removed
// - an event whose last registration was removed takes new ones
// - an event is destroyed with registrations left; it never deletes notifiers
// - an event has no lock until enableLock(), then for good
// - the order is right whatever was registered and unregistered before
// - events are not copyable; events and notifiers have virtual destructors

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <list>
#include <optional>
#include <random>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

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
using utils::observer::Notifier;

class EventNotification : public testing::Test
{
  protected:
    const test::ConfigDirectory m_emptyConfiguration;
    std::vector<std::string> m_journal;
    JournalNotifier m_a{"a", m_journal};
    JournalNotifier m_b{"b", m_journal};
    JournalNotifier m_c{"c", m_journal};
    JournalNotifier m_d{"d", m_journal};
    Event m_event;
};

TEST_F(EventNotification, HandsTheDataPointerOn)
{
    int data = 0;
    void* received = nullptr;
    FunctionNotifier notifier([&](void* pointer) { received = pointer; });
    m_event.registerInterest(&notifier, 0);
    m_event.notify(&data);
    EXPECT_EQ(received, &data);
    m_event.notify(nullptr);
    EXPECT_EQ(received, nullptr);
}

TEST_F(EventNotification, CallsInAscendingPriorityThenInOrderOfRegistration)
{
    m_event.registerInterest(&m_a, 5);
    m_event.registerInterest(&m_b, -1);
    m_event.registerInterest(&m_c, 5);
    m_event.registerInterest(&m_d, 0);
    m_event.notify(nullptr);
    EXPECT_THAT(m_journal, ElementsAre("b", "d", "a", "c"));
}

TEST_F(EventNotification, TakesTheExtremePriorities)
{
    m_event.registerInterest(&m_a, 2147483647);
    m_event.registerInterest(&m_b, 0);
    m_event.registerInterest(&m_c, -2147483647 - 1);
    m_event.notify(nullptr);
    EXPECT_THAT(m_journal, ElementsAre("c", "b", "a"));
    EXPECT_TRUE(m_event.unregisterInterest(&m_a, 2147483647));
    EXPECT_TRUE(m_event.unregisterInterest(&m_c, -2147483647 - 1));
}

TEST_F(EventNotification, CallsEveryRegistrationOfOneNotifier)
{
    m_event.registerInterest(&m_a, 1);
    m_event.registerInterest(&m_b, 1);
    m_event.registerInterest(&m_a, 1);
    m_event.registerInterest(&m_a, 0);
    m_event.notify(nullptr);
    EXPECT_THAT(m_journal, ElementsAre("a", "a", "b", "a"));
}

TEST_F(EventNotification, UnregistersOnlyTheEarliestRegistrationAtThatPriority)
{
    m_event.registerInterest(&m_a, 1);
    m_event.registerInterest(&m_b, 1);
    m_event.registerInterest(&m_a, 1);
    m_event.registerInterest(&m_a, 0);
    EXPECT_TRUE(m_event.unregisterInterest(&m_a, 1));
    m_event.notify(nullptr);
    EXPECT_THAT(m_journal, ElementsAre("a", "b", "a"));
}

TEST_F(EventNotification, CallsNobodyWithoutRegistrations)
{
    m_event.notify(nullptr);
    m_event.registerInterest(&m_a, 1);
    EXPECT_TRUE(m_event.unregisterInterest(&m_a, 1));
    m_event.notify(nullptr);
    EXPECT_THAT(m_journal, IsEmpty());
}

TEST_F(EventNotification, TakesRegistrationsAgainAfterTheLastWasRemoved)
{
    m_event.registerInterest(&m_a, 1);
    EXPECT_TRUE(m_event.unregisterInterest(&m_a, 1));
    m_event.registerInterest(&m_b, 1);
    m_event.notify(nullptr);
    EXPECT_THAT(m_journal, ElementsAre("b"));
}

TEST_F(EventNotification, NeverDeletesNotifiers)
{
    std::optional<Event> event(std::in_place);
    event->registerInterest(&m_a, 1);
    event->registerInterest(&m_b, 1);
    event->unregisterInterest(&m_b, 1);
    event.reset();
    m_a.notify(nullptr);
    m_b.notify(nullptr);
    EXPECT_THAT(m_journal, ElementsAre("a", "b"));
}

TEST_F(EventNotification, WorksTheSameWithALock)
{
    m_event.enableLock();
    m_event.registerInterest(&m_a, 2);
    m_event.registerInterest(&m_b, 1);
    m_event.notify(nullptr);
    EXPECT_TRUE(m_event.unregisterInterest(&m_b, 1));
    m_event.notify(nullptr);
    EXPECT_THAT(m_journal, ElementsAre("b", "a", "a"));
}

TEST_F(EventNotification, HasALockOnlyOnceEnabledAndThenForGood)
{
    EXPECT_FALSE(m_event.isLockEnabled());
    m_event.enableLock();
    EXPECT_TRUE(m_event.isLockEnabled());
    m_event.enableLock();
    EXPECT_TRUE(m_event.isLockEnabled());
}

// Against a list that is kept in order by inserting behind all that are not higher.
TEST_F(EventNotification, KeepsTheOrderThroughRandomRegistrations)
{
    struct Registration
    {
        JournalNotifier* notifierPtr;
        std::string name;
        int priority;
    };
    std::list<Registration> expected;
    std::mt19937 random(19720302);
    const auto pick = [&](int count)
    { return std::uniform_int_distribution(0, count - 1)(random); };
    const std::vector<std::pair<JournalNotifier*, std::string>> notifiers{
        {&m_a, "a"}, {&m_b, "b"}, {&m_c, "c"}, {&m_d, "d"}};

    for (int i = 0; i < 5000; ++i)
    {
        const auto& [notifierPtr, name] = notifiers[static_cast<std::size_t>(pick(4))];
        const int priority = pick(5) - 2;
        const auto isSame = [&, wanted = notifierPtr](const Registration& registration)
        { return registration.notifierPtr == wanted && registration.priority == priority; };
        const auto found = std::find_if(expected.begin(), expected.end(), isSame);
        if (found != expected.end() && pick(5) < 3)
        {
            ASSERT_TRUE(m_event.unregisterInterest(notifierPtr, priority));
            expected.erase(found);
        }
        else
        {
            m_event.registerInterest(notifierPtr, priority);
            const auto behind =
                std::find_if(expected.begin(), expected.end(),
                             [&](const auto& other) { return other.priority > priority; });
            expected.insert(behind, {notifierPtr, name, priority});
        }

        std::vector<std::string> names;
        for (const Registration& registration : expected)
        {
            names.push_back(registration.name);
        }
        m_journal.clear();
        m_event.notify(nullptr);
        ASSERT_EQ(m_journal, names);
    }
}

TEST(EventType, IsNotCopyable)
{
    EXPECT_FALSE(std::is_copy_constructible_v<Event>);
    EXPECT_FALSE(std::is_copy_assignable_v<Event>);
}

TEST(EventType, HasVirtualDestructors)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<Event>);
    EXPECT_TRUE(std::has_virtual_destructor_v<Notifier>);
    EXPECT_TRUE(std::is_abstract_v<Notifier>);
}

}  // namespace
