// The flags of events: the name without a namespace, default, start value from the values file.

#include <gtest/gtest.h>

#include <type_traits>

#include <utils/observer/Flags.h>

#include "support/ConfigDirectory.h"

namespace
{

using test::ConfigDirectory;
using utils::flag::Flag;
using utils::observer::Flags;
using utils::singleton::SingletonT;

TEST(ObserverFlags, IsOneCollectionOfTheProcessWithAVirtualDestructor)
{
    const ConfigDirectory configuration;
    EXPECT_EQ(SingletonT<Flags>::getInstancePtr(), SingletonT<Flags>::getInstancePtr());
    EXPECT_TRUE(std::has_virtual_destructor_v<Flags>);
}

TEST(ObserverFlags, TraceStepsIsZeroByDefaultAndNamedWithoutNamespace)
{
    const ConfigDirectory configuration;
    const Flags* const flags = SingletonT<Flags>::getInstancePtr();
    EXPECT_EQ(flags->m_traceSteps.getValue(), 0);
    EXPECT_EQ(Flag::getFlagPtr("Flags::m_traceSteps"), &flags->m_traceSteps);
}

TEST(ObserverFlags, TraceStepsStartsFromTheValuesFile)
{
    const ConfigDirectory configuration("Flags::m_traceSteps\n2\n");
    EXPECT_EQ(SingletonT<Flags>::getInstancePtr()->m_traceSteps.getValue(), 2);
}

}  // namespace
