// The flags of queues: names (the second with a single colon), defaults, start values from the
// values file.

#include <gtest/gtest.h>

#include <type_traits>

#include "support/ConfigDirectory.h"
#include "utils/queue/Flags.h"

namespace
{

using test::ConfigDirectory;
using utils::flag::Flag;
using utils::queue::Flags;
using utils::singleton::SingletonT;

TEST(QueueFlags, AreFoundUnderTheirNames)
{
    const ConfigDirectory configuration;
    const Flags* const flags = SingletonT<Flags>::getInstancePtr();
    EXPECT_EQ(flags, SingletonT<Flags>::getInstancePtr());
    EXPECT_TRUE(std::has_virtual_destructor_v<Flags>);
    EXPECT_EQ(Flag::getFlagPtr("utils::queue::m_traceSteps"), &flags->m_traceSteps);
    EXPECT_EQ(Flag::getFlagPtr("utils::queue:m_defaultMaxQueueSize"),
              &flags->m_defaultMaxQueueSize);
}

TEST(QueueFlags, HaveTheirDefaults)
{
    const ConfigDirectory configuration;
    const Flags* const flags = SingletonT<Flags>::getInstancePtr();
    EXPECT_EQ(flags->m_traceSteps.getValue(), 0);
    EXPECT_EQ(flags->m_defaultMaxQueueSize.getValue(), 256UL);
}

TEST(QueueFlags, StartFromTheValuesFile)
{
    const ConfigDirectory configuration(
        "utils::queue::m_traceSteps\n2\n"
        "utils::queue:m_defaultMaxQueueSize\n18446744073709551615\n");
    const Flags* const flags = SingletonT<Flags>::getInstancePtr();
    EXPECT_EQ(flags->m_traceSteps.getValue(), 2);
    EXPECT_EQ(flags->m_defaultMaxQueueSize.getValue(), 18446744073709551615UL);
}

TEST(QueueFlags, DoNotAnswerToADoubleColonWhereTheNameHasOne)
{
    const ConfigDirectory configuration("utils::queue::m_defaultMaxQueueSize\n7\n");
    EXPECT_EQ(SingletonT<Flags>::getInstancePtr()->m_defaultMaxQueueSize.getValue(), 256UL);
    EXPECT_EQ(Flag::getFlagPtr("utils::queue::m_defaultMaxQueueSize", true), nullptr);
}

}  // namespace
