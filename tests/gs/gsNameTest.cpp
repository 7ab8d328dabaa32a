// Names of subjects and observers, and the adapters, which have their observers'.
//
// - names by type, in one string for all subjects and one for all observers
// - an adapter's name, output and function

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include <utils/gsSubject.h>
#include <utils/gsUpdateVoid.h>

#include "gs/Actors.h"
#include "support/ConfigDirectory.h"

namespace
{

using test::Observer;
using utils::Gs_Observer;
using utils::Gs_Subject;
using utils::Gs_UpdateVoid;

class GsName : public testing::Test
{
  private:
    const test::ConfigDirectory m_config;
};

class Detector : public Gs_Subject
{
};
class Panel : public Gs_Observer
{
};

// Types without linkage have names that begin with "*", which is left out.
TEST_F(GsName, NameIsThatOfTheType)
{
    EXPECT_EQ(Gs_Subject().getName(), "N5utils10Gs_SubjectE");
    EXPECT_EQ(Detector().getName(), "N12_GLOBAL__N_18DetectorE");
    EXPECT_EQ(Gs_Observer().getName(), "N5utils11Gs_ObserverE");
    EXPECT_EQ(Panel().getName(), "N12_GLOBAL__N_15PanelE");
}

TEST_F(GsName, NameIsOverwrittenByTheNextCall)
{
    const Gs_Subject subject;
    const Detector detector;
    const std::string& name = subject.getName();
    EXPECT_EQ(&detector.getName(), &name);
    EXPECT_EQ(name, "N12_GLOBAL__N_18DetectorE");

    const Gs_Observer observer;
    const Panel panel;
    const std::string& observersName = observer.getName();
    EXPECT_EQ(&panel.getName(), &observersName);
    EXPECT_EQ(observersName, "N12_GLOBAL__N_15PanelE");
    EXPECT_EQ(name, "N12_GLOBAL__N_18DetectorE");
}

TEST_F(GsName, AdapterHasTheObserversName)
{
    Observer observer("o");
    const Gs_UpdateVoid<Gs_Observer> adapter(&observer, &Gs_Observer::update);
    EXPECT_EQ(&adapter.getName(), &observer.getName());
    std::ostringstream os;
    os << adapter;
    EXPECT_EQ(os.str(), "Observer (o)    Subject --none-- ");
}

TEST_F(GsName, AdapterCallsTheFunction)
{
    Observer observer("o");
    Gs_UpdateVoid<Observer> adapter(&observer, &Observer::react);
    Gs_Observer& base = adapter;
    base.update();
    EXPECT_EQ(observer.m_numReactions, 1);
    EXPECT_EQ(observer.m_numUpdates, 0);
    static_assert(sizeof(Gs_UpdateVoid<Gs_Observer>) == sizeof(Gs_Observer) + 3 * sizeof(void*));
}

}  // namespace
