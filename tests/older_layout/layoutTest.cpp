// The order of the fields of the older classes, which is part of the binary interface: behind the
// pointer to the virtual operations, as the comments of the tests list them.

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <map>
#include <set>
#include <string>

#include <utils/utils.h>

#include "err/RecordingStrategy.h"
#include "support/ConfigDirectory.h"

namespace
{

using utils::Gs_Aspect;
using utils::Gs_ChangeAspect;
using utils::Gs_Observer;
using utils::Gs_Subject;
using utils::Gs_UpdateVoid;

// Reads the fields of an object one after the other.
class Fields
{
  public:
    template <typename Object>
    explicit Fields(const Object& object)
        : m_begin(reinterpret_cast<const char*>(&object)), m_size(sizeof(Object))
    {
    }

    // The next field, in place.
    template <typename T>
    const T& next()
    {
        m_offset = (m_offset + alignof(T) - 1) / alignof(T) * alignof(T);
        const T& field = *reinterpret_cast<const T*>(m_begin + m_offset);
        m_offset += sizeof(T);
        return field;
    }

    // Whether the object ends here, but for what its alignment adds.
    bool isEnd() const
    {
        return (m_offset + sizeof(void*) - 1) / sizeof(void*) * sizeof(void*) == m_size;
    }

  private:
    const char* m_begin;
    std::size_t m_size;
    std::size_t m_offset = sizeof(void*);  // behind the pointer to the virtual operations
};

class OlderLayout : public testing::Test
{
  private:
    const test::ConfigDirectory m_config;
    const test::RecordingErrStrategy m_errors;
};

// The name, the value.
TEST_F(OlderLayout, OfFlags)
{
    const utils::flag::Flag_Flag<long> flag("a name", -7);
    Fields fields(flag);
    EXPECT_EQ(fields.next<std::string>(), "a name");
    EXPECT_EQ(fields.next<long>(), -7);
    EXPECT_TRUE(fields.isEnd());
}

// The two flags.
TEST_F(OlderLayout, OfTheTraceSwitches)
{
    using utils::flag::Flag_Flag;
    const utils::flag::Flag_Flags flags;
    Fields fields(flags);
    EXPECT_EQ(&fields.next<Flag_Flag<bool>>(), &flags.m_traceMsgActive);
    EXPECT_EQ(&fields.next<Flag_Flag<int>>(), &flags.m_traceMsgHeaderActive);
    EXPECT_TRUE(fields.isEnd());
}

// The pointer to the flag's name, the flag's value of construction, the level, the stream.
TEST_F(OlderLayout, OfTraceMessages)
{
    const utils::flag::Flag_Flag<int> flag("a name", 5);
    utils::flag::Flag_TraceMsg msg(flag, 3);
    Fields fields(msg);
    EXPECT_EQ(fields.next<const std::string*>(), &flag.getName());
    EXPECT_EQ(fields.next<int>(), 5);
    EXPECT_EQ(fields.next<int>(), 3);
    const std::ostringstream* const& streamPtr = fields.next<const std::ostringstream*>();
    EXPECT_EQ(streamPtr, nullptr);
    const std::ostringstream* const createdPtr = &msg.getStream();
    EXPECT_EQ(streamPtr, createdPtr);
    EXPECT_TRUE(fields.isEnd());
}

// File, line, function, severity, name, user, time, code.
TEST_F(OlderLayout, OfErrors)
{
    setenv("USER", "marie", 1);
    const utils::err::Err_Error error("file", 7, "function", "Severe", "Name");
    Fields fields(error);
    EXPECT_EQ(fields.next<std::string>(), "file");
    EXPECT_EQ(fields.next<int>(), 7);
    EXPECT_EQ(fields.next<std::string>(), "function");
    EXPECT_EQ(fields.next<std::string>(), "Severe");
    EXPECT_EQ(fields.next<std::string>(), "Name");
    EXPECT_EQ(fields.next<std::string>(), "marie");
    EXPECT_EQ(fields.next<std::string>().size(), std::string("Thu Jan  1 00:00:00 1970").size());
    EXPECT_EQ(fields.next<std::uint32_t>(), 0xFFFFFFFFU);
    EXPECT_TRUE(fields.isEnd());
}

// Whether the subject is in its destructor, the current method, the tables, the table of the default aspect.
TEST_F(OlderLayout, OfSubjects)
{
    Gs_Aspect level("Level");
    Gs_Subject subject;
    Fields fields(subject);
    const bool& isInDestructor = fields.next<bool>();
    const std::string& currentMethod = fields.next<std::string>();
    const void* const& aspectTable = fields.next<const void*>();
    const void* const& defaultPriorityTable = fields.next<const void*>();

    EXPECT_FALSE(isInDestructor);
    EXPECT_EQ(currentMethod, "");
    EXPECT_EQ(aspectTable, nullptr);
    EXPECT_EQ(defaultPriorityTable, nullptr);

    class Looking : public Gs_Observer
    {
      public:
        explicit Looking(const std::string& looked) : m_looked(looked) {}
        void update() override { m_seen = m_looked; }
        std::string m_seen;

      private:
        const std::string& m_looked;
    };
    Looking observer(currentMethod);
    subject.attach(&observer, &level, 1);
    EXPECT_NE(aspectTable, nullptr);
    EXPECT_EQ(defaultPriorityTable, nullptr);
    subject.attach(&observer, nullptr, 1);
    EXPECT_NE(defaultPriorityTable, nullptr);

    subject.notify(&level);
    EXPECT_EQ(observer.m_seen, "notify");
    EXPECT_EQ(currentMethod, "");
}

// The subjects.
TEST_F(OlderLayout, OfObservers)
{
    Gs_Subject subject;
    Gs_Observer observer;
    subject.attach(&observer, nullptr, 1);
    Fields fields(observer);
    EXPECT_EQ(fields.next<std::set<Gs_Subject*>>(), (std::set<Gs_Subject*>{&subject}));
    EXPECT_TRUE(fields.isEnd());
}

// Those of an observer, the observer, the function.
TEST_F(OlderLayout, OfAdapters)
{
    using Function = void (Gs_Observer::*)();
    Gs_Observer observer;
    const Gs_UpdateVoid<Gs_Observer> adapter(&observer, &Gs_Observer::update);
    Fields fields(adapter);
    EXPECT_TRUE(fields.next<std::set<Gs_Subject*>>().empty());
    EXPECT_EQ(fields.next<Gs_Observer*>(), &observer);
    EXPECT_TRUE(fields.next<Function>() == &Gs_Observer::update);
    EXPECT_TRUE(fields.isEnd());
}

// The name.
TEST_F(OlderLayout, OfAspects)
{
    const Gs_Aspect aspect("Level");
    Fields fields(aspect);
    EXPECT_EQ(fields.next<std::string>(), "Level");
    EXPECT_TRUE(fields.isEnd());
    static_assert(sizeof(Gs_ChangeAspect) == sizeof(Gs_Aspect));
}

// The name.
TEST_F(OlderLayout, OfStrategies)
{
    const utils::err::SysLogStrategy strategy;
    Fields fields(strategy);
    EXPECT_EQ(fields.next<std::string>(), "SysLog");
    EXPECT_TRUE(fields.isEnd());
}

}  // namespace
