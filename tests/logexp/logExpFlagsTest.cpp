// The flags of logical expressions: name, the default -1, start value from the values file.

#include <gtest/gtest.h>

#include <type_traits>

#include <utils/logexp/Flags.h>

#include "support/ConfigDirectory.h"

namespace
{

using test::ConfigDirectory;
using utils::flag::Flag;
using utils::logexp::Flags;
using utils::singleton::SingletonT;

TEST(LogExpFlags, IsOneCollectionOfTheProcessWithAVirtualDestructor)
{
    const ConfigDirectory configuration;
    EXPECT_EQ(SingletonT<Flags>::getInstancePtr(), SingletonT<Flags>::getInstancePtr());
    EXPECT_TRUE(std::has_virtual_destructor_v<Flags>);
}

TEST(LogExpFlags, TraceStepsIsMinusOneByDefault)
{
    const ConfigDirectory configuration;
    const Flags* const flags = SingletonT<Flags>::getInstancePtr();
    EXPECT_EQ(flags->m_traceSteps.getValue(), -1);
    EXPECT_EQ(Flag::getFlagPtr("utils::logexp::m_traceSteps"), &flags->m_traceSteps);
}

TEST(LogExpFlags, TraceStepsStartsFromTheValuesFile)
{
    const ConfigDirectory configuration("utils::logexp::m_traceSteps\n2\n");
    EXPECT_EQ(SingletonT<Flags>::getInstancePtr()->m_traceSteps.getValue(), 2);
}

}  // namespace
