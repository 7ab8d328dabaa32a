// Subjects that are destroyed inside one of their own operations.
//
// - it is said on standard output, with the operation; nothing is said outside of operations
// - an update destroys the subject, also from a nested notification, also before it throws: the
//   others are not updated, and nothing of the subject is touched any more
// - a strategy that is told of an attachment, of a detachment, or of an error, does the same
//
// Most of these are clean on a naive version without AddressSanitizer.

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <utils/flagTraceStrategy.h>
#include <utils/gsFlags.h>
#include <utils/gsSubject.h>

#include "err/RecordingStrategy.h"
#include "flag_legacy/RecordingOlderTraces.h"
#include "gs/Actors.h"
#include "gs/CoutCapture.h"
#include "support/ConfigDirectory.h"

namespace
{

using test::CoutCapture;
using test::Observer;
using test::RecordingErrStrategy;
using test::Subject;
using utils::Gs_Aspect;

class GsSubjectDestroyed : public testing::Test
{
  protected:
    const test::ConfigDirectory m_config;
    Gs_Aspect m_level{"Level"};
    Gs_Aspect m_phase{"Phase"};
    Observer m_observer{"panel"};
};

TEST_F(GsSubjectDestroyed, OutsideOfOperationsNothingIsPrinted)
{
    const CoutCapture cout;
    {
        Subject subject("mixer");
        subject.attach(&m_observer, &m_level, 1);
        subject.notify(&m_level);
    }
    EXPECT_EQ(cout.getText(), "");
}

TEST_F(GsSubjectDestroyed, InsideAnUpdateIsPrinted)
{
    const CoutCapture cout;
    auto subject = std::make_unique<Subject>("mixer");
    Observer observer("o", [&] { subject.reset(); });
    subject->attach(&observer, &m_level, 1);
    subject->notify(&m_level);
    EXPECT_EQ(subject, nullptr);
    EXPECT_EQ(cout.getText(),
              "************* ERROR: Calling destructor for subject 'N5utils10Gs_SubjectE' when in "
              "method notify\n");
}

TEST_F(GsSubjectDestroyed, InAnUpdateTheOthersAreLeftOut)
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
    std::ostringstream os;
    next.output(os);
    EXPECT_EQ(os.str(), "Observer (next)    Subject --none-- ");
}

TEST_F(GsSubjectDestroyed, InANestedUpdate)
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

TEST_F(GsSubjectDestroyed, InAnUpdateThatThrows)
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

// The operation inside has ended, and with it the current method.
TEST_F(GsSubjectDestroyed, AfterAnotherOperationInsideAnUpdateIsNotPrinted)
{
    const CoutCapture cout;
    auto subject = std::make_unique<Subject>("mixer");
    Observer observer("o",
                      [&]
                      {
                          subject->detach(&observer, &m_level, 1);
                          subject.reset();
                      });
    subject->attach(&observer, &m_level, 1);
    subject->notify(&m_level);
    EXPECT_EQ(cout.getText(), "");
}

// Destroys the subject when told of an attachment or a detachment.
class Destroying : public utils::flag::Flag_TraceStrategy
{
  public:
    Destroying(std::unique_ptr<Subject>& subject, std::string words)
        : Flag_TraceStrategy("Destroying"), m_subject(subject), m_words(std::move(words))
    {
    }
    bool isInterested(const utils::flag::Flag_TraceMsg&) override { return true; }
    void processTrace(const utils::flag::Flag_TraceMsg& traceMsg) override
    {
        if (traceMsg.getString().find(m_words) != std::string::npos)
        {
            m_subject.reset();
        }
    }

  private:
    std::unique_ptr<Subject>& m_subject;
    std::string m_words;
};

// The adapter that ends inside eraseObserver() is traced, and that is where the subject ends.
TEST_F(GsSubjectDestroyed, InsideErasingIsPrinted)
{
    const CoutCapture cout;
    auto& flags = *utils::Std_Singleton<utils::flag::Gs_Flags>::getInstancePtr();
    flags.m_traceUpdateSteps.setValue(2);
    const std::map<std::string, std::function<void(Subject&)>> operations = {
        {"detach", [this](Subject& subject) { subject.detach(&m_observer, &m_level, 1); }},
        {"detachFirst", [this](Subject& subject) { subject.detachFirst(&m_observer); }},
        {"detachAll", [](Subject& subject) { subject.detachAll(); }},
        {"detachAllOfOne", [this](Subject& subject) { subject.detachAll(&m_observer); }}};
    for (const auto& [name, detach] : operations)
    {
        SCOPED_TRACE(name);
        auto subject = std::make_unique<Subject>("mixer");
        Observer other("other");
        subject->attach(&m_observer, &m_level, 1);
        subject->attach(&m_observer, &m_phase, 1);
        subject->attach(&other, &m_phase, 1);
        const Destroying strategy(subject, "Destructing Gs_UpdateVoid (panel)");
        detach(*subject);
        EXPECT_EQ(subject, nullptr);
    }
    const std::string line =
        "************* ERROR: Calling destructor for subject 'N5utils10Gs_SubjectE' when in "
        "method eraseObserver\n";
    EXPECT_EQ(cout.getText(), line + line + line + line);
}

// AddressSanitizer sees an operation that goes on with the subject that has ended.
TEST_F(GsSubjectDestroyed, WhenAttachingIsTraced)
{
    const CoutCapture cout;
    auto& flags = *utils::Std_Singleton<utils::flag::Gs_Flags>::getInstancePtr();
    flags.m_traceSubjectSteps.setValue(1);
    flags.m_traceUpdateSteps.setValue(2);
    for (const std::string words : {"Attaching Subject", "Constructing Gs_UpdateVoid"})
    {
        auto subject = std::make_unique<Subject>("mixer");
        const Destroying strategy(subject, words);
        subject->attach(&m_observer, &m_level, 1);
        EXPECT_EQ(subject, nullptr) << words;
    }
    const std::string line =
        "************* ERROR: Calling destructor for subject 'N5utils10Gs_SubjectE' when in "
        "method attach\n";
    EXPECT_EQ(cout.getText(), line + line);
}

TEST_F(GsSubjectDestroyed, WhenDetachingIsTraced)
{
    const CoutCapture cout;
    auto& flags = *utils::Std_Singleton<utils::flag::Gs_Flags>::getInstancePtr();
    flags.m_traceSubjectSteps.setValue(1);
    auto subject = std::make_unique<Subject>("mixer");
    subject->attach(&m_observer, &m_level, 1);
    subject->attach(&m_observer, &m_phase, 1);
    const Destroying strategy(subject, "Detaching Subject");
    subject->detachAll(&m_observer);
    EXPECT_EQ(subject, nullptr);
    EXPECT_EQ(cout.getText(),
              "************* ERROR: Calling destructor for subject 'N5utils10Gs_SubjectE' when in "
              "method detach\n");
}

// Destroys the subject when an error is reported.
class DestroyingOnError : public RecordingErrStrategy
{
  public:
    explicit DestroyingOnError(std::unique_ptr<Subject>& subject) : m_subject(subject) {}
    bool processError(const utils::err::Err_Error& error, bool recoverable) override
    {
        m_subject.reset();
        return RecordingErrStrategy::processError(error, recoverable);
    }

  private:
    std::unique_ptr<Subject>& m_subject;
};

TEST_F(GsSubjectDestroyed, WhenAnErrorIsReported)
{
    auto& flags = *utils::Std_Singleton<utils::flag::Gs_Flags>::getInstancePtr();
    flags.m_traceSubjectSteps.setValue(1);
    const test::RecordingOlderTraces traces;
    const std::vector<std::pair<std::string, std::function<void(Subject&)>>> operations = {
        {"attach", [this](Subject& subject) { subject.attach(nullptr, &m_level, 1); }},
        {"insertObserver", [this](Subject& subject) { subject.attach(&m_observer, &m_level, 1); }},
        {"detach", [this](Subject& subject) { subject.detach(nullptr, &m_level, 1); }},
        {"detach", [this](Subject& subject) { subject.detach(&m_observer, nullptr, 1); }},
        {"eraseObserver", [this](Subject& subject) { subject.detach(&m_observer, &m_phase, 1); }}};
    for (const auto& [method, operation] : operations)
    {
        auto subject = std::make_unique<Subject>("mixer");
        subject->attach(&m_observer, &m_level, 1);
        const CoutCapture cout;
        const DestroyingOnError strategy(subject);
        operation(*subject);
        EXPECT_EQ(subject, nullptr);
        EXPECT_EQ(strategy.getTexts().size(), 1U);
        EXPECT_EQ(cout.getText(),
                  "************* ERROR: Calling destructor for subject 'N5utils10Gs_SubjectE' when "
                  "in method " +
                      method + "\n");
    }
}

// The report comes before notify() is the current method.
TEST_F(GsSubjectDestroyed, WhenANullAspectOfNotifyIsReported)
{
    auto subject = std::make_unique<Subject>("mixer");
    subject->attach(&m_observer, &m_level, 1);
    const CoutCapture cout;
    const DestroyingOnError strategy(subject);
    subject->notify(nullptr);
    EXPECT_EQ(subject, nullptr);
    EXPECT_EQ(cout.getText(), "");
}

// A notification that finds no tables has not become the current method.
TEST_F(GsSubjectDestroyed, NotificationWithoutTablesLeavesTheCurrentMethod)
{
    class Notifying : public Destroying
    {
      public:
        Notifying(std::unique_ptr<Subject>& subject, Gs_Aspect& aspect)
            : Destroying(subject, "Attaching"), m_subjectPtr(subject.get()), m_aspect(aspect)
        {
        }
        void processTrace(const utils::flag::Flag_TraceMsg& traceMsg) override
        {
            m_subjectPtr->notify(&m_aspect);
            Destroying::processTrace(traceMsg);
        }

      private:
        Subject* m_subjectPtr;
        Gs_Aspect& m_aspect;
    };
    const CoutCapture cout;
    auto& flags = *utils::Std_Singleton<utils::flag::Gs_Flags>::getInstancePtr();
    flags.m_traceSubjectSteps.setValue(1);
    auto subject = std::make_unique<Subject>("mixer");
    const Notifying strategy(subject, m_level);
    subject->attach(&m_observer, &m_level, 1);
    EXPECT_EQ(cout.getText(),
              "************* ERROR: Calling destructor for subject 'N5utils10Gs_SubjectE' when in "
              "method attach\n");
}

}  // namespace
