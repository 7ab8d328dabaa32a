// What subjects, observers and adapters trace.
//
// - construction, copying and destruction at level 2
// - attaching and detaching at level 1, with names; null pointers are named "null"
// - places
// - nothing by default

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include <utils/flagFlags.h>
#include <utils/gsFlags.h>
#include <utils/gsSubject.h>

#include "err/RecordingStrategy.h"
#include "flag_legacy/RecordingOlderTraces.h"
#include "gs/Actors.h"
#include "support/ConfigDirectory.h"

namespace
{

using test::Observer;
using test::Subject;
using testing::ElementsAre;
using testing::IsEmpty;
using utils::Gs_Aspect;
using utils::Gs_Observer;
using utils::Gs_Subject;
using utils::Gs_UpdateVoid;
using utils::Std_Singleton;
using utils::flag::Flag_Flags;
using utils::flag::Gs_Flags;

class GsSubjectTrace : public testing::Test
{
  protected:
    static Gs_Flags& flags() { return *Std_Singleton<Gs_Flags>::getInstancePtr(); }

    static void useFullHeaders()
    {
        Std_Singleton<Flag_Flags>::getInstancePtr()->m_traceMsgHeaderActive.setValue(0);
    }

    // Full headers, without the line that names the flag.
    std::vector<std::string> getPlaces() const
    {
        std::vector<std::string> places;
        for (const std::string& text : m_traces.getTexts())
        {
            places.push_back(text.substr(text.find('\n') + 1));
        }
        return places;
    }

    const int m_userIsSet = setenv("USER", "marie", 1);
    const test::ConfigDirectory m_config;
    const test::RecordingErrStrategy m_errors;
    test::RecordingOlderTraces m_traces;
    Gs_Aspect m_level{"Level"};
};

TEST_F(GsSubjectTrace, NothingByDefault)
{
    Subject subject("mixer");
    Observer observer("panel");
    subject.attach(&observer, &m_level, 1);
    subject.notify(&m_level);
    subject.detach(&observer, &m_level, 1);
    EXPECT_THAT(m_traces.getTexts(), IsEmpty());
}

TEST_F(GsSubjectTrace, LifeOfASubject)
{
    useFullHeaders();
    flags().m_traceSubjectSteps.setValue(2);
    {
        const Gs_Subject subject;
    }
    EXPECT_THAT(m_traces.getTexts(),
                ElementsAre("!(TRACE Name=Gs_Flags::m_traceSubjectSteps CurrLevel=2 TraceLevel=2 ) "
                            "by marie on TIME\n"
                            "Generated from generic/utils/src/gs/gsSubject/26/Gs_Subject:\n"
                            "Constructing Gs_Subject\n",
                            "!(TRACE Name=Gs_Flags::m_traceSubjectSteps CurrLevel=2 TraceLevel=2 ) "
                            "by marie on TIME\n"
                            "Generated from generic/utils/src/gs/gsSubject/55/~Gs_Subject:\n"
                            "Destructing Gs_Subject N5utils10Gs_SubjectE\n"));
}

TEST_F(GsSubjectTrace, LifeOfASubjectIsNotTracedAtLevelOne)
{
    flags().m_traceSubjectSteps.setValue(1);
    {
        const Gs_Subject subject;
        const Gs_Subject copy(subject);
    }
    EXPECT_THAT(m_traces.getTexts(), IsEmpty());
}

TEST_F(GsSubjectTrace, CopyOfASubject)
{
    const Gs_Subject subject;
    flags().m_traceSubjectSteps.setValue(2);
    const std::optional<Gs_Subject> copy(subject);
    EXPECT_THAT(m_traces.getTexts(),
                ElementsAre("TIME: Copying Gs_Subject N5utils10Gs_SubjectE\n"));
}

TEST_F(GsSubjectTrace, LifeOfAnObserver)
{
    useFullHeaders();
    flags().m_traceObserverSteps.setValue(2);
    {
        const Gs_Observer observer;
        const Gs_Observer copy(observer);
    }
    const std::vector<std::string> texts = m_traces.getTexts();
    ASSERT_EQ(texts.size(), 4U);
    EXPECT_THAT(texts[0], testing::StartsWith("!(TRACE Name=Gs_Flags::m_traceObserverSteps "
                                              "CurrLevel=2 TraceLevel=2 ) by marie on TIME\n"
                                              "Generated from generic/utils/src/gs/gsObserver/"));
    EXPECT_THAT(texts[0], testing::EndsWith("/Gs_Observer:\nConstructing Gs_Observer\n"));
    EXPECT_THAT(texts[1], testing::EndsWith("/Gs_Observer:\n"
                                            "Copying Gs_Observer N5utils11Gs_ObserverE\n"));
    EXPECT_THAT(texts[2], testing::EndsWith("/~Gs_Observer:\n"
                                            "Destructing Gs_Observer N5utils11Gs_ObserverE\n"));
    EXPECT_EQ(texts[3], texts[2]);
}

TEST_F(GsSubjectTrace, LifeOfAnObserverIsNotTracedAtLevelOne)
{
    flags().m_traceObserverSteps.setValue(1);
    {
        const Gs_Observer observer;
    }
    EXPECT_THAT(m_traces.getTexts(), IsEmpty());
}

TEST_F(GsSubjectTrace, LifeOfAnAdapter)
{
    useFullHeaders();
    Observer observer("panel");
    flags().m_traceUpdateSteps.setValue(2);
    {
        const Gs_UpdateVoid<Gs_Observer> adapter(&observer, &Gs_Observer::update);
    }
    EXPECT_THAT(
        m_traces.getTexts(),
        ElementsAre("!(TRACE Name=Gs_Flags::m_traceUpdateSteps CurrLevel=2 TraceLevel=2 ) "
                    "by marie on TIME\n"
                    "Generated from generic/utils/include/utils/gsUpdateVoid/21/Gs_UpdateVoid:\n"
                    "Constructing Gs_UpdateVoid (panel)\n",
                    "!(TRACE Name=Gs_Flags::m_traceUpdateSteps CurrLevel=2 TraceLevel=2 ) "
                    "by marie on TIME\n"
                    "Generated from generic/utils/include/utils/gsUpdateVoid/28/~Gs_UpdateVoid:\n"
                    "Destructing Gs_UpdateVoid (panel)\n"));
}

TEST_F(GsSubjectTrace, LifeOfAnAdapterIsNotTracedAtLevelOne)
{
    flags().m_traceUpdateSteps.setValue(1);
    Subject subject("mixer");
    Observer observer("panel");
    subject.attach(&observer, &m_level, 1);
    subject.detach(&observer, &m_level, 1);
    EXPECT_THAT(m_traces.getTexts(), IsEmpty());
}

TEST_F(GsSubjectTrace, AttachingAndDetaching)
{
    Subject subject("mixer");
    Observer observer("panel");
    flags().m_traceSubjectSteps.setValue(1);
    subject.attach(&observer, &m_level, 3);
    subject.attach(&observer, &Observer::react, nullptr, 4294967295U);
    subject.detach(&observer, &m_level, 3);
    subject.detachFirst(&observer);
    EXPECT_THAT(
        m_traces.getTexts(),
        ElementsAre(
            "TIME: Attaching Subject (mixer) Observer (panel) Priority (3) Aspect (Level)\n",
            "TIME: Attaching Subject (mixer) Observer (panel) Priority (4294967295) Aspect "
            "(Gs_ChangeAspect)\n",
            "TIME: Detaching Subject (mixer) Observer (panel) Priority (3) Aspect (Level)\n",
            "TIME: Detaching Subject (mixer) Observer (panel) Priority (4294967295) Aspect "
            "(Gs_ChangeAspect)\n"));
}

TEST_F(GsSubjectTrace, PlacesOfAttachingAndDetaching)
{
    useFullHeaders();
    Subject subject("mixer");
    Observer observer("panel");
    flags().m_traceSubjectSteps.setValue(1);
    subject.attach(&observer, &m_level, 3);
    subject.detach(&observer, &m_level, 3);
    EXPECT_THAT(
        getPlaces(),
        ElementsAre("Generated from generic/utils/include/utils/gsSubjectT/37/attach:\n"
                    "Attaching Subject (mixer) Observer (panel) Priority (3) Aspect (Level)\n",
                    "Generated from generic/utils/src/gs/gsSubject/205/detach:\n"
                    "Detaching Subject (mixer) Observer (panel) Priority (3) Aspect (Level)\n"));
}

TEST_F(GsSubjectTrace, AttachingIsTracedInItsSteps)
{
    Subject subject("mixer");
    Observer observer("panel");
    flags().m_traceSubjectSteps.setValue(2);
    flags().m_traceObserverSteps.setValue(2);
    flags().m_traceUpdateSteps.setValue(2);
    subject.attach(&observer, &m_level, 3);
    subject.detach(&observer, &m_level, 3);
    EXPECT_THAT(
        m_traces.getTexts(),
        ElementsAre(
            "TIME: Attaching Subject (mixer) Observer (panel) Priority (3) Aspect (Level)\n",
            "TIME: Constructing Gs_Observer\n", "TIME: Constructing Gs_UpdateVoid (panel)\n",
            "TIME: Detaching Subject (mixer) Observer (panel) Priority (3) Aspect (Level)\n",
            "TIME: Destructing Gs_UpdateVoid (panel)\n",
            "TIME: Destructing Gs_Observer N5utils11Gs_ObserverE\n"));
}

// UndefinedBehaviorSanitizer sees a name that is asked for through a null pointer.
TEST_F(GsSubjectTrace, NullPointersAreNamed)
{
    Subject subject("mixer");
    flags().m_traceSubjectSteps.setValue(1);
    flags().m_traceUpdateSteps.setValue(2);
    subject.attach(nullptr, &m_level, 3);
    subject.detach(nullptr, nullptr, 3);
    subject.detachAll();
    EXPECT_THAT(
        m_traces.getTexts(),
        ElementsAre("TIME: Attaching Subject (mixer) Observer (null) Priority (3) Aspect (Level)\n",
                    "TIME: Constructing Gs_UpdateVoid (null)\n",
                    "TIME: Detaching Subject (mixer) Observer (null) Priority (3) Aspect (null)\n",
                    "TIME: Detaching Subject (mixer) Observer (null) Priority (3) Aspect (Level)\n",
                    "TIME: Destructing Gs_UpdateVoid (null)\n"));
}

TEST_F(GsSubjectTrace, ObserverThatEndsDetachesItself)
{
    Subject subject("mixer");
    {
        Observer observer("panel");
        subject.attach(&observer, &m_level, 1);
        subject.attach(&observer, &m_level, 2);
        flags().m_traceSubjectSteps.setValue(1);
        flags().m_traceUpdateSteps.setValue(2);
    }
    EXPECT_THAT(m_traces.getTexts(),
                ElementsAre("TIME: Detaching Subject (mixer) Observer (N5utils11Gs_ObserverE) "
                            "Priority (1) Aspect (Level)\n",
                            "TIME: Destructing Gs_UpdateVoid (N5utils11Gs_ObserverE)\n",
                            "TIME: Detaching Subject (mixer) Observer (N5utils11Gs_ObserverE) "
                            "Priority (2) Aspect (Level)\n",
                            "TIME: Destructing Gs_UpdateVoid (N5utils11Gs_ObserverE)\n"));
}

TEST_F(GsSubjectTrace, SubjectThatEndsDetachesNobody)
{
    Observer observer("panel");
    {
        Subject subject("mixer");
        subject.attach(&observer, &m_level, 1);
        flags().m_traceSubjectSteps.setValue(1);
        flags().m_traceUpdateSteps.setValue(2);
    }
    EXPECT_THAT(m_traces.getTexts(), ElementsAre("TIME: Destructing Gs_UpdateVoid (panel)\n"));
}

// The adapter asks an observer for its name whose own type has ended already, and with it the way
// from that type to a virtual base.
class Anchor
{
  public:
    virtual ~Anchor() = default;
    std::string m_text = "anchor";
};
class VirtualObserver : public Anchor, public virtual Gs_Observer
{
  public:
    void react() {}
};

TEST_F(GsSubjectTrace, ObserverThatIsAVirtualBaseDetachesItself)
{
    Subject subject("mixer");
    flags().m_traceUpdateSteps.setValue(2);
    {
        VirtualObserver observer;
        subject.attach(&observer, &VirtualObserver::react, &m_level, 1);
        m_traces.clear();
    }
    EXPECT_THAT(m_traces.getTexts(),
                ElementsAre("TIME: Destructing Gs_UpdateVoid (N5utils11Gs_ObserverE)\n"));
}

// One string holds the names of all objects of this class.
class Sharing : public Gs_Subject, public Gs_Observer
{
  public:
    explicit Sharing(char name) : m_ownName(1, name) {}
    void output(std::ostream& os) const override { Gs_Subject::output(os); }
    const std::string& getName() const override
    {
        static std::string theName;
        theName = m_ownName;
        return theName;
    }

  private:
    std::string m_ownName;
};

TEST_F(GsSubjectTrace, ObjectsMayShareTheStringOfTheirNames)
{
    Sharing subject('s');
    Sharing observer('o');
    flags().m_traceSubjectSteps.setValue(1);
    subject.attach(&observer, &m_level, 1);
    EXPECT_THAT(m_traces.getTexts(),
                ElementsAre("TIME: Attaching Subject (s) Observer (o) Priority (1) Aspect "
                            "(Level)\n"));
    subject.attach(&observer, &m_level, 1);
    ASSERT_EQ(m_errors.getTexts().size(), 1U);
    EXPECT_THAT(m_errors.getTexts()[0],
                testing::EndsWith("Subject (s) already attached to Observer (o) with priority "
                                  "(1)."));
}

}  // namespace
