// What events trace.
//
// - level 1: creation, destruction, registration, unregistration; level 2: notification
// - the number of notifiers called, 0 included
// - a failed unregistration: nothing without registrations; its step, then the error, otherwise
// - the flag, the level and the place that the full header names
// - nothing below the level, nothing while the master switch is off

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <sstream>

#include <utils/flag/Flags.h>
#include <utils/observer/Event.h>
#include <utils/observer/Flags.h>

#include "observer/Notifiers.h"
#include "support/ConfigDirectory.h"
#include "support/RecordingErrorStrategy.h"
#include "support/RecordingTraceStrategy.h"

namespace
{

using test::JournalNotifier;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::MatchesRegex;
using utils::observer::Event;
using utils::observer::Flags;
using utils::singleton::SingletonT;

std::string address(const void* pointer)
{
    std::ostringstream text;
    text << pointer;
    return text.str();
}

class EventTrace : public testing::Test
{
  protected:
    static void setLevel(int level)
    {
        SingletonT<Flags>::getInstancePtr()->m_traceSteps.setValue(level);
    }

    std::vector<std::string> takeWords()
    {
        std::vector<std::string> words = m_traces.getWords();
        m_traces.clear();
        return words;
    }

    const test::ConfigDirectory m_emptyConfiguration;
    test::RecordingTraceStrategy m_traces;
    test::RecordingErrorStrategy m_errors;
    std::vector<std::string> m_journal;
    JournalNotifier m_a{"a", m_journal};
    JournalNotifier m_b{"b", m_journal};
};

TEST_F(EventTrace, ShowsEveryStep)
{
    setLevel(2);
    std::optional<Event> event(std::in_place);
    const std::string self = address(&*event);
    EXPECT_THAT(takeWords(), ElementsAre("Creating an event (" + self + ")."));

    event->notify(nullptr);
    EXPECT_THAT(takeWords(),
                ElementsAre("An event (" + self + ") has occurred - notified 0 observers."));

    event->registerInterest(&m_a, 5);
    event->registerInterest(&m_b, -1);
    EXPECT_THAT(takeWords(), ElementsAre("Registering interest (event = " + self +
                                             ", notifier = " + address(&m_a) + ") at priority = 5.",
                                         "Registering interest (event = " + self + ", notifier = " +
                                             address(&m_b) + ") at priority = -1."));

    event->notify(nullptr);
    EXPECT_THAT(takeWords(),
                ElementsAre("An event (" + self + ") has occurred - notified 2 observers."));

    event->unregisterInterest(&m_b, -1);
    EXPECT_THAT(takeWords(), ElementsAre("Unregistering interest (event = " + self +
                                         ", notifier = " + address(&m_b) + ") at priority = -1."));

    event.reset();
    EXPECT_THAT(takeWords(), ElementsAre("Destroying an event (" + self + ")."));
}

TEST_F(EventTrace, ShowsTheUnregistrationOnlyWhenThereAreRegistrations)
{
    Event event;
    setLevel(1);
    event.unregisterInterest(&m_a, 1);
    EXPECT_THAT(takeWords(), IsEmpty());

    event.registerInterest(&m_a, 1);
    m_traces.clear();
    event.unregisterInterest(&m_a, 2);
    EXPECT_THAT(takeWords(), ElementsAre("Unregistering interest (event = " + address(&event) +
                                         ", notifier = " + address(&m_a) + ") at priority = 2."));
    EXPECT_THAT(m_errors.getReports(), testing::SizeIs(2));
}

// Writes the kinds of what arrives into a journal.
template <typename Object>
class KindWriter : public utils::strategy::StrategyT<Object>
{
  public:
    KindWriter(const char* kind, std::vector<std::string>& journal)
        : utils::strategy::StrategyT<Object>(kind, "Kinds", false), m_journal(journal)
    {
    }

    bool isInterested(const Object&) override { return true; }
    void processClientObject(Object&) override { m_journal.push_back(this->getType()); }

  private:
    std::vector<std::string>& m_journal;
};

TEST_F(EventTrace, ShowsTheUnregistrationBeforeItsError)
{
    Event event;
    event.registerInterest(&m_a, 1);
    setLevel(1);
    std::vector<std::string> kinds;
    const KindWriter<utils::flag::TraceMsg> traces("Trace", kinds);
    const KindWriter<utils::error::Error> errors("Error", kinds);
    event.unregisterInterest(&m_a, 2);
    EXPECT_THAT(kinds, ElementsAre("Trace", "Error"));
    setLevel(0);
}

TEST_F(EventTrace, NamesFlagLevelAndPlace)
{
    setLevel(2);
    SingletonT<utils::flag::Flags>::getInstancePtr()->m_enableTraceMsgHeaders.setValue(0);
    {
        Event event;
        event.registerInterest(&m_a, 1);
        event.notify(nullptr);
        event.unregisterInterest(&m_a, 1);
    }
    const std::string level1 = "!TRACE \\(Flags::m_traceSteps = 2; trace level = 1\\) by [^\n]*\n";
    const std::string level2 = "!TRACE \\(Flags::m_traceSteps = 2; trace level = 2\\) by [^\n]*\n";
    const std::string place = "Generated from generic/utils/src/observer/src/Event/";
    EXPECT_THAT(
        m_traces.getTexts(),
        ElementsAre(MatchesRegex(level1 + place + "17/Event:\nCreating an event [^\n]*"),
                    MatchesRegex(level1 + place + "64/registerInterest:\nRegistering [^\n]*"),
                    MatchesRegex(level2 + place + "193/notify:\nAn event [^\n]*"),
                    MatchesRegex(level1 + place + "111/unregisterInterest:\nUnregistering [^\n]*"),
                    MatchesRegex(level1 + place + "27/~Event:\nDestroying an event [^\n]*")));
}

TEST_F(EventTrace, LeavesNotificationsOutAtLevelOne)
{
    setLevel(1);
    Event event;
    m_traces.clear();
    event.notify(nullptr);
    EXPECT_THAT(takeWords(), IsEmpty());
}

TEST_F(EventTrace, IsOffByDefault)
{
    {
        Event event;
        event.registerInterest(&m_a, 1);
        event.notify(nullptr);
    }
    EXPECT_THAT(takeWords(), IsEmpty());
}

TEST_F(EventTrace, ObeysTheMasterSwitch)
{
    setLevel(2);
    SingletonT<utils::flag::Flags>::getInstancePtr()->m_enableTraceMsgs.setValue(false);
    {
        Event event;
        event.registerInterest(&m_a, 1);
        event.notify(nullptr);
    }
    EXPECT_THAT(takeWords(), IsEmpty());
}

}  // namespace
