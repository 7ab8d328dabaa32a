// The flags of commands: name, default, start value from the values file.

#include <gtest/gtest.h>

#include <type_traits>

#include "support/ConfigDirectory.h"
#include "utils/command/Flags.h"

namespace
{

using test::ConfigDirectory;
using utils::command::Flags;
using utils::flag::Flag;
using utils::singleton::SingletonT;

TEST(CommandFlags, IsOneCollectionOfTheProcessWithAVirtualDestructor)
{
    const ConfigDirectory configuration;
    EXPECT_EQ(SingletonT<Flags>::getInstancePtr(), SingletonT<Flags>::getInstancePtr());
    EXPECT_TRUE(std::has_virtual_destructor_v<Flags>);
}

TEST(CommandFlags, TraceStepsIsZeroByDefault)
{
    const ConfigDirectory configuration;
    EXPECT_EQ(SingletonT<Flags>::getInstancePtr()->m_traceSteps.getValue(), 0);
}

TEST(CommandFlags, TraceStepsIsFoundUnderItsName)
{
    const ConfigDirectory configuration;
    const Flags* const flags = SingletonT<Flags>::getInstancePtr();
    EXPECT_EQ(Flag::getFlagPtr("utils::command::m_traceSteps"), &flags->m_traceSteps);
}

TEST(CommandFlags, TraceStepsStartsFromTheValuesFile)
{
    const ConfigDirectory configuration("utils::command::m_traceSteps\n2\n");
    EXPECT_EQ(SingletonT<Flags>::getInstancePtr()->m_traceSteps.getValue(), 2);
}

}  // namespace
