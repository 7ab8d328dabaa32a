// The collections of older flags.
//
// - the names, types and defaults of Flag_Flags and Gs_Flags
// - the members' order in memory
// - each collection is made on first use, once, and starts from the values file

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <type_traits>
#include <vector>

#include <utils/flagFlags.h>
#include <utils/gsFlags.h>

#include "support/ConfigDirectory.h"

namespace
{

using utils::Std_Singleton;
using utils::flag::Flag_Flag;
using utils::flag::Flag_FlagBase;
using utils::flag::Flag_Flags;
using utils::flag::Gs_Flags;

using Registry = std::map<std::string, Flag_FlagBase*>;

class FlagCollections : public testing::Test
{
  protected:
    static const Registry& registry() { return *Std_Singleton<Registry>::getInstancePtr(); }

    const test::ConfigDirectory m_config;
};

template <typename T>
void expectFlag(const Flag_Flag<T>& flag, const std::string& name, const T& value)
{
    EXPECT_EQ(flag.getName(), name);
    EXPECT_EQ(flag(), value);
}

TEST_F(FlagCollections, FlagFlags)
{
    const Flag_Flags& flags = *Std_Singleton<Flag_Flags>::getInstancePtr();
    expectFlag<bool>(flags.m_traceMsgActive, "Flag_Flags::m_traceMsgActive", true);
    expectFlag<int>(flags.m_traceMsgHeaderActive, "Flag_Flags::m_traceMsgHeaderActive", -1);
    EXPECT_EQ(registry().size(), 2U);
}

TEST_F(FlagCollections, GsFlags)
{
    const Gs_Flags& flags = *Std_Singleton<Gs_Flags>::getInstancePtr();
    expectFlag<int>(flags.m_traceAspectSteps, "Gs_Flags::m_traceAspectSteps", -1);
    expectFlag<int>(flags.m_traceCmdSteps, "Gs_Flags::m_traceCmdSteps", -1);
    expectFlag<int>(flags.m_traceLogSteps, "Gs_Flags::m_traceLogSteps", -1);
    expectFlag<int>(flags.m_traceMsgSteps, "Gs_Flags::m_traceMsgSteps", -1);
    expectFlag<int>(flags.m_traceObserverSteps, "Gs_Flags::m_traceObserverSteps", -1);
    expectFlag<int>(flags.m_traceQueueSteps, "Gs_Flags::m_traceQueueSteps", -1);
    expectFlag<int>(flags.m_traceSingletonSteps, "Gs_Flags::m_traceSingletonSteps", -1);
    expectFlag<int>(flags.m_traceSubjectSteps, "Gs_Flags::m_traceSubjectSteps", -1);
    expectFlag<std::string>(flags.m_traceSubjectName, "Gs_Flags::m_traceSubjectName", "---");
    expectFlag<int>(flags.m_enableSubjectName, "Gs_Flags::m_enableSubjectName", 0);
    expectFlag<int>(flags.m_traceStateMachineSteps, "Gs_Flags::m_traceStateMachineSteps", -1);
    expectFlag<int>(flags.m_traceTaskSteps, "Gs_Flags::m_traceTaskSteps", -1);
    expectFlag<int>(flags.m_traceTimerSteps, "Gs_Flags::m_traceTimerSteps", -1);
    expectFlag<int>(flags.m_traceTriggerSteps, "Gs_Flags::m_traceTriggerSteps", -1);
    expectFlag<int>(flags.m_traceUpdateSteps, "Gs_Flags::m_traceUpdateSteps", -1);
    expectFlag<int>(flags.m_traceHierarchyNodeSteps, "Gs_Flags::m_traceHierarchyNodeSteps", -1);
    expectFlag<int>(flags.m_tracePartDescriptorSteps, "Gs_Flags::m_tracePartDescriptorSteps", -1);
    expectFlag<int>(flags.m_tracePartBaseSteps, "Gs_Flags::m_tracePartBaseSteps", -1);
    expectFlag<int>(flags.m_traceCatalogSteps, "Gs_Flags::m_traceCatalogSteps", -1);
    expectFlag<int>(flags.m_tracePartParameterSteps, "Gs_Flags::m_tracePartParameterSteps", -1);
    expectFlag<long>(flags.m_defaultStateMachineTickInMs, "Gs_Flags::m_defaultStateMachineTickInMs",
                     50);
    expectFlag<long>(flags.m_defaultStateMachineTimeInStateInMs,
                     "Gs_Flags::m_defaultStateMachineTimeInStateInMs", 150);
    expectFlag<unsigned long>(flags.m_defaultMemLogMinSize, "Gs_Flags::m_defaultMemLogMinSize",
                              2048);
    expectFlag<unsigned long>(flags.m_defaultMemLogMaxSize, "Gs_Flags::m_defaultMemLogMaxSize",
                              4096);
    expectFlag<unsigned long>(flags.m_defaultFileLogMinSize, "Gs_Flags::m_defaultFileLogMinSize",
                              2048);
    expectFlag<unsigned long>(flags.m_defaultFileLogMaxSize, "Gs_Flags::m_defaultFileLogMaxSize",
                              4096);
    EXPECT_EQ(registry().size(), 26U);
}

TEST_F(FlagCollections, MembersStandInOrder)
{
    const Gs_Flags& flags = *Std_Singleton<Gs_Flags>::getInstancePtr();
    const std::vector<const void*> members = {
        &flags.m_traceAspectSteps,
        &flags.m_traceCmdSteps,
        &flags.m_traceLogSteps,
        &flags.m_traceMsgSteps,
        &flags.m_traceObserverSteps,
        &flags.m_traceQueueSteps,
        &flags.m_traceSingletonSteps,
        &flags.m_traceSubjectSteps,
        &flags.m_traceSubjectName,
        &flags.m_enableSubjectName,
        &flags.m_traceStateMachineSteps,
        &flags.m_traceTaskSteps,
        &flags.m_traceTimerSteps,
        &flags.m_traceTriggerSteps,
        &flags.m_traceUpdateSteps,
        &flags.m_traceHierarchyNodeSteps,
        &flags.m_tracePartDescriptorSteps,
        &flags.m_tracePartBaseSteps,
        &flags.m_traceCatalogSteps,
        &flags.m_tracePartParameterSteps,
        &flags.m_defaultStateMachineTickInMs,
        &flags.m_defaultStateMachineTimeInStateInMs,
        &flags.m_defaultMemLogMinSize,
        &flags.m_defaultMemLogMaxSize,
        &flags.m_defaultFileLogMinSize,
        &flags.m_defaultFileLogMaxSize,
    };
    for (std::size_t i = 1; i < members.size(); ++i)
    {
        EXPECT_LT(members[i - 1], members[i]) << i;
    }
    static_assert(std::has_virtual_destructor_v<Gs_Flags>);
    static_assert(std::has_virtual_destructor_v<Flag_Flags>);
}

TEST_F(FlagCollections, AreMadeOnFirstUse)
{
    EXPECT_EQ(registry().size(), 0U);
    const Gs_Flags* const flags = Std_Singleton<Gs_Flags>::getInstancePtr();
    EXPECT_EQ(registry().size(), 26U);
    EXPECT_EQ(Std_Singleton<Gs_Flags>::getInstancePtr(), flags);
    EXPECT_EQ(registry().size(), 26U);
}

TEST_F(FlagCollections, StartFromTheValuesFile)
{
    m_config.writeValues(
        "Gs_Flags::m_traceSubjectSteps\n2\n"
        "Gs_Flags::m_traceSubjectName\nMixer\n"
        "Gs_Flags::m_defaultMemLogMaxSize\n8192\n"
        "Flag_Flags::m_traceMsgActive\n0\n");
    const Gs_Flags& flags = *Std_Singleton<Gs_Flags>::getInstancePtr();
    EXPECT_EQ(flags.m_traceSubjectSteps(), 2);
    EXPECT_EQ(flags.m_traceSubjectName(), "Mixer");
    EXPECT_EQ(flags.m_defaultMemLogMaxSize(), 8192UL);
    EXPECT_EQ(flags.m_traceObserverSteps(), -1);
    EXPECT_FALSE(Std_Singleton<Flag_Flags>::getInstancePtr()->m_traceMsgActive());
}

}  // namespace
