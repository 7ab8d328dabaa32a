// What subjects report.
//
// - null observers and aspects: reported with place and name, then the operation goes on
// - duplicate and missing attachments, with their places
// - reports are not recoverable: without a strategy the process ends
// - calls while the subject is in its destructor, one line each; nothing else happens
// - destruction inside an operation

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <memory>
#include <string>

#include <utils/flagTraceStrategy.h>
#include <utils/gsSubject.h>

#include "err/RecordingStrategy.h"
#include "flag_legacy/RecordingOlderTraces.h"
#include "gs/Actors.h"
#include "gs/CoutCapture.h"
#include "support/ConfigDirectory.h"

namespace
{

using namespace std::string_literals;
using test::CoutCapture;
using test::Observer;
using test::RecordingErrStrategy;
using test::Subject;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using utils::Gs_Aspect;
using utils::Gs_Observer;
using utils::Gs_Subject;

class GsSubjectReport : public testing::Test
{
  protected:
    const int m_userIsSet = setenv("USER", "marie", 1);
    const test::ConfigDirectory m_config;
    Gs_Aspect m_level{"Level"};
    Gs_Aspect m_phase{"Phase"};
    Subject m_subject{"mixer"};
    Observer m_observer{"panel"};
};

std::string nullReport(const std::string& place, const std::string& pointer)
{
    return "!([1.0.0.12]Error/Err_NullPtrError) by marie on TIME.\n"
           "        Generated from " +
           place +
           ":\n"
           "        Invalid null pointer '" +
           pointer + "' encountered." + '\0';
}

std::string missingReport(const std::string& line)
{
    return "!([1.0.1.2]Error/Gs_AttachDoesNotExistError) by marie on TIME.\n"
           "        Generated from generic/utils/src/gs/gsSubject/" +
           line +
           "/eraseObserver:\n"
           "        Subject (mixer) is NOT attached to Observer (panel) with priority (1).";
}

TEST_F(GsSubjectReport, AttachingANullObserver)
{
    const RecordingErrStrategy errors;
    m_subject.attach(nullptr, &m_level, 1);
    EXPECT_THAT(
        errors.getTexts(),
        ElementsAre(nullReport("generic/utils/include/utils/gsSubjectT/34/attach", "observerPtr")));
    EXPECT_THAT(errors.getRecoverables(), Each(false));
    EXPECT_TRUE(m_subject.isObserverAttached(nullptr, &m_level, 1));
}

// UndefinedBehaviorSanitizer sees a call through the null observer.
TEST_F(GsSubjectReport, NullObserverIsNotUpdated)
{
    const RecordingErrStrategy errors;
    m_subject.attach(nullptr, &m_level, 1);
    m_subject.attach(&m_observer, &m_level, 1);
    m_subject.notify(&m_level);
    EXPECT_EQ(m_observer.m_numUpdates, 1);
}

TEST_F(GsSubjectReport, NullObserverIsDetached)
{
    const RecordingErrStrategy errors;
    m_subject.attach(nullptr, &m_level, 1);
    m_subject.detach(nullptr, &m_level, 1);
    EXPECT_FALSE(m_subject.isObserverAttached(nullptr, &m_level, 1));
    EXPECT_THAT(
        errors.getTexts(),
        ElementsAre(nullReport("generic/utils/include/utils/gsSubjectT/34/attach", "observerPtr"),
                    nullReport("generic/utils/src/gs/gsSubject/197/detach", "observerPtr")));
}

TEST_F(GsSubjectReport, NullObserversAreDetachedWithAll)
{
    const RecordingErrStrategy errors;
    m_subject.attach(nullptr, &m_level, 1);
    m_subject.attach(nullptr, &m_phase, 1);
    m_subject.attach(&m_observer, &m_phase, 1);
    m_subject.detachAll();
    EXPECT_FALSE(m_subject.isObserverAttached(nullptr, &m_level, 1));
    EXPECT_FALSE(m_subject.isObserverAttached(nullptr, &m_phase, 1));
    EXPECT_FALSE(m_subject.isObserverAttached(&m_observer, &m_phase, 1));
}

TEST_F(GsSubjectReport, NullObserverIsSeveralTimesAttached)
{
    const RecordingErrStrategy errors;
    m_subject.attach(nullptr, &m_level, 1);
    m_subject.attach(nullptr, &m_level, 1);
    ASSERT_EQ(errors.getTexts().size(), 3U);
    EXPECT_EQ(errors.getTexts()[2],
              "!([1.0.1.1]Error/Gs_AttachAlreadyExistsError) by marie on TIME.\n"
              "        Generated from generic/utils/src/gs/gsSubject/798/insertObserver:\n"
              "        Subject (mixer) already attached to Observer (null) with priority (1).");
    m_subject.detachAll(nullptr);
    EXPECT_FALSE(m_subject.isObserverAttached(nullptr, &m_level, 1));
}

TEST_F(GsSubjectReport, SubjectWithANullObserverIsDestroyed)
{
    const RecordingErrStrategy errors;
    {
        Gs_Subject subject;
        subject.attach(nullptr, &m_level, 1);
    }
    EXPECT_EQ(errors.getTexts().size(), 1U);
}

TEST_F(GsSubjectReport, DetachingANullAspect)
{
    const RecordingErrStrategy errors;
    m_subject.attach(&m_observer, &m_level, 1);
    m_subject.detach(&m_observer, nullptr, 1);
    EXPECT_THAT(errors.getTexts(),
                ElementsAre(nullReport("generic/utils/src/gs/gsSubject/203/detach", "aspectPtr"),
                            missingReport("850")));
    EXPECT_THAT(errors.getRecoverables(), Each(false));
    EXPECT_TRUE(m_subject.isObserverAttached(&m_observer, &m_level, 1));
}

TEST_F(GsSubjectReport, NotifyingANullAspect)
{
    const RecordingErrStrategy errors;
    m_subject.notify(nullptr);
    m_subject.attach(&m_observer, nullptr, 1);
    m_subject.notify(nullptr);
    const std::string expected =
        nullReport("generic/utils/src/gs/gsSubject/501/notify", "aspectPtr");
    EXPECT_THAT(errors.getTexts(), ElementsAre(expected, expected));
    EXPECT_THAT(errors.getRecoverables(), Each(false));
    EXPECT_EQ(m_observer.m_numUpdates, 0);
}

TEST_F(GsSubjectReport, AttachingTwice)
{
    const RecordingErrStrategy errors;
    m_subject.attach(&m_observer, &m_level, 7);
    m_subject.attach(&m_observer, &Observer::react, &m_level, 7);
    EXPECT_THAT(
        errors.getTexts(),
        ElementsAre("!([1.0.1.1]Error/Gs_AttachAlreadyExistsError) by marie on TIME.\n"
                    "        Generated from generic/utils/src/gs/gsSubject/798/insertObserver:\n"
                    "        Subject (mixer) already attached to Observer (panel) with priority "
                    "(7)."));
    EXPECT_THAT(errors.getRecoverables(), Each(false));
}

TEST_F(GsSubjectReport, DetachingWhereNobodyWasAttached)
{
    const RecordingErrStrategy errors;
    Observer other("other");
    m_subject.detach(&m_observer, &m_level, 1);
    m_subject.attach(&other, &m_phase, 1);
    m_subject.detach(&m_observer, &m_level, 1);
    m_subject.attach(&other, &m_level, 2);
    m_subject.detach(&m_observer, &m_level, 1);
    EXPECT_THAT(errors.getTexts(),
                ElementsAre(missingReport("838"), missingReport("850"), missingReport("862")));
    EXPECT_THAT(errors.getRecoverables(), Each(false));
}

// The notification leaves nothing behind that would change the report.
TEST_F(GsSubjectReport, DetachingAfterNotifyingAnUnusedAspect)
{
    const RecordingErrStrategy errors;
    Observer other("other");
    m_subject.attach(&other, &m_phase, 1);
    m_subject.notify(&m_level);
    m_subject.detach(&m_observer, &m_level, 1);
    EXPECT_THAT(errors.getTexts(), ElementsAre(missingReport("850")));
}

TEST_F(GsSubjectReport, MissingObserverInAnExistingListIsNotReported)
{
    const RecordingErrStrategy errors;
    Observer other("other");
    m_subject.attach(&other, &m_level, 1);
    m_subject.detach(&m_observer, &m_level, 1);
    m_subject.detach(&other, &m_level, 1);
    m_subject.detach(&other, &m_level, 1);
    EXPECT_THAT(errors.getTexts(), IsEmpty());
}

TEST_F(GsSubjectReport, ErasingWhereNobodyWasAttached)
{
    const RecordingErrStrategy errors;
    m_subject.eraseObserver(&m_observer, &m_level, 1);
    EXPECT_THAT(errors.getTexts(), ElementsAre(missingReport("838")));
}

TEST_F(GsSubjectReport, ReportEndsTheProcessWithoutAStrategy)
{
    EXPECT_EXIT(m_subject.notify(nullptr), testing::ExitedWithCode(1),
                testing::HasSubstr("        Invalid null pointer 'aspectPtr' encountered."));
    EXPECT_EXIT(m_subject.attach(nullptr, &m_level, 1), testing::ExitedWithCode(1),
                testing::HasSubstr("        Invalid null pointer 'observerPtr' encountered."));
    EXPECT_EXIT(m_subject.detach(&m_observer, &m_level, 1), testing::ExitedWithCode(1),
                testing::HasSubstr("Subject (mixer) is NOT attached to Observer (panel) with "
                                   "priority (1)."));
}

// Runs an action while a subject is in its destructor: when the updater of its attachment ends.
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

TEST_F(GsSubjectReport, CallsInTheDestructorAreRefused)
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

TEST_F(GsSubjectReport, NullsInTheDestructorAreOnlyRefused)
{
    const RecordingErrStrategy errors;
    EXPECT_EQ(printedInDestructor([](Gs_Subject& subject) { subject.notify(nullptr); }),
              "************* ERROR: Calling notify() for subject 'N5utils10Gs_SubjectE' when in "
              "destructor!!!\n");
    EXPECT_THAT(errors.getTexts(), IsEmpty());
}

TEST_F(GsSubjectReport, DestructionOutsideOfOperationsPrintsNothing)
{
    const CoutCapture cout;
    {
        Subject subject("mixer");
        subject.attach(&m_observer, &m_level, 1);
        subject.notify(&m_level);
    }
    EXPECT_EQ(cout.getText(), "");
}

TEST_F(GsSubjectReport, DestructionInsideAnUpdateIsPrinted)
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

// The operation inside has ended, and with it the current method.
TEST_F(GsSubjectReport, DestructionAfterAnotherOperationInsideAnUpdateIsNotPrinted)
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
TEST_F(GsSubjectReport, DestructionInsideErasingIsPrinted)
{
    const CoutCapture cout;
    auto& flags = *utils::Std_Singleton<utils::flag::Gs_Flags>::getInstancePtr();
    flags.m_traceUpdateSteps.setValue(2);
    for (const auto& [name, detach] :
         {std::pair<std::string, std::function<void(Subject&)>>(
              "detach", [this](Subject& subject) { subject.detach(&m_observer, &m_level, 1); }),
          {"detachFirst", [this](Subject& subject) { subject.detachFirst(&m_observer); }},
          {"detachAll", [](Subject& subject) { subject.detachAll(); }},
          {"detachAllOfOne", [this](Subject& subject) { subject.detachAll(&m_observer); }}})
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

}  // namespace
