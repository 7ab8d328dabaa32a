// The order of virtual operations of the older classes, which is part of the binary interface: the
// destructor takes the first two slots, the others follow in the order that the headers give.

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <iosfwd>

#include <utils/utils.h>

namespace
{

using utils::Gs_Aspect;
using utils::Gs_ChangeAspect;
using utils::Gs_Observer;
using utils::Gs_Subject;
using utils::Gs_UpdateVoid;

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

TEST(OlderVirtualOrder, OfFlags)
{
    using namespace utils::flag;
    EXPECT_EQ(slotOf(&Flag_FlagBase::setValueStr), 2);
    EXPECT_EQ(slotOf(&Flag_FlagBase::output), 3);
    EXPECT_EQ(slotOf(&Flag_FlagBase::getValueStr), 4);
    EXPECT_EQ(slotOf(&Flag_Flag<int>::setValueStr), 2);
    EXPECT_EQ(slotOf(&Flag_Flag<int>::output), 3);
    EXPECT_EQ(slotOf(&Flag_Flag<int>::getValueStr), 4);
    EXPECT_EQ(slotOf(&Flag_Flag<int>::setValue), 5);
    EXPECT_EQ(slotOf(&Flag_Flag<int>::getValue), 6);
}

TEST(OlderVirtualOrder, OfTraceStrategies)
{
    using utils::flag::Flag_TraceStrategy;
    EXPECT_EQ(slotOf(&Flag_TraceStrategy::processTrace), 2);
    EXPECT_EQ(slotOf(&Flag_TraceStrategy::isInterested), 3);
    EXPECT_EQ(slotOf(&Flag_TraceStrategy::cleanUp), 4);
}

TEST(OlderVirtualOrder, OfErrors)
{
    using namespace utils::err;
    EXPECT_EQ(slotOf(&Err_Error::output), 2);
    EXPECT_EQ(slotOf(&Err_Error::getString), 3);
    EXPECT_EQ(slotOf(&Err_Error::exitOnError), 4);
    EXPECT_EQ(slotOf(&Err_NullPtrError::output), 2);
    EXPECT_EQ(slotOf(&Err_ObjectAlreadyExistsError::output), 2);
    EXPECT_EQ(slotOf(&Err_ObjectDoesNotExistError::output), 2);
    EXPECT_EQ(slotOf(&Gs_AttachAlreadyExistsError::output), 2);
    EXPECT_EQ(slotOf(&Gs_AttachDoesNotExistError::output), 2);
}

TEST(OlderVirtualOrder, OfErrorStrategies)
{
    using namespace utils::err;
    EXPECT_EQ(slotOf(&Err_Strategy::processError), 2);
    EXPECT_EQ(slotOf(&Err_Strategy::isInterested), 3);
    EXPECT_EQ(slotOf(&Err_Strategy::cleanUp), 4);
    EXPECT_EQ(slotOf(&StandardOutStrategy::processError), 2);
    EXPECT_EQ(slotOf(&SysLogStrategy::isInterested), 3);
}

TEST(OlderVirtualOrder, OfSubjects)
{
    EXPECT_EQ(slotOf(&Gs_Subject::output), 2);
    EXPECT_EQ(slotOf(&Gs_Subject::notify), 3);
    EXPECT_EQ(slotOf(&Gs_Subject::getName), 4);
    EXPECT_EQ(slotOf(&Gs_Subject::getTick), 5);
}

TEST(OlderVirtualOrder, OfObservers)
{
    EXPECT_EQ(slotOf(&Gs_Observer::update), 2);
    EXPECT_EQ(slotOf(&Gs_Observer::output), 3);
    EXPECT_EQ(slotOf(&Gs_Observer::getName), 4);
    EXPECT_EQ(slotOf(&Gs_UpdateVoid<Gs_Observer>::update), 2);
    EXPECT_EQ(slotOf(&Gs_UpdateVoid<Gs_Observer>::output), 3);
    EXPECT_EQ(slotOf(&Gs_UpdateVoid<Gs_Observer>::getName), 4);
}

TEST(OlderVirtualOrder, OfAspects)
{
    EXPECT_EQ(slotOf(static_cast<void (Gs_Aspect::*)(std::ostream&) const>(&Gs_Aspect::output)), 2);
    EXPECT_EQ(slotOf(&Gs_ChangeAspect::output), 2);
}

}  // namespace
