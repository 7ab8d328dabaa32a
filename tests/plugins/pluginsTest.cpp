// What the library keeps once a process is one for a program and its plug-ins, also when those are
// built with hidden symbols, without symbols that the loader unifies, and loaded with RTLD_LOCAL.
//
// - every singleton of the library is the same object for all of them
// - flags, queues, tasks, aspects and older flags made by one are found by the others by name, from
//   inside of each
// - a report or trace of one reaches the strategies of all, in either generation
// - type information is one: a strategy of one is cast by another
// - an exception thrown in one is caught in another by its type, or by its base class
// - what a plug-in registered is gone when it has stopped, and can be registered again

#include <dlfcn.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "Plugin.h"
#include "support/ClogCapture.h"
#include "support/ConfigDirectory.h"

namespace
{

using plugins::Plugin;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

Plugin* load(const char* path)
{
    void* const library = dlopen(path, RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr)
    {
        ADD_FAILURE() << dlerror();
        return nullptr;
    }
    auto* const entry = reinterpret_cast<Plugin* (*)()>(dlsym(library, "pluginEntry"));
    return entry();
}

class Plugins : public testing::Test
{
  protected:
    void SetUp() override
    {
        ASSERT_NE(m_first, nullptr);
        ASSERT_NE(m_second, nullptr);
        ASSERT_NE(m_first, m_second);
        m_first->start();
        m_second->start();
    }

    void TearDown() override
    {
        m_first->stop();
        m_second->stop();
    }

    const test::ConfigDirectory m_config;
    Plugin* const m_first = load(FIRST_PLUGIN);
    Plugin* const m_second = load(SECOND_PLUGIN);
};

TEST_F(Plugins, ShareEverySingletonWithTheProgram)
{
    const std::vector<const void*> instances = plugins::instances();
    EXPECT_THAT(instances, testing::SizeIs(23));
    EXPECT_EQ(m_first->instances(), instances);
    EXPECT_EQ(m_second->instances(), instances);
}

TEST_F(Plugins, ShareTheTypeInformation)
{
    const std::vector<const std::type_info*> types = plugins::types();
    EXPECT_EQ(m_first->types(), types);
    EXPECT_EQ(m_second->types(), types);
}

// The program's look-ups, and those made inside of either plug-in.
TEST_F(Plugins, FindEachOthersObjectsByName)
{
    plugins::Objects ofProgram("program");
    const std::map<std::string, plugins::Found> registered = {
        {"program", ofProgram.found()},
        {"first", m_first->objects->found()},
        {"second", m_second->objects->found()}};
    for (const auto& [owner, objects] : registered)
    {
        EXPECT_EQ(plugins::find(owner), objects) << owner;
        EXPECT_EQ(m_first->find(owner), objects) << owner;
        EXPECT_EQ(m_second->find(owner), objects) << owner;
    }
}

TEST_F(Plugins, HearEachOthersReports)
{
    m_first->report("OfFirst");
    m_second->report("OfSecond");
    EXPECT_EQ(m_first->reports.size(), 2U);
    EXPECT_EQ(m_first->reports, m_second->reports);
    EXPECT_THAT(m_first->reports,
                ElementsAre(testing::StartsWith("OfFirst: !INFO: OfFirst by "),
                            testing::StartsWith("OfSecond: !INFO: OfSecond by ")));
}

TEST_F(Plugins, HearEachOthersOlderReports)
{
    m_first->reportOlder("OfFirst");
    m_second->reportOlder("OfSecond");
    EXPECT_THAT(m_first->reports, ElementsAre("OfFirst", "OfSecond"));
    EXPECT_THAT(m_second->reports, ElementsAre("OfFirst", "OfSecond"));
}

TEST_F(Plugins, HearEachOthersTraces)
{
    m_first->trace("OfFirst");
    m_second->trace("OfSecond");
    EXPECT_THAT(m_first->reports,
                ElementsAre(testing::EndsWith("OfFirst"), testing::EndsWith("OfSecond")));
    EXPECT_EQ(m_first->reports, m_second->reports);
}

TEST_F(Plugins, HearEachOthersOlderTraces)
{
    m_first->traceOlder("OfFirst");
    m_second->traceOlder("OfSecond");
    EXPECT_THAT(m_first->reports,
                ElementsAre(testing::HasSubstr("OfFirst"), testing::HasSubstr("OfSecond")));
    EXPECT_EQ(m_first->reports, m_second->reports);
}

TEST_F(Plugins, CastEachOthersStrategies)
{
    using ErrorStrategy = utils::strategy::StrategyT<utils::error::Error>;
    EXPECT_NE(dynamic_cast<ErrorStrategy*>(m_first->errorStrategy), nullptr);
    EXPECT_NE(dynamic_cast<ErrorStrategy*>(m_second->errorStrategy), nullptr);
}

TEST_F(Plugins, CatchEachOthersExceptionsByType)
{
    const std::array<std::string, plugins::NUM_KINDS> caught = {
        "Err_GeneralError Err_NullPtrError", "Error Name", "out_of_range", "Refusal no"};
    Plugin program{};
    program.raise = plugins::raise;
    for (int kind = 0; kind < plugins::NUM_KINDS; ++kind)
    {
        const std::string& expected = caught[static_cast<std::size_t>(kind)];
        EXPECT_EQ(m_first->catchFrom(*m_second, kind), expected);
        EXPECT_EQ(m_second->catchFrom(*m_first, kind), expected);
        EXPECT_EQ(m_first->catchFrom(program, kind), expected);
        EXPECT_EQ(plugins::catchFrom(*m_second, kind), expected);
    }
}

TEST_F(Plugins, TakeTheirObjectsWithThem)
{
    m_first->stop();
    EXPECT_EQ(utils::flag::Flag::getFlagPtr("first.flag", true), nullptr);
    m_second->report("AfterFirst");
    EXPECT_THAT(m_first->reports, IsEmpty());
    EXPECT_THAT(m_second->reports, Each(testing::StartsWith("AfterFirst")));

    m_first->start();
    EXPECT_EQ(utils::flag::Flag::getFlagPtr("first.flag"), &m_first->objects->flag);
}

}  // namespace
