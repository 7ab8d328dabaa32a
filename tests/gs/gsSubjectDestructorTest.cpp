// Subjects in their destructors, while application code runs: the ends of updaters, and strategies
// that are told.
//
// - calls are refused with a line each, and nothing else happens
// - observers end
//
// Most of these are clean on a naive version without AddressSanitizer.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include <utils/flagTraceStrategy.h>
#include <utils/gsFlags.h>
#include <utils/gsSubject.h>

#include "err/RecordingStrategy.h"
#include "gs/Actors.h"
#include "gs/CoutCapture.h"
#include "support/ConfigDirectory.h"

namespace
{

using test::CoutCapture;
using test::Observer;
using test::RecordingErrStrategy;
using test::Subject;
using testing::IsEmpty;
using utils::Gs_Aspect;
using utils::Gs_Observer;
using utils::Gs_Subject;

class GsSubjectDestructor : public testing::Test
{
  protected:
    static std::string subjectsOf(const Gs_Observer& observer)
    {
        std::ostringstream os;
        observer.output(os);
        return os.str();
    }

    const test::ConfigDirectory m_config;
    const RecordingErrStrategy m_errors;
    Gs_Aspect m_level{"Level"};
    Gs_Aspect m_phase{"Phase"};
};

// Runs an action when it ends, as an updater does while its subject is in its destructor.
class EndingUpdater : public Gs_Observer
{
  public:
    explicit EndingUpdater(std::function<void()> action) : m_action(std::move(action)) {}
    ~EndingUpdater() override { m_action(); }

  private:
    std::function<void()> m_action;
};

std::string printedInDestructor(const std::function<void(Gs_Subject&)>& action)
{
    const CoutCapture cout;
    Observer observer("o");
    auto subject = std::make_unique<Subject>("mixer");
    Subject* const subjectPtr = subject.get();
    Gs_Aspect aspect("Level");
    subject->insertObserver(&observer, &aspect, 1, new EndingUpdater([&] { action(*subjectPtr); }));
    subject.reset();
    return cout.getText();
}

TEST_F(GsSubjectDestructor, CallsAreRefused)
{
    const RecordingErrStrategy errors;
    Observer observer("o");
    const std::string text = printedInDestructor(
        [&](Gs_Subject& subject)
        {
            // The virtual operations of a derived class are gone already.
            subject.notify(&m_level);
            subject.attach(&observer, &m_level, 1);
            subject.attach(&observer, &Observer::react, &m_level, 1);
            subject.detach(&observer, &m_level, 1);
            subject.detachFirst(&observer);
            subject.detachAll(&observer);
            subject.detachAll();
            subject.insertObserver(&observer, &m_level, 1, nullptr);
            subject.eraseObserver(&observer, &m_level, 1);
            EXPECT_FALSE(subject.isObserverAttached(&observer, &m_level, 1));
        });
    EXPECT_EQ(
        text,
        "************* ERROR: Calling notify() for subject 'N5utils10Gs_SubjectE' when in "
        "destructor!!!\n"
        "************* ERROR: Calling attach() for subject 'N5utils10Gs_SubjectE' when in "
        "destructor!!!\n"
        "************* ERROR: Calling attach() for subject 'N5utils10Gs_SubjectE' when in "
        "destructor!!!\n"
        "************* ERROR: Calling detach() for subject 'N5utils10Gs_SubjectE' when in "
        "destructor!!!\n"
        "************* ERROR: Calling detachFirst() for subject 'N5utils10Gs_SubjectE' when in "
        "destructor!!!\n"
        "************* ERROR: Calling detachAll() for subject 'N5utils10Gs_SubjectE' when in "
        "destructor!!!\n"
        "************* ERROR: Calling detachAll() for subject 'N5utils10Gs_SubjectE' when in "
        "destructor!!!\n"
        "************* ERROR: Calling insertObserver() for subject 'N5utils10Gs_SubjectE' when in "
        "destructor!!!\n"
        "************* ERROR: Calling eraseObserver() for subject 'N5utils10Gs_SubjectE' when in "
        "destructor!!!\n"
        "************* ERROR: Calling isObserverAttached() for subject 'N5utils10Gs_SubjectE' when "
        "in destructor!!!\n");
    EXPECT_THAT(errors.getTexts(), IsEmpty());
    EXPECT_EQ(observer.m_numUpdates, 0);
}

TEST_F(GsSubjectDestructor, NullsAreOnlyRefused)
{
    const RecordingErrStrategy errors;
    EXPECT_EQ(printedInDestructor([](Gs_Subject& subject) { subject.notify(nullptr); }),
              "************* ERROR: Calling notify() for subject 'N5utils10Gs_SubjectE' when in "
              "destructor!!!\n");
    EXPECT_THAT(errors.getTexts(), IsEmpty());
}

// A loop until the subject is gone from the set would not end, since the subject refuses; without
// care, the subject later tells the observer that has ended.
TEST_F(GsSubjectDestructor, ObserverEnds)
{
    const CoutCapture cout;
    auto ending = std::make_unique<Observer>("ending");
    Observer observer("o");
    {
        Subject subject("short");
        subject.insertObserver(&observer, &m_level, 1, new EndingUpdater([&] { ending.reset(); }));
        subject.attach(ending.get(), &m_level, 2);
        subject.attach(ending.get(), &m_level, 3);
        subject.attach(&observer, &m_level, 4);
    }
    EXPECT_EQ(subjectsOf(observer), "Observer (o)    Subject --none-- ");
    EXPECT_EQ(cout.getText(),
              "************* ERROR: Calling detachFirst() for subject 'N5utils10Gs_SubjectE' when "
              "in destructor!!!\n");
}

TEST_F(GsSubjectDestructor, ObserverEndsWithItsOwnUpdater)
{
    const CoutCapture cout;
    auto ending = std::make_unique<Observer>("ending");
    {
        Subject subject("short");
        subject.insertObserver(ending.get(), &m_level, 1,
                               new EndingUpdater([&] { ending.reset(); }));
    }
    EXPECT_EQ(ending, nullptr);
    EXPECT_EQ(cout.getText(), "");
}

TEST_F(GsSubjectDestructor, ObserverWithSeveralAttachmentsEndsWithItsFirstUpdater)
{
    const CoutCapture cout;
    utils::Std_Singleton<utils::flag::Gs_Flags>::getInstancePtr()->m_traceUpdateSteps.setValue(2);
    auto ending = std::make_unique<Observer>("ending");
    {
        Subject subject("short");
        subject.insertObserver(ending.get(), &m_level, 1,
                               new EndingUpdater([&] { ending.reset(); }));
        subject.attach(ending.get(), &m_level, 2);
        subject.attach(ending.get(), &m_level, 1);
    }
    EXPECT_EQ(ending, nullptr);
}

// Ends observers when told that a subject ends.
class Ending : public utils::flag::Flag_TraceStrategy
{
  public:
    explicit Ending(std::vector<std::unique_ptr<Observer>>& observers)
        : Flag_TraceStrategy("Ending"), m_observers(observers)
    {
    }
    bool isInterested(const utils::flag::Flag_TraceMsg&) override { return true; }
    void processTrace(const utils::flag::Flag_TraceMsg& traceMsg) override
    {
        if (traceMsg.getString().find("Destructing Gs_Subject") != std::string::npos)
        {
            m_observers.clear();
        }
    }

  private:
    std::vector<std::unique_ptr<Observer>>& m_observers;
};

TEST_F(GsSubjectDestructor, ObserversEndWhenItIsTraced)
{
    const CoutCapture cout;
    utils::Std_Singleton<utils::flag::Gs_Flags>::getInstancePtr()->m_traceSubjectSteps.setValue(2);
    std::vector<std::unique_ptr<Observer>> observers;
    const Ending strategy(observers);
    observers.push_back(std::make_unique<Observer>("first"));
    observers.push_back(std::make_unique<Observer>("second"));
    {
        Subject subject("short");
        subject.attach(observers[0].get(), &m_level, 1);
        subject.attach(observers[1].get(), &m_level, 1);
        subject.attach(observers[0].get(), &m_phase, 1);
    }
    EXPECT_EQ(cout.getText(),
              "************* ERROR: Calling detachFirst() for subject 'N5utils10Gs_SubjectE' when "
              "in destructor!!!\n"
              "************* ERROR: Calling detachFirst() for subject 'N5utils10Gs_SubjectE' when "
              "in destructor!!!\n");
}

}  // namespace
