// What events report.
//
// - a null notifier: NullPtr, severity ERROR, and the end of the process with exit status 1, before
//   anything is traced
// - unregistering from an event without registrations, or whose last one was removed
// - unregistering another notifier, or at another priority
// - the place that each report names

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include <utils/observer/Event.h>
#include <utils/observer/Flags.h>

#include "observer/Notifiers.h"
#include "support/ConfigDirectory.h"
#include "support/RecordingErrorStrategy.h"

namespace
{

using test::JournalNotifier;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using utils::error::Error;
using utils::observer::Event;
using utils::observer::Flags;
using utils::singleton::SingletonT;

std::string address(const void* pointer)
{
    std::ostringstream text;
    text << pointer;
    return text.str();
}

class EventError : public testing::Test
{
  protected:
    const test::ConfigDirectory m_emptyConfiguration;
    std::vector<std::string> m_journal;
    JournalNotifier m_a{"a", m_journal};
    JournalNotifier m_b{"b", m_journal};
    Event m_event;
};

TEST_F(EventError, NameIsNotifierNotRegistered)
{
    EXPECT_EQ(Event::NOT_REGISTERED, "NotifierNotRegistered");
}

TEST_F(EventError, RegisteringNullEndsTheProcess)
{
    EXPECT_EXIT(m_event.registerInterest(nullptr, 1), testing::ExitedWithCode(1),
                "^!ERROR: NullPtr by [^\n]*\n"
                "Generated from generic/utils/src/observer/src/Event/58/registerInterest:\n"
                "Null pointer \\(notifierPtr\\) passed to Event::registerInterest\\.\n$");
}

TEST_F(EventError, UnregisteringNullEndsTheProcess)
{
    EXPECT_EXIT(m_event.unregisterInterest(nullptr, 1), testing::ExitedWithCode(1),
                "^!ERROR: NullPtr by [^\n]*\n"
                "Generated from generic/utils/src/observer/src/Event/98/unregisterInterest:\n"
                "Null pointer \\(notifierPtr\\) passed to Event::unregisterInterest\\.\n$");
}

TEST_F(EventError, UnregisteringNullEndsTheProcessAlsoWithTheLockHeld)
{
    m_event.enableLock();
    m_event.registerInterest(&m_a, 1);
    EXPECT_EXIT(m_event.unregisterInterest(nullptr, 1), testing::ExitedWithCode(1),
                "Null pointer \\(notifierPtr\\) passed to Event::unregisterInterest\\.\n$");
}

// The default strategies write traces and errors to the same stream.
TEST_F(EventError, RegisteringOrUnregisteringNullIsNotTraced)
{
    m_event.registerInterest(&m_a, 1);
    SingletonT<Flags>::getInstancePtr()->m_traceSteps.setValue(2);
    EXPECT_EXIT(m_event.registerInterest(nullptr, 1), testing::ExitedWithCode(1),
                "^!ERROR: [^\n]*\n[^\n]*\n"
                "Null pointer \\(notifierPtr\\) passed to Event::registerInterest\\.\n$");
    EXPECT_EXIT(m_event.unregisterInterest(nullptr, 1), testing::ExitedWithCode(1),
                "^!ERROR: [^\n]*\n[^\n]*\n"
                "Null pointer \\(notifierPtr\\) passed to Event::unregisterInterest\\.\n$");
    SingletonT<Flags>::getInstancePtr()->m_traceSteps.setValue(0);
}

TEST_F(EventError, UnregisteringWithoutAnyRegistration)
{
    test::RecordingErrorStrategy errors;
    EXPECT_FALSE(m_event.unregisterInterest(&m_a, -7));
    ASSERT_THAT(errors.getReports(), SizeIs(1));
    const test::ErrorReport report = errors.getReports()[0];
    EXPECT_EQ(report.name, "NotifierNotRegistered");
    EXPECT_EQ(report.severity, Error::ERROR);
    EXPECT_EQ(report.getLocation(), "generic/utils/src/observer/src/Event/104/unregisterInterest");
    EXPECT_EQ(report.getWords(), "No notifiers have been registered for this event (" +
                                     address(&m_event) + ") - can not unregister notifier " +
                                     address(&m_a) + " at priority = -7.");
}

TEST_F(EventError, UnregisteringAfterTheLastRegistrationWasRemoved)
{
    test::RecordingErrorStrategy errors;
    m_event.registerInterest(&m_a, 1);
    EXPECT_TRUE(m_event.unregisterInterest(&m_a, 1));
    EXPECT_THAT(errors.getReports(), IsEmpty());
    EXPECT_FALSE(m_event.unregisterInterest(&m_a, 1));
    EXPECT_THAT(
        errors.getWords(),
        ElementsAre("No notifiers have been registered for this event (" + address(&m_event) +
                    ") - can not unregister notifier " + address(&m_a) + " at priority = 1."));
}

TEST_F(EventError, UnregisteringAtAnotherPriority)
{
    test::RecordingErrorStrategy errors;
    m_event.registerInterest(&m_a, 1);
    EXPECT_FALSE(m_event.unregisterInterest(&m_a, 2));
    ASSERT_THAT(errors.getReports(), SizeIs(1));
    const test::ErrorReport report = errors.getReports()[0];
    EXPECT_EQ(report.name, "NotifierNotRegistered");
    EXPECT_EQ(report.severity, Error::ERROR);
    EXPECT_EQ(report.getLocation(), "generic/utils/src/observer/src/Event/135/unregisterInterest");
    EXPECT_EQ(report.getWords(), "Notifier " + address(&m_a) +
                                     " has not registered with this event (" + address(&m_event) +
                                     ") at priority = 2.");

    m_event.notify(nullptr);
    EXPECT_THAT(m_journal, ElementsAre("a"));
}

TEST_F(EventError, UnregisteringAnotherNotifierAtThatPriority)
{
    test::RecordingErrorStrategy errors;
    m_event.registerInterest(&m_a, 1);
    EXPECT_FALSE(m_event.unregisterInterest(&m_b, 1));
    EXPECT_THAT(errors.getWords(),
                ElementsAre("Notifier " + address(&m_b) + " has not registered with this event (" +
                            address(&m_event) + ") at priority = 1."));

    m_event.notify(nullptr);
    EXPECT_THAT(m_journal, ElementsAre("a"));
}

}  // namespace
