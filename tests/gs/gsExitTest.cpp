// Subjects and observers while the process ends.
//
// - static subjects and observers end, attached, and are traced with their names
// - the default aspect can be used

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>

#include <utils/gsFlags.h>
#include <utils/gsSubject.h>

#include "gs/Actors.h"
#include "support/ConfigDirectory.h"

namespace
{

using test::Observer;
using test::Subject;
using utils::Gs_Observer;
using utils::Gs_Subject;

class GsExit : public testing::Test
{
  protected:
    void SetUp() override { testing::FLAGS_gtest_death_test_style = "threadsafe"; }

    const test::ConfigDirectory m_config{
        "Gs_Flags::m_traceSubjectSteps\n2\nGs_Flags::m_traceObserverSteps\n2\n"};
};

TEST_F(GsExit, StaticSubjectAndObserverEnd)
{
    EXPECT_EXIT(
        {
            static Gs_Observer early;
            static Subject subject("mixer");
            static Gs_Observer late;
            subject.attach(&early, nullptr, 1);
            subject.attach(&late, nullptr, 1);
            subject.attach(&late, nullptr, 2);
            std::exit(0);
        },
        testing::ExitedWithCode(0),
        "Destructing Gs_Observer N5utils11Gs_ObserverE\n\n"
        ".*Detaching Subject \\(mixer\\) Observer \\(N5utils11Gs_ObserverE\\) Priority \\(1\\) "
        "Aspect \\(Gs_ChangeAspect\\)\n\n"
        ".*Destructing Gs_Observer N5utils11Gs_ObserverE\n\n"
        ".*Detaching Subject \\(mixer\\) Observer \\(N5utils11Gs_ObserverE\\) Priority \\(2\\) "
        "Aspect \\(Gs_ChangeAspect\\)\n\n"
        ".*Destructing Gs_Observer N5utils11Gs_ObserverE\n\n"
        ".*Destructing Gs_Subject N5utils10Gs_SubjectE\n\n"
        ".*Destructing Gs_Observer N5utils11Gs_ObserverE\n\n"
        ".*Destructing Gs_Observer N5utils11Gs_ObserverE\n\n$");
}

TEST_F(GsExit, StaticDestructorNotifiesForTheFirstTime)
{
    EXPECT_EXIT(
        {
            struct AtExit
            {
                ~AtExit()
                {
                    Subject subject("mixer");
                    Observer observer("panel");
                    subject.attach(&observer, nullptr, 1);
                    subject.notify(Gs_Subject::m_defaultAspectPtr);
                    std::fprintf(stderr, "%d updates\n", observer.m_numUpdates);
                }
            };
            static const AtExit atExit;
            std::exit(0);
        },
        testing::ExitedWithCode(0), "1 updates\n");
}

}  // namespace
