// What subjects report.
//
// - null observers and aspects: reported with place and name, then the operation goes on
// - duplicate and missing attachments, with their places
// - reports are not recoverable: without a strategy the process ends

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include <utils/gsSubject.h>

#include "err/RecordingStrategy.h"
#include "gs/Actors.h"
#include "support/ConfigDirectory.h"

namespace
{

using namespace std::string_literals;
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

}  // namespace
