// Subjects and observers that end, and updates that change what is being walked.
//
// - an observer with several attachments ends, or is detached once and then ends
// - an observer knows the subjects that hold an attachment of it, and only these
// - either side ends first, also an object that is both
// - an update detaches itself, others, all; ends its observer, others; attaches
// - an update destroys the subject, also from a nested notification
// - an update that throws
// - observers that end while their subject is in its destructor
// - attaching without memory
//
// Most of these are clean on a naive version without AddressSanitizer.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>
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
using test::Subject;
using testing::ElementsAre;
using utils::Gs_Aspect;
using utils::Gs_Observer;
using utils::Gs_Subject;

class GsSubjectLifetime : public testing::Test
{
  protected:
    static std::string subjectsOf(const Gs_Observer& observer)
    {
        std::ostringstream os;
        observer.output(os);
        return os.str();
    }

    const test::ConfigDirectory m_config;
    const test::RecordingErrStrategy m_errors;
    Gs_Aspect m_level{"Level"};
    Gs_Aspect m_phase{"Phase"};
    Subject m_subject{"mixer"};
};

TEST_F(GsSubjectLifetime, ObserverWithSeveralAttachmentsEnds)
{
    Observer other("other");
    {
        Observer observer("o");
        m_subject.attach(&observer, &m_level, 1);
        m_subject.attach(&observer, &m_level, 1);
        m_subject.attach(&observer, &m_level, 2);
        m_subject.attach(&observer, &m_phase, 1);
        m_subject.attach(&other, &m_phase, 1);
    }
    m_subject.notify(&m_level);
    m_subject.notify(&m_phase);
    EXPECT_EQ(other.m_numUpdates, 1);
}

TEST_F(GsSubjectLifetime, ObserverIsDetachedOnceAndEnds)
{
    {
        Observer observer("o");
        m_subject.attach(&observer, &m_level, 1);
        m_subject.attach(&observer, &m_phase, 1);
        m_subject.detach(&observer, &m_level, 1);
        EXPECT_EQ(subjectsOf(observer), "Observer (o)    Subject (mixer)");
    }
    m_subject.notify(&m_phase);
}

TEST_F(GsSubjectLifetime, ObserverOfSeveralSubjectsEnds)
{
    Subject other("other");
    {
        Observer observer("o");
        m_subject.attach(&observer, &m_level, 1);
        other.attach(&observer, &m_level, 1);
        other.attach(&observer, &m_phase, 1);
    }
    m_subject.notify(&m_level);
    other.notify(&m_level);
    other.notify(&m_phase);
}

TEST_F(GsSubjectLifetime, ObserverKnowsItsSubjects)
{
    Observer observer("o");
    EXPECT_EQ(subjectsOf(observer), "Observer (o)    Subject --none-- ");
    m_subject.attach(&observer, &m_level, 1);
    m_subject.attach(&observer, &m_level, 1);
    EXPECT_EQ(subjectsOf(observer), "Observer (o)    Subject (mixer)");
    m_subject.detach(&observer, &m_level, 1);
    EXPECT_EQ(subjectsOf(observer), "Observer (o)    Subject (mixer)");
    m_subject.detach(&observer, &m_level, 1);
    EXPECT_EQ(subjectsOf(observer), "Observer (o)    Subject --none-- ");
}

TEST_F(GsSubjectLifetime, DetachingAStrangerLeavesTheSubjectKnown)
{
    Observer observer("o");
    m_subject.attach(&observer, &m_level, 1);
    m_subject.detach(&observer, &m_phase, 1);
    EXPECT_EQ(subjectsOf(observer), "Observer (o)    Subject (mixer)");
}

TEST_F(GsSubjectLifetime, SubjectThatEndsIsForgotten)
{
    Observer observer("o");
    {
        Subject subject("short");
        subject.attach(&observer, &m_level, 1);
        subject.attach(&observer, &m_level, 1);
        subject.attach(&observer, &m_phase, 1);
    }
    EXPECT_EQ(subjectsOf(observer), "Observer (o)    Subject --none-- ");
}

// insertObserver() and eraseObserver() alone, without attach() and detach().
TEST_F(GsSubjectLifetime, TableOperationsKeepBothSidesInStep)
{
    {
        Observer observer("o");
        m_subject.insertObserver(&observer, &m_level, 1, new Gs_Observer);
        m_subject.insertObserver(&observer, &m_phase, 1, new Gs_Observer);
        EXPECT_EQ(subjectsOf(observer), "Observer (o)    Subject (mixer)");
        m_subject.eraseObserver(&observer, &m_level, 1);
        EXPECT_EQ(subjectsOf(observer), "Observer (o)    Subject (mixer)");
    }
    EXPECT_EQ(m_errors.getTexts().size(), 0U);
    m_subject.notify(&m_phase);
    m_subject.eraseObserver(nullptr, &m_phase, 1);
}

// Nobody is attached: a loop until the subject is gone from the set would not end.
TEST_F(GsSubjectLifetime, ObserverEndsThatKnowsASubjectWithoutAttachment)
{
    Observer observer("o");
    observer.insertSubject(&m_subject);
    observer.insertSubject(nullptr);
    EXPECT_EQ(subjectsOf(observer), "Observer (o)    Subject (mixer)");
}

class Node : public Gs_Subject, public Gs_Observer
{
  public:
    void output(std::ostream& os) const override { Gs_Subject::output(os); }
    const std::string& getName() const override { return m_name; }

  private:
    std::string m_name = "node";
};
class ReversedNode : public Gs_Observer, public Gs_Subject
{
  public:
    void output(std::ostream& os) const override { Gs_Subject::output(os); }
    const std::string& getName() const override { return m_name; }

  private:
    std::string m_name = "node";
};

TEST_F(GsSubjectLifetime, ObjectThatObservesItselfEnds)
{
    Node node;
    node.attach(&node, &m_level, 1);
    node.attach(&node, &m_phase, 1);
    ReversedNode reversed;
    reversed.attach(&reversed, &m_level, 1);
    reversed.attach(&reversed, &m_phase, 1);
}

TEST_F(GsSubjectLifetime, ObjectsThatObserveEachOtherEnd)
{
    auto first = std::make_unique<Node>();
    auto second = std::make_unique<Node>();
    first->attach(second.get(), &m_level, 1);
    second->attach(first.get(), &m_level, 1);
    first.reset();
    second->notify(&m_level);
}

TEST_F(GsSubjectLifetime, UpdateDetachesItself)
{
    Observer observer("o", [&] { m_subject.detach(&observer, &m_level, 1); });
    Observer next("next");
    m_subject.attach(&observer, &m_level, 1);
    m_subject.attach(&next, &m_level, 1);
    m_subject.notify(&m_level);
    m_subject.notify(&m_level);
    EXPECT_EQ(observer.m_numUpdates, 1);
    EXPECT_EQ(next.m_numUpdates, 2);
}

TEST_F(GsSubjectLifetime, UpdateDetachesTheNext)
{
    Observer next("next");
    Observer observer("o", [&] { m_subject.detach(&next, &m_level, 1); });
    Observer last("last");
    m_subject.attach(&observer, &m_level, 1);
    m_subject.attach(&next, &m_level, 1);
    m_subject.attach(&last, &m_level, 1);
    m_subject.notify(&m_level);
    EXPECT_EQ(next.m_numUpdates, 0);
    EXPECT_EQ(last.m_numUpdates, 1);
}

TEST_F(GsSubjectLifetime, UpdateDetachesEverybody)
{
    Observer observer("o", [&] { m_subject.detachAll(); });
    Observer next("next");
    Observer later("later");
    m_subject.attach(&observer, &m_level, 1);
    m_subject.attach(&next, &m_level, 1);
    m_subject.attach(&later, &m_level, 2);
    m_subject.notify(&m_level);
    EXPECT_EQ(next.m_numUpdates, 0);
    EXPECT_EQ(later.m_numUpdates, 0);
}

TEST_F(GsSubjectLifetime, UpdateEndsItsObserver)
{
    std::unique_ptr<Observer> observer;
    observer = std::make_unique<Observer>("o", [&] { observer.reset(); });
    Observer next("next");
    m_subject.attach(observer.get(), &m_level, 1);
    m_subject.attach(observer.get(), &m_level, 1);
    m_subject.attach(&next, &m_level, 1);
    m_subject.attach(observer.get(), &m_level, 2);
    m_subject.notify(&m_level);
    EXPECT_EQ(observer, nullptr);
    EXPECT_EQ(next.m_numUpdates, 1);
}

TEST_F(GsSubjectLifetime, UpdateEndsTheNextObserver)
{
    auto next = std::make_unique<Observer>("next");
    Observer observer("o", [&] { next.reset(); });
    Observer last("last");
    m_subject.attach(&observer, &m_level, 1);
    m_subject.attach(next.get(), &m_level, 1);
    m_subject.attach(&last, &m_level, 1);
    m_subject.notify(&m_level);
    EXPECT_EQ(last.m_numUpdates, 1);
}

TEST_F(GsSubjectLifetime, UpdateAttaches)
{
    Observer added("added");
    Observer addedLater("added later");
    bool isDone = false;
    Observer observer("o",
                      [&]
                      {
                          if (!isDone)
                          {
                              isDone = true;
                              m_subject.attach(&added, &m_level, 1);
                              m_subject.attach(&addedLater, &m_level, 2);
                          }
                      });
    Observer last("last");
    m_subject.attach(&observer, &m_level, 1);
    m_subject.attach(&last, &m_level, 1);
    m_subject.notify(&m_level);
    EXPECT_EQ(added.m_numUpdates, 1);
    EXPECT_EQ(addedLater.m_numUpdates, 1);
}

// Both notifications stand before the attachment that is detached.
TEST_F(GsSubjectLifetime, NestedUpdateDetachesTheNext)
{
    Observer next("next");
    int depth = 0;
    Observer observer("o",
                      [&]
                      {
                          if (++depth == 1)
                          {
                              m_subject.notify(&m_level);
                          }
                          else
                          {
                              m_subject.detachAll(&next);
                          }
                      });
    Observer last("last");
    m_subject.attach(&observer, &m_level, 1);
    m_subject.attach(&next, &m_level, 1);
    m_subject.attach(&last, &m_level, 1);
    m_subject.notify(&m_level);
    EXPECT_EQ(next.m_numUpdates, 0);
    EXPECT_EQ(last.m_numUpdates, 2);
}

TEST_F(GsSubjectLifetime, UpdateDestroysTheSubject)
{
    const CoutCapture cout;
    auto subject = std::make_unique<Subject>("short");
    Observer observer("o", [&] { subject.reset(); });
    Observer next("next");
    Observer later("later");
    subject->attach(&observer, &m_level, 1);
    subject->attach(&next, &m_level, 1);
    subject->attach(&later, &m_level, 2);
    subject->notify(&m_level);
    EXPECT_EQ(next.m_numUpdates, 0);
    EXPECT_EQ(later.m_numUpdates, 0);
    EXPECT_EQ(subjectsOf(next), "Observer (next)    Subject --none-- ");
}

TEST_F(GsSubjectLifetime, NestedUpdateDestroysTheSubject)
{
    const CoutCapture cout;
    auto subject = std::make_unique<Subject>("short");
    int depth = 0;
    Observer observer("o",
                      [&]
                      {
                          if (++depth == 1)
                          {
                              subject->notify(&m_level);
                          }
                          else
                          {
                              subject.reset();
                          }
                      });
    Observer next("next");
    subject->attach(&observer, &m_level, 1);
    subject->attach(&next, &m_level, 1);
    subject->notify(&m_level);
    EXPECT_EQ(depth, 2);
    EXPECT_EQ(next.m_numUpdates, 0);
    EXPECT_EQ(cout.getText(),
              "************* ERROR: Calling destructor for subject 'N5utils10Gs_SubjectE' when in "
              "method notify\n");
}

TEST_F(GsSubjectLifetime, UpdateDestroysTheSubjectAndThrows)
{
    const CoutCapture cout;
    auto subject = std::make_unique<Subject>("short");
    Observer observer("o",
                      [&]
                      {
                          subject.reset();
                          throw std::runtime_error("no");
                      });
    subject->attach(&observer, &m_level, 1);
    EXPECT_THROW(subject->notify(&m_level), std::runtime_error);
}

// Otherwise the destructor would say that it was called inside notify().
TEST_F(GsSubjectLifetime, UpdateThatThrowsLeavesNoCurrentMethod)
{
    const CoutCapture cout;
    {
        Subject subject("short");
        Observer observer("o", [] { throw std::runtime_error("no"); });
        subject.attach(&observer, &m_level, 1);
        EXPECT_THROW(subject.notify(&m_level), std::runtime_error);
    }
    EXPECT_EQ(cout.getText(), "");
}

TEST_F(GsSubjectLifetime, SubjectIsUsableAfterAnUpdateHasThrown)
{
    bool isBroken = true;
    Observer observer("o",
                      [&]
                      {
                          if (isBroken)
                          {
                              throw std::runtime_error("no");
                          }
                      });
    Observer next("next");
    m_subject.attach(&observer, &m_level, 1);
    m_subject.attach(&next, &m_level, 1);
    EXPECT_THROW(m_subject.notify(&m_level), std::runtime_error);
    isBroken = false;
    m_subject.notify(&m_level);
    EXPECT_EQ(observer.m_numUpdates, 2);
    EXPECT_EQ(next.m_numUpdates, 1);
    m_subject.detachAll();
}

// Runs an action when it ends, as an updater does while its subject is in its destructor.
class EndingUpdater : public Gs_Observer
{
  public:
    explicit EndingUpdater(std::function<void()> action) : m_action(std::move(action)) {}
    ~EndingUpdater() override { m_action(); }

  private:
    std::function<void()> m_action;
};

// A loop until the subject is gone from the set would not end, since the subject refuses; without
// care, the subject later tells the observer that has ended.
TEST_F(GsSubjectLifetime, ObserverEndsWhileItsSubjectIsInItsDestructor)
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

TEST_F(GsSubjectLifetime, ObserverEndsWithItsOwnUpdaterWhileItsSubjectIsInItsDestructor)
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

TEST_F(GsSubjectLifetime, ObserverWithSeveralAttachmentsEndsWithItsFirstUpdater)
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

TEST_F(GsSubjectLifetime, ObserversEndWhenTheirSubjectsEndIsTraced)
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

// The walk of detachAll() meets what the adapters' ends do to the tables.
TEST_F(GsSubjectLifetime, DetachedUpdaterDetachesOthers)
{
    Observer first("first");
    Observer second("second");
    Observer third("third");
    m_subject.insertObserver(&first, &m_level, 1,
                             new EndingUpdater([&] { m_subject.detachAll(&second); }));
    m_subject.attach(&second, &m_level, 1);
    m_subject.attach(&third, &m_level, 2);
    m_subject.detachAll();
    EXPECT_FALSE(m_subject.isObserverAttached(&second, &m_level, 1));
    EXPECT_FALSE(m_subject.isObserverAttached(&third, &m_level, 2));
}

}  // namespace
