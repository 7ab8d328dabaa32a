// The order of virtual operations, which is part of the binary interface: the destructor takes the
// first two slots, the others follow in the order that the headers give.

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>

#include <utils/utils.h>

namespace
{

using utils::command::Command;
using utils::error::Error;
using utils::flag::Flag;
using utils::flag::FlagT;
using utils::flag::TraceMsg;
using utils::queue::Queue;
using utils::strategy::Strategy;
using utils::strategy::StrategyT;
using utils::task::Task;

// The slot of a virtual operation, counted from 0, as the C++ ABI keeps it in a pointer to member:
// its place in bytes, which on x86-64 is marked by one added.
template <typename MemberPointer>
std::ptrdiff_t slotOf(MemberPointer operation)
{
    struct
    {
        std::ptrdiff_t place;
        std::ptrdiff_t adjustment;
    } representation{};
    static_assert(sizeof(representation) == sizeof(operation));
    std::memcpy(&representation, &operation, sizeof(operation));
    return representation.place / static_cast<std::ptrdiff_t>(sizeof(void*));
}

TEST(VirtualOrder, OfStrategies)
{
    EXPECT_EQ(slotOf(&Strategy::output), 2);
    EXPECT_EQ(slotOf(&StrategyT<TraceMsg>::isInterested), 3);
    EXPECT_EQ(slotOf(&StrategyT<TraceMsg>::processClientObject), 4);
    EXPECT_EQ(slotOf(&StrategyT<Error>::isInterested), 3);
    EXPECT_EQ(slotOf(&StrategyT<Error>::processClientObject), 4);
}

TEST(VirtualOrder, OfFlags)
{
    EXPECT_EQ(slotOf(&Flag::setValueStr), 2);
    EXPECT_EQ(slotOf(&Flag::getValueStr), 3);
    EXPECT_EQ(slotOf(&Flag::output), 4);
    EXPECT_EQ(slotOf(&FlagT<int>::setValueStr), 2);
    EXPECT_EQ(slotOf(&FlagT<int>::getValueStr), 3);
    EXPECT_EQ(slotOf(&FlagT<int>::output), 4);
}

TEST(VirtualOrder, OfMessages)
{
    EXPECT_EQ(slotOf(&TraceMsg::output), 2);
    EXPECT_EQ(slotOf(&Error::output), 2);
}

TEST(VirtualOrder, OfCommands)
{
    EXPECT_EQ(slotOf(&Command::stopMacro), 2);
    EXPECT_EQ(slotOf(&Command::output), 3);
    EXPECT_EQ(slotOf(&Command::myExecute), 4);
    EXPECT_EQ(slotOf(&Command::myReset), 5);
}

TEST(VirtualOrder, OfQueues)
{
    EXPECT_EQ(slotOf(&Queue::write), 2);
    EXPECT_EQ(slotOf(&Queue::output), 3);
}

TEST(VirtualOrder, OfTasks)
{
    EXPECT_EQ(slotOf(&Task::start), 2);
    EXPECT_EQ(slotOf(&Task::terminate), 3);
    EXPECT_EQ(slotOf(&Task::waitingToTerminate), 4);
    EXPECT_EQ(slotOf(&Task::output), 5);
    EXPECT_EQ(slotOf(&Task::initialize), 6);
    EXPECT_EQ(slotOf(&Task::run), 7);
    EXPECT_EQ(slotOf(&Task::finalize), 8);
}

}  // namespace
