// Update tracing.
//
// - off by default
// - on for subjects whose names contain the text of the flag; lines before the updates
// - nested notifications of other subjects are included; the switch ends with the notification
//   that set it
// - an update that throws or destroys the subject leaves it off
// - updates of other threads are left out; threads may notify at once

#include <gtest/gtest.h>

#include <atomic>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

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
using utils::Gs_Aspect;
using utils::Gs_Subject;
using utils::flag::Gs_Flags;

class GsUpdateTracing : public testing::Test
{
  protected:
    static void trace(const std::string& name, int isEnabled = 1)
    {
        Gs_Flags& flags = *utils::Std_Singleton<Gs_Flags>::getInstancePtr();
        flags.m_traceSubjectName.setValue(name);
        flags.m_enableSubjectName.setValue(isEnabled);
    }

    const test::ConfigDirectory m_config;
    const test::RecordingErrStrategy m_errors;
    Gs_Aspect m_level{"Level"};
    Subject m_mixer{"mixer"};
    Subject m_source{"source"};
};

TEST_F(GsUpdateTracing, IsOffByDefault)
{
    Subject subject("---");
    Observer panel("panel");
    subject.attach(&panel, &m_level, 1);
    const CoutCapture cout;
    subject.notify(&m_level);
    EXPECT_EQ(cout.getText(), "");
}

TEST_F(GsUpdateTracing, ShowsEveryUpdate)
{
    trace("mixer");
    Observer panel("panel");
    Observer log("log");
    m_mixer.attach(&panel, nullptr, 4294967295U);
    m_mixer.attach(&log, nullptr, 2);
    const CoutCapture cout;
    m_mixer.notify(Gs_Subject::m_defaultAspectPtr);
    EXPECT_EQ(cout.getText(),
              "***** Calling update Subject (mixer) Observer (log) Priority (2) Aspect "
              "(Gs_ChangeAspect)\n"
              "***** Calling update Subject (mixer) Observer (panel) Priority (4294967295) Aspect "
              "(Gs_ChangeAspect)\n");
}

TEST_F(GsUpdateTracing, LineStandsBeforeTheUpdate)
{
    trace("mixer");
    const CoutCapture cout;
    Observer panel("panel", [] { std::cout << "updated\n"; });
    m_mixer.attach(&panel, &m_level, 1);
    m_mixer.notify(&m_level);
    EXPECT_EQ(cout.getText(),
              "***** Calling update Subject (mixer) Observer (panel) Priority (1) Aspect (Level)\n"
              "updated\n");
}

TEST_F(GsUpdateTracing, NameContainsTheText)
{
    Observer panel("panel");
    m_mixer.attach(&panel, &m_level, 1);
    m_source.attach(&panel, &m_level, 1);
    const CoutCapture cout;
    trace("ixe");
    m_mixer.notify(&m_level);
    m_source.notify(&m_level);
    EXPECT_EQ(
        cout.getText(),
        "***** Calling update Subject (mixer) Observer (panel) Priority (1) Aspect (Level)\n");
}

TEST_F(GsUpdateTracing, EmptyTextIsContainedInEveryName)
{
    Observer panel("panel");
    m_source.attach(&panel, &m_level, 1);
    const CoutCapture cout;
    trace("", -1);
    m_source.notify(&m_level);
    EXPECT_EQ(
        cout.getText(),
        "***** Calling update Subject (source) Observer (panel) Priority (1) Aspect (Level)\n");
}

TEST_F(GsUpdateTracing, NamesAloneDoNotSwitchItOn)
{
    Observer panel("panel");
    m_mixer.attach(&panel, &m_level, 1);
    const CoutCapture cout;
    trace("mixer", 0);
    m_mixer.notify(&m_level);
    EXPECT_EQ(cout.getText(), "");
}

TEST_F(GsUpdateTracing, NestedNotificationsAreIncluded)
{
    trace("mixer");
    Observer panel("panel");
    Observer relay("relay", [&] { m_source.notify(&m_level); });
    Observer log("log");
    m_mixer.attach(&relay, &m_level, 1);
    m_mixer.attach(&log, &m_level, 1);
    m_source.attach(&panel, &m_level, 7);
    const CoutCapture cout;
    m_source.notify(&m_level);
    m_mixer.notify(&m_level);
    m_source.notify(&m_level);
    EXPECT_EQ(cout.getText(),
              "***** Calling update Subject (mixer) Observer (relay) Priority (1) Aspect (Level)\n"
              "***** Calling update Subject (source) Observer (panel) Priority (7) Aspect (Level)\n"
              "***** Calling update Subject (mixer) Observer (log) Priority (1) Aspect (Level)\n");
}

TEST_F(GsUpdateTracing, NestedNotificationThatAsksForItDoesNotEndIt)
{
    trace("");
    Observer panel("panel");
    Observer relay("relay", [&] { m_source.notify(&m_level); });
    Observer log("log");
    m_mixer.attach(&relay, &m_level, 1);
    m_mixer.attach(&log, &m_level, 1);
    m_source.attach(&panel, &m_level, 7);
    const CoutCapture cout;
    m_mixer.notify(&m_level);
    EXPECT_EQ(cout.getText(),
              "***** Calling update Subject (mixer) Observer (relay) Priority (1) Aspect (Level)\n"
              "***** Calling update Subject (source) Observer (panel) Priority (7) Aspect (Level)\n"
              "***** Calling update Subject (mixer) Observer (log) Priority (1) Aspect (Level)\n");
}

TEST_F(GsUpdateTracing, NullObserverIsNamed)
{
    trace("mixer");
    m_mixer.attach(nullptr, &m_level, 1);
    const CoutCapture cout;
    m_mixer.notify(&m_level);
    EXPECT_EQ(cout.getText(),
              "***** Calling update Subject (mixer) Observer (null) Priority (1) Aspect (Level)\n");
}

TEST_F(GsUpdateTracing, UpdateThatThrowsLeavesItOff)
{
    Observer panel("panel", [] { throw std::runtime_error("no"); });
    Observer log("log");
    m_mixer.attach(&panel, &m_level, 1);
    m_source.attach(&log, &m_level, 1);
    const CoutCapture cout;
    trace("mixer");
    EXPECT_THROW(m_mixer.notify(&m_level), std::runtime_error);
    m_source.notify(&m_level);
    EXPECT_EQ(
        cout.getText(),
        "***** Calling update Subject (mixer) Observer (panel) Priority (1) Aspect (Level)\n");
}

TEST_F(GsUpdateTracing, UpdateThatDestroysTheSubjectLeavesItOff)
{
    auto subject = std::make_unique<Subject>("mixer");
    Observer panel("panel", [&] { subject.reset(); });
    Observer log("log");
    subject->attach(&panel, &m_level, 1);
    m_source.attach(&log, &m_level, 1);
    const CoutCapture cout;
    trace("mixer");
    subject->notify(&m_level);
    m_source.notify(&m_level);
    EXPECT_EQ(
        cout.getText(),
        "***** Calling update Subject (mixer) Observer (panel) Priority (1) Aspect (Level)\n"
        "************* ERROR: Calling destructor for subject 'N5utils10Gs_SubjectE' when in method "
        "notify\n");
}

// The other thread notifies while this one is inside a traced update.
TEST_F(GsUpdateTracing, UpdatesOfOtherThreadsAreLeftOut)
{
    Observer log("log");
    m_source.attach(&log, &m_level, 1);
    Observer panel("panel", [&] { std::thread([&] { m_source.notify(&m_level); }).join(); });
    m_mixer.attach(&panel, &m_level, 1);
    trace("");
    const CoutCapture cout;
    m_mixer.notify(&m_level);
    EXPECT_EQ(log.m_numUpdates, 1);
    EXPECT_EQ(
        cout.getText(),
        "***** Calling update Subject (mixer) Observer (panel) Priority (1) Aspect (Level)\n");
}

// ThreadSanitizer reports a plain switch and plain flags.
TEST_F(GsUpdateTracing, ThreadsNotifyAtOnce)
{
    trace("mixer");
    EXPECT_NE(Gs_Subject::m_defaultAspectPtr->getName(), "");
    constexpr int THREADS = 4;
    constexpr int ROUNDS = 200;
    std::atomic<int> numUpdates{0};
    const CoutCapture cout;
    std::vector<std::thread> threads;
    for (int i = 0; i < THREADS; ++i)
    {
        threads.emplace_back(
            [&, i]
            {
                Subject subject(i == 0 ? "mixer" : "other");
                Observer observer("o", [&] { ++numUpdates; });
                subject.attach(&observer, &m_level, 1);
                for (int k = 0; k < ROUNDS; ++k)
                {
                    subject.notify(&m_level);
                }
            });
    }
    Gs_Flags& flags = *utils::Std_Singleton<Gs_Flags>::getInstancePtr();
    for (int k = 0; k < ROUNDS; ++k)
    {
        flags.m_enableSubjectName.setValue(k % 2);
        flags.m_traceSubjectSteps.setValue(-1);
    }
    for (std::thread& thread : threads)
    {
        thread.join();
    }
    EXPECT_EQ(numUpdates, THREADS * ROUNDS);
}

}  // namespace
