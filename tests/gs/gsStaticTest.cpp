// The default aspect in static initialisers.
//
// - it can be dereferenced, attached at and notified before main
// - it is the same afterwards

#include <gtest/gtest.h>

#include <string>

#include <utils/gsSubject.h>

#include "gs/Actors.h"

namespace
{

using utils::Gs_Aspect;
using utils::Gs_Subject;

Gs_Aspect* const theDefaultAspectPtr = Gs_Subject::m_defaultAspectPtr;
const std::string theName = Gs_Subject::m_defaultAspectPtr->getName();

// Attaches and notifies before main.
struct Early
{
    Early()
    {
        m_subject.attach(&m_observer, Gs_Subject::m_defaultAspectPtr, 1);
        m_subject.notify(Gs_Subject::m_defaultAspectPtr);
    }

    test::Subject m_subject{"early"};
    test::Observer m_observer{"panel"};
};
Early theEarly;

TEST(GsStatic, DefaultAspectIsThere)
{
    EXPECT_EQ(theName, "Gs_ChangeAspect");
    EXPECT_EQ(theEarly.m_observer.m_numUpdates, 1);
}

TEST(GsStatic, DefaultAspectStaysTheSame)
{
    EXPECT_EQ(theDefaultAspectPtr, utils::Std_Singleton<utils::Gs_ChangeAspect>::getInstancePtr());
    theEarly.m_subject.notify(theDefaultAspectPtr);
    EXPECT_EQ(theEarly.m_observer.m_numUpdates, 2);
}

}  // namespace
