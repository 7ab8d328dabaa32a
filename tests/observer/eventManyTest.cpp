// Events with thousands of registrations.
//
// - they are unregistered in any order; those that are left are called in theirs
// - each priority has one, or all have the same, or some do
// - of many registrations of one notifier at one priority, the earliest goes
// - what is not registered is not found among them
// - neither registering nor unregistering searches them one by one

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <vector>

#include <utils/observer/Event.h>

#include "support/ConfigDirectory.h"
#include "support/RecordingErrorStrategy.h"

namespace
{

using utils::observer::Event;
using utils::observer::Notifier;

class NumberedNotifier : public Notifier
{
  public:
    void notify(void* data) override { static_cast<std::vector<int>*>(data)->push_back(m_number); }

    int m_number = 0;
};

class EventMany : public testing::Test
{
  protected:
    static constexpr int COUNT = 10'000;

    EventMany() : m_notifiers(COUNT)
    {
        for (int i = 0; i < COUNT; ++i)
        {
            m_notifiers[static_cast<std::size_t>(i)].m_number = i;
        }
    }

    Notifier* notifierPtr(int number) { return &m_notifiers[static_cast<std::size_t>(number)]; }

    std::vector<int> notify()
    {
        std::vector<int> called;
        m_event.notify(&called);
        return called;
    }

    // In the order of registration, in reverse and at random.
    void fillAndEmpty(const std::vector<int>& priorities)
    {
        std::vector<int> removals(COUNT);
        std::iota(removals.begin(), removals.end(), 0);
        ASSERT_NO_FATAL_FAILURE(fillAndEmpty(priorities, removals));
        std::reverse(removals.begin(), removals.end());
        ASSERT_NO_FATAL_FAILURE(fillAndEmpty(priorities, removals));
        std::shuffle(removals.begin(), removals.end(), m_random);
        ASSERT_NO_FATAL_FAILURE(fillAndEmpty(priorities, removals));
    }

    // Registers all, unregisters all, and looks now and then at who is called.
    void fillAndEmpty(const std::vector<int>& priorities, const std::vector<int>& removals)
    {
        const auto priorityOf = [&](int number)
        { return priorities[static_cast<std::size_t>(number)]; };
        std::vector<int> expected(COUNT);
        std::iota(expected.begin(), expected.end(), 0);
        std::stable_sort(expected.begin(), expected.end(),
                         [&](int a, int b) { return priorityOf(a) < priorityOf(b); });
        for (int number = 0; number < COUNT; ++number)
        {
            m_event.registerInterest(notifierPtr(number), priorityOf(number));
        }
        ASSERT_EQ(notify(), expected);

        int numRemoved = 0;
        std::vector<bool> isRemoved(COUNT);
        for (const int number : removals)
        {
            ASSERT_TRUE(m_event.unregisterInterest(notifierPtr(number), priorityOf(number)));
            isRemoved[static_cast<std::size_t>(number)] = true;
            if (++numRemoved % 500 == 0 || COUNT - numRemoved < 20)
            {
                std::erase_if(expected,
                              [&](int left) { return isRemoved[static_cast<std::size_t>(left)]; });
                ASSERT_EQ(notify(), expected);
            }
        }
        EXPECT_THAT(m_errors.getReports(), testing::IsEmpty());
    }

    const test::ConfigDirectory m_emptyConfiguration;
    test::RecordingErrorStrategy m_errors;
    std::mt19937 m_random{19991231};
    std::vector<NumberedNotifier> m_notifiers;
    Event m_event;
};

TEST_F(EventMany, RegistrationsOfOnePriority)
{
    fillAndEmpty(std::vector<int>(COUNT, -3));
}

TEST_F(EventMany, RegistrationsOfAPriorityEach)
{
    std::vector<int> priorities(COUNT);
    std::iota(priorities.begin(), priorities.end(), -COUNT / 2);
    std::shuffle(priorities.begin(), priorities.end(), m_random);
    fillAndEmpty(priorities);
}

TEST_F(EventMany, RegistrationsOfAFewPriorities)
{
    std::vector<int> priorities(COUNT);
    std::generate(priorities.begin(), priorities.end(),
                  [&] { return std::uniform_int_distribution(-5, 5)(m_random); });
    fillAndEmpty(priorities);
}

TEST_F(EventMany, OfOneNotifierTheEarliestGoes)
{
    constexpr int numRounds = 100;
    for (int round = 0; round < numRounds; ++round)
    {
        m_event.registerInterest(notifierPtr(1), 0);
        m_event.registerInterest(notifierPtr(2), 0);
    }
    for (int round = 0; round < numRounds; ++round)
    {
        EXPECT_TRUE(m_event.unregisterInterest(notifierPtr(1), 0));
        std::vector<int> expected(static_cast<std::size_t>(round) + 1, 2);
        for (int left = round + 1; left < numRounds; ++left)
        {
            expected.insert(expected.end(), {1, 2});
        }
        ASSERT_EQ(notify(), expected);
    }
    EXPECT_TRUE(m_event.unregisterInterest(notifierPtr(2), 0));
    EXPECT_EQ(notify(), std::vector<int>(numRounds - 1, 2));
}

TEST_F(EventMany, WhatIsNotRegisteredIsNotFound)
{
    for (int number = 0; number < COUNT - 1; ++number)
    {
        m_event.registerInterest(notifierPtr(number), number % 7);
    }
    EXPECT_FALSE(m_event.unregisterInterest(notifierPtr(COUNT - 1), 0));
    EXPECT_FALSE(m_event.unregisterInterest(notifierPtr(7), 1));
    EXPECT_TRUE(m_event.unregisterInterest(notifierPtr(7), 0));
    EXPECT_FALSE(m_event.unregisterInterest(notifierPtr(7), 0));
    EXPECT_THAT(m_errors.getReports(), testing::SizeIs(3));
    EXPECT_THAT(notify(), testing::SizeIs(COUNT - 2));
}

// A search one by one would take minutes.
TEST_F(EventMany, AreNotSearchedOneByOne)
{
    constexpr int count = 300'000;
    std::vector<NumberedNotifier> notifiers(count);
    for (NumberedNotifier& notifier : notifiers)
    {
        m_event.registerInterest(&notifier, 0);
    }
    for (int i = 0; i < count; ++i)
    {
        m_event.registerInterest(notifierPtr(0), 0);
    }
    for (auto notifier = notifiers.rbegin(); notifier != notifiers.rend(); ++notifier)
    {
        ASSERT_TRUE(m_event.unregisterInterest(&*notifier, 0));
    }
    EXPECT_THAT(notify(), testing::SizeIs(count));
    for (int i = 0; i < count; ++i)
    {
        ASSERT_TRUE(m_event.unregisterInterest(notifierPtr(0), 0));
    }
}

}  // namespace
