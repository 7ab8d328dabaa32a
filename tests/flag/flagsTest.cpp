// Flag collections.
//
// - a collection's flags register on the first access of its singleton, under their exact names
//   and with their defaults
// - a second access registers nothing
// - the members of utils::flag::Flags stand in their order
// - the values file sets them
// - several threads whose first accesses meet: of one collection and of different ones

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <latch>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include <utils/command/Flags.h>
#include <utils/flag/Flags.h>
#include <utils/queue/Flags.h>
#include <utils/task/Flags.h>

#include "support/ConfigDirectory.h"

namespace
{

using utils::flag::Flag;
using utils::flag::FlagT;
using utils::singleton::SingletonT;

std::string listing()
{
    std::ostringstream os;
    Flag::outputFlags(os);
    return os.str();
}

TEST(Flags, OfTracing)
{
    const test::ConfigDirectory config;
    utils::flag::Flags& flags = *SingletonT<utils::flag::Flags>::getInstancePtr();
    EXPECT_EQ(listing(),
              "*** Current flags are:\n"
              "Name  = 'utils::flag::m_dummy'\n"
              "Value = 0\n"
              "\n"
              "Name  = 'utils::flag::m_enableTraceMsgHeaders'\n"
              "Value = -1\n"
              "\n"
              "Name  = 'utils::flag::m_enableTraceMsgs'\n"
              "Value = 1\n"
              "\n");
    const FlagT<bool>& master = flags.m_enableTraceMsgs;
    const FlagT<int>& headers = flags.m_enableTraceMsgHeaders;
    const FlagT<int>& dummy = flags.m_dummy;
    EXPECT_EQ(Flag::getFlagPtr("utils::flag::m_enableTraceMsgs"), &master);
    EXPECT_EQ(Flag::getFlagPtr("utils::flag::m_enableTraceMsgHeaders"), &headers);
    EXPECT_EQ(Flag::getFlagPtr("utils::flag::m_dummy"), &dummy);
}

TEST(Flags, OfTracingStandInTheirOrder)
{
    const test::ConfigDirectory config;
    const utils::flag::Flags flags;
    const std::less<const void*> isBefore;
    EXPECT_TRUE(isBefore(&flags.m_enableTraceMsgs, &flags.m_enableTraceMsgHeaders));
    EXPECT_TRUE(isBefore(&flags.m_enableTraceMsgHeaders, &flags.m_dummy));
}

TEST(Flags, OfCommands)
{
    const test::ConfigDirectory config;
    const FlagT<int>& steps = SingletonT<utils::command::Flags>::getInstancePtr()->m_traceSteps;
    EXPECT_EQ(steps.getName(), "utils::command::m_traceSteps");
    EXPECT_EQ(listing(),
              "*** Current flags are:\n"
              "Name  = 'utils::command::m_traceSteps'\n"
              "Value = 0\n"
              "\n");
}

TEST(Flags, OfQueues)
{
    const test::ConfigDirectory config;
    const utils::queue::Flags& flags = *SingletonT<utils::queue::Flags>::getInstancePtr();
    const FlagT<int>& steps = flags.m_traceSteps;
    const FlagT<unsigned long>& size = flags.m_defaultMaxQueueSize;
    EXPECT_EQ(steps.getName(), "utils::queue::m_traceSteps");
    EXPECT_EQ(size.getName(), "utils::queue:m_defaultMaxQueueSize");
    EXPECT_EQ(listing(),
              "*** Current flags are:\n"
              "Name  = 'utils::queue::m_traceSteps'\n"
              "Value = 0\n"
              "\n"
              "Name  = 'utils::queue:m_defaultMaxQueueSize'\n"
              "Value = 256\n"
              "\n");
}

TEST(Flags, OfTasks)
{
    const test::ConfigDirectory config;
    const utils::task::Flags& flags = *SingletonT<utils::task::Flags>::getInstancePtr();
    const FlagT<int>& steps = flags.m_traceSteps;
    const FlagT<unsigned long>& size = flags.m_defaultMaxEventQueueSize;
    EXPECT_EQ(steps.getName(), "utils::task::m_traceSteps");
    EXPECT_EQ(size.getName(), "utils::task:m_defaultMaxEventQueueSize");
    EXPECT_EQ(listing(),
              "*** Current flags are:\n"
              "Name  = 'utils::task::m_traceSteps'\n"
              "Value = 0\n"
              "\n"
              "Name  = 'utils::task:m_defaultMaxEventQueueSize'\n"
              "Value = 256\n"
              "\n");
}

TEST(Flags, SecondAccessRegistersNothing)
{
    const test::ConfigDirectory config;
    const auto* const flags = SingletonT<utils::queue::Flags>::getInstancePtr();
    const std::string before = listing();
    EXPECT_EQ(SingletonT<utils::queue::Flags>::getInstancePtr(), flags);
    EXPECT_EQ(listing(), before);
}

TEST(Flags, StartFromTheValuesFile)
{
    const test::ConfigDirectory config(
        "utils::flag::m_enableTraceMsgs\n0\n"
        "utils::flag::m_enableTraceMsgHeaders\n2\n"
        "utils::flag::m_dummy\n-9\n"
        "utils::command::m_traceSteps\n1\n"
        "utils::queue::m_traceSteps\n3\n"
        "utils::queue:m_defaultMaxQueueSize\n1000000\n"
        "utils::task::m_traceSteps\n4\n"
        "utils::task:m_defaultMaxEventQueueSize\n5\n");
    const auto& flag = *SingletonT<utils::flag::Flags>::getInstancePtr();
    EXPECT_EQ(flag.m_enableTraceMsgs(), false);
    EXPECT_EQ(flag.m_enableTraceMsgHeaders(), 2);
    EXPECT_EQ(flag.m_dummy(), -9);
    EXPECT_EQ(SingletonT<utils::command::Flags>::getInstancePtr()->m_traceSteps(), 1);
    const auto& queue = *SingletonT<utils::queue::Flags>::getInstancePtr();
    EXPECT_EQ(queue.m_traceSteps(), 3);
    EXPECT_EQ(queue.m_defaultMaxQueueSize(), 1000000UL);
    const auto& task = *SingletonT<utils::task::Flags>::getInstancePtr();
    EXPECT_EQ(task.m_traceSteps(), 4);
    EXPECT_EQ(task.m_defaultMaxEventQueueSize(), 5UL);
}

// Runs every action on a thread of its own, all at once.
void runTogether(const std::vector<std::function<void()>>& actions)
{
    std::latch start(static_cast<std::ptrdiff_t>(actions.size()));
    std::vector<std::thread> threads;
    for (const auto& action : actions)
    {
        threads.emplace_back(
            [&start, &action]
            {
                start.arrive_and_wait();
                action();
            });
    }
    for (std::thread& thread : threads)
    {
        thread.join();
    }
}

template <typename Collection>
void use()
{
    SingletonT<Collection>::getInstancePtr();
}

// The first accesses read the values file and fill the registry at once. Without a lock beside
// the registry ThreadSanitizer reports the two insertions.
TEST(Flags, CollectionsOfTwoSubsystemsMayBeCreatedAtOnce)
{
    const test::ConfigDirectory config("utils::queue::m_traceSteps\n3\n");
    runTogether({use<utils::command::Flags>, use<utils::queue::Flags>});
    EXPECT_EQ(SingletonT<utils::queue::Flags>::getInstancePtr()->m_traceSteps(), 3);
    EXPECT_EQ(listing(),
              "*** Current flags are:\n"
              "Name  = 'utils::command::m_traceSteps'\n"
              "Value = 0\n"
              "\n"
              "Name  = 'utils::queue::m_traceSteps'\n"
              "Value = 3\n"
              "\n"
              "Name  = 'utils::queue:m_defaultMaxQueueSize'\n"
              "Value = 256\n"
              "\n");
}

// A collection of an application.
template <int Number>
class AppFlags
{
  public:
    FlagT<int> m_first{"app" + std::to_string(Number) + "::m_first", Number};
    FlagT<std::string> m_second{"app" + std::to_string(Number) + "::m_second", "two"};
    FlagT<bool> m_third{"app" + std::to_string(Number) + "::m_third", true};
};

TEST(Flags, ManyCollectionsMayBeCreatedAtOnce)
{
    const test::ConfigDirectory config("app3::m_first\n33\n");
    runTogether({use<AppFlags<1>>, use<AppFlags<2>>, use<AppFlags<3>>, use<AppFlags<4>>,
                 use<utils::flag::Flags>, use<utils::task::Flags>});
    EXPECT_EQ(SingletonT<AppFlags<1>>::getInstancePtr()->m_first(), 1);
    EXPECT_EQ(SingletonT<AppFlags<3>>::getInstancePtr()->m_first(), 33);
    for (const char* const name :
         {"app1::m_third", "app2::m_second", "app4::m_first", "utils::flag::m_dummy"})
    {
        EXPECT_NE(Flag::getFlagPtr(name), nullptr) << name;
    }
}

TEST(Flags, OneCollectionMayBeAskedForByManyThreadsAtOnce)
{
    const test::ConfigDirectory config;
    runTogether({use<AppFlags<5>>, use<AppFlags<5>>, use<AppFlags<5>>, use<AppFlags<5>>});
    EXPECT_NE(Flag::getFlagPtr("app5::m_first"), nullptr);
}

}  // namespace
