// Aspects.
//
// - name, output
// - registration: the latest of a name stands there, and destruction leaves it there
// - the creation of the registry is traced
// - the default aspect: one object, its name, made on first use
// - a pointer to the default aspect is usable as any other
// - the platform's debug trace of construction and destruction, at levels above 1

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <libdbg/libdbg.h>

#include <iomanip>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <type_traits>

#include <utils/flagFlagBase.h>
#include <utils/gsAspect.h>
#include <utils/gsChangeAspect.h>
#include <utils/gsSubject.h>

#include "flag_legacy/RecordingOlderTraces.h"
#include "support/ConfigDirectory.h"

namespace
{

using utils::Gs_Aspect;
using utils::Gs_ChangeAspect;
using utils::Gs_Subject;
using utils::Std_Singleton;

using Registry = std::map<std::string, Gs_Aspect*>;

class GsAspect : public testing::Test
{
  protected:
    static Registry& registry() { return *utils::Gs_Singleton<Registry>::getInstancePtr(); }

    const test::ConfigDirectory m_config;
};

TEST_F(GsAspect, HasAName)
{
    EXPECT_EQ(Gs_Aspect("Level").getName(), "Level");
}

TEST_F(GsAspect, Output)
{
    const Gs_Aspect aspect("Level");
    std::ostringstream os;
    aspect.output(os);
    EXPECT_EQ(os.str(), "Aspect (Level)\n");
}

TEST_F(GsAspect, StreamOperatorCallsOutput)
{
    class Special : public Gs_Aspect
    {
      public:
        Special() : Gs_Aspect("Level") {}
        void output(std::ostream& os) const override { os << "special"; }
    };
    std::ostringstream os;
    EXPECT_EQ(&(os << Gs_Aspect("Level") << Special()), &os);
    EXPECT_EQ(os.str(), "Aspect (Level)\nspecial");
}

TEST_F(GsAspect, OutputIgnoresTheTargetsFormat)
{
    std::ostringstream os;
    os << std::setfill('*') << std::setw(40) << std::left;
    Gs_Aspect("Level").output(os);
    EXPECT_EQ(os.str(), "Aspect (Level)\n");
}

TEST_F(GsAspect, EntersItsName)
{
    Gs_Aspect aspect("Level");
    ASSERT_EQ(registry().count("Level"), 1U);
    EXPECT_EQ(registry()["Level"], &aspect);
}

TEST_F(GsAspect, LatestOfANameStandsInTheRegistry)
{
    Gs_Aspect first("Level");
    Gs_Aspect second("Level");
    EXPECT_EQ(registry()["Level"], &second);
}

TEST_F(GsAspect, DestructionLeavesTheEntry)
{
    const Gs_Aspect* address = nullptr;
    {
        const Gs_Aspect aspect("Level");
        address = &aspect;
    }
    ASSERT_EQ(registry().count("Level"), 1U);
    // cppcheck-suppress invalidLifetime ; only the address is compared
    EXPECT_EQ(registry()["Level"], address);
}

TEST_F(GsAspect, CreationOfTheRegistryIsTraced)
{
    m_config.writeValues("Gs_Flags::m_traceSingletonSteps\n1\n");
    const test::RecordingOlderTraces traces;
    const Gs_Aspect first("Level");
    const Gs_Aspect second("Phase");
    EXPECT_THAT(
        traces.getTexts(),
        testing::ElementsAre(
            "TIME: Constructing Singleton "
            "(St3mapINSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEEEPN5utils9Gs_AspectE"
            "St4lessIS5_ESaISt4pairIKS5_S8_EEE)\n"));
}

TEST_F(GsAspect, DefaultAspectIsTheSingleton)
{
    Gs_Aspect* const aspectPtr = Gs_Subject::m_defaultAspectPtr;
    EXPECT_EQ(aspectPtr, Std_Singleton<Gs_ChangeAspect>::getInstancePtr());
    EXPECT_EQ(aspectPtr->getName(), "Gs_ChangeAspect");
    EXPECT_EQ(registry()["Gs_ChangeAspect"], aspectPtr);
}

TEST_F(GsAspect, DefaultAspectIsMadeOnFirstUse)
{
    EXPECT_EQ(registry().size(), 0U);
    Gs_Aspect* const aspectPtr = Gs_Subject::m_defaultAspectPtr;
    EXPECT_EQ(registry().size(), 1U);
    EXPECT_EQ(static_cast<Gs_Aspect*>(Gs_Subject::m_defaultAspectPtr), aspectPtr);
    EXPECT_EQ(registry().size(), 1U);
}

TEST_F(GsAspect, PointerToTheDefaultAspectIsUsedAsAnyPointer)
{
    Gs_Aspect other("Other");
    Gs_Aspect* const aspectPtr = Std_Singleton<Gs_ChangeAspect>::getInstancePtr();
    EXPECT_EQ(Gs_Subject::m_defaultAspectPtr, aspectPtr);
    EXPECT_EQ(aspectPtr, Gs_Subject::m_defaultAspectPtr);
    EXPECT_EQ(Gs_Subject::m_defaultAspectPtr, Std_Singleton<Gs_ChangeAspect>::getInstancePtr());
    EXPECT_NE(Gs_Subject::m_defaultAspectPtr, &other);
    EXPECT_NE(Gs_Subject::m_defaultAspectPtr, nullptr);
    EXPECT_EQ(std::set<Gs_Aspect*>{aspectPtr}.count(Gs_Subject::m_defaultAspectPtr), 1U);
    EXPECT_TRUE(Gs_Subject::m_defaultAspectPtr == aspectPtr);
    EXPECT_TRUE(aspectPtr == Gs_Subject::m_defaultAspectPtr);
    EXPECT_TRUE(Gs_Subject::m_defaultAspectPtr != &other);
    EXPECT_TRUE(Gs_Subject::m_defaultAspectPtr != nullptr);
    EXPECT_TRUE(Gs_Subject::m_defaultAspectPtr ? true : false);
    EXPECT_EQ(Gs_Subject::m_defaultAspectPtr->getName(), "Gs_ChangeAspect");
    EXPECT_EQ((*Gs_Subject::m_defaultAspectPtr).getName(), "Gs_ChangeAspect");
    const auto copy = Gs_Subject::m_defaultAspectPtr;
    EXPECT_EQ(copy->getName(), "Gs_ChangeAspect");
}

TEST_F(GsAspect, ClassesAreWhatTheyShouldBe)
{
    static_assert(std::is_base_of_v<Gs_Aspect, Gs_ChangeAspect>);
    static_assert(sizeof(Gs_ChangeAspect) == sizeof(Gs_Aspect));
    static_assert(std::has_virtual_destructor_v<Gs_Aspect>);
    static_assert(!std::is_copy_constructible_v<Gs_Aspect>);
    static_assert(!std::is_copy_assignable_v<Gs_Aspect>);
}

std::string debugTraceAt(int level)
{
    _dbg_level = level;
    testing::internal::CaptureStderr();
    {
        const Gs_Aspect aspect("100 %s");
    }
    return testing::internal::GetCapturedStderr();
}

TEST_F(GsAspect, DebugTraceAboveLevelOne)
{
    EXPECT_EQ(
        debugTraceAt(2),
        "[2] generic/utils/src/gs/gsAspect:19 Gs_Aspect: Constructing aspect Name (100 %s)\n"
        "[2] generic/utils/src/gs/gsAspect:30 ~Gs_Aspect: Destructing aspect Name (100 %s)\n");
}

TEST_F(GsAspect, NoDebugTraceAtLevelOne)
{
    EXPECT_EQ(debugTraceAt(1), "");
    EXPECT_EQ(debugTraceAt(0), "");
}

// Loading the library makes no older flags, and reads no file: the values are those of a file that
// was written later.
TEST_F(GsAspect, LibraryLoadMakesNoFlagsForTheDefaultAspect)
{
    using utils::flag::Flag_FlagBase;
    const auto& flags = *Std_Singleton<std::map<std::string, Flag_FlagBase*>>::getInstancePtr();
    EXPECT_EQ(flags.size(), 0U);
    m_config.writeValues("Gs_Flags::m_traceAspectSteps\n5\n");
    EXPECT_NE(static_cast<Gs_Aspect*>(Gs_Subject::m_defaultAspectPtr), nullptr);
    ASSERT_EQ(flags.count("Gs_Flags::m_traceAspectSteps"), 1U);
    EXPECT_EQ(flags.at("Gs_Flags::m_traceAspectSteps")->getValueStr(), "5");
}

}  // namespace
