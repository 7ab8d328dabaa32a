// Subjects and observers that end, and updates that change what is being walked.
//
// - an observer with several attachments ends, or is detached once and then ends
// - an observer knows the subjects that hold an attachment of it, and only these
// - either side ends first, also an object that is both
// - an update detaches itself, others, all; ends its observer, others; attaches
// - an update that throws
//
// Most of these are clean on a naive version without AddressSanitizer.

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>

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

// Otherwise the destructor would say that it was called inside notify().
TEST_F(GsSubjectLifetime, UpdateThatThrowsLeavesNoCurrentMethod)
{
    const CoutCapture cout;
    Observer observer("o", [] { throw std::runtime_error("no"); });
    {
        // Ends before the observer, whose end would be an operation of its own.
        Subject subject("short");
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

// Runs an action when it ends.
class EndingUpdater : public Gs_Observer
{
  public:
    explicit EndingUpdater(std::function<void()> action) : m_action(std::move(action)) {}
    ~EndingUpdater() override { m_action(); }

  private:
    std::function<void()> m_action;
};

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
