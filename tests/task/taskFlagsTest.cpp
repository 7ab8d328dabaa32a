// The flags of tasks: names (the second with a single colon), defaults, start values from the
// values file.

#include <gtest/gtest.h>

#include <type_traits>

#include "support/ConfigDirectory.h"
#include "utils/task/Flags.h"

namespace
{

using test::ConfigDirectory;
using utils::flag::Flag;
using utils::singleton::SingletonT;
using utils::task::Flags;

TEST(TaskFlags, AreFoundUnderTheirNames)
{
    const ConfigDirectory configuration;
    const Flags* const flags = SingletonT<Flags>::getInstancePtr();
    EXPECT_EQ(flags, SingletonT<Flags>::getInstancePtr());
    EXPECT_TRUE(std::has_virtual_destructor_v<Flags>);
    EXPECT_EQ(Flag::getFlagPtr("utils::task::m_traceSteps"), &flags->m_traceSteps);
    EXPECT_EQ(Flag::getFlagPtr("utils::task:m_defaultMaxEventQueueSize"),
              &flags->m_defaultMaxEventQueueSize);
}

TEST(TaskFlags, HaveTheirDefaults)
{
    const ConfigDirectory configuration;
    const Flags* const flags = SingletonT<Flags>::getInstancePtr();
    EXPECT_EQ(flags->m_traceSteps.getValue(), 0);
    EXPECT_EQ(flags->m_defaultMaxEventQueueSize.getValue(), 256UL);
}

TEST(TaskFlags, StartFromTheValuesFile)
{
    const ConfigDirectory configuration(
        "utils::task::m_traceSteps\n2\n"
        "utils::task:m_defaultMaxEventQueueSize\n12\n");
    const Flags* const flags = SingletonT<Flags>::getInstancePtr();
    EXPECT_EQ(flags->m_traceSteps.getValue(), 2);
    EXPECT_EQ(flags->m_defaultMaxEventQueueSize.getValue(), 12UL);
}

TEST(TaskFlags, DoNotAnswerToADoubleColonWhereTheNameHasOne)
{
    const ConfigDirectory configuration("utils::task::m_defaultMaxEventQueueSize\n7\n");
    EXPECT_EQ(SingletonT<Flags>::getInstancePtr()->m_defaultMaxEventQueueSize.getValue(), 256UL);
    EXPECT_EQ(Flag::getFlagPtr("utils::task::m_defaultMaxEventQueueSize", true), nullptr);
}

}  // namespace
