// The library's singletons and templates are one per process, also for a plug-in that is built
// with hidden symbols, without symbols that the loader unifies, and loaded with RTLD_LOCAL.
//
// - both sides see the same instances
// - an error of the plug-in reaches a strategy of the program, and the other way round

#include <dlfcn.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>

#include <utils/error/DefaultStrategy.h>
#include <utils/flag/DefaultStrategy.h>
#include <utils/flag/Flags.h>
#include <utils/flag/InitialValues.h>

#include "support/ClogCapture.h"
#include "support/ConfigDirectory.h"
#include "support/RecordingErrorStrategy.h"

namespace
{

using utils::singleton::SingletonT;

class SingletonInPlugin : public testing::Test
{
  protected:
    void SetUp() override { ASSERT_NE(m_plugin, nullptr) << dlerror(); }

    template <typename Function>
    Function* find(const char* name) const
    {
        void* const symbol = dlsym(m_plugin, name);
        EXPECT_NE(symbol, nullptr) << name;
        return reinterpret_cast<Function*>(symbol);
    }

    void* call(const char* name) const { return find<void*()>(name)(); }

    const test::ConfigDirectory m_config;
    void* const m_plugin = dlopen(PLUGIN_PATH, RTLD_NOW | RTLD_LOCAL);
};

TEST_F(SingletonInPlugin, SharesTheInstancesOfTheProgram)
{
    using FlagRegistry = std::map<std::string, utils::flag::Flag*>;
    using StrategyRegistry =
        std::map<std::string, utils::strategy::Strategy::StrategyCollectionInfo*>;

    EXPECT_EQ(call("pluginFlags"), SingletonT<utils::flag::Flags>::getInstancePtr());
    EXPECT_EQ(call("pluginInitialValues"),
              SingletonT<utils::flag::InitialValues>::getInstancePtr());
    EXPECT_EQ(call("pluginTraceStrategy"),
              SingletonT<utils::flag::DefaultStrategy>::getInstancePtr());
    EXPECT_EQ(call("pluginErrorStrategy"),
              SingletonT<utils::error::DefaultStrategy>::getInstancePtr());
    EXPECT_EQ(call("pluginFlagRegistry"), SingletonT<FlagRegistry>::getInstancePtr());
    EXPECT_EQ(call("pluginStrategyRegistry"), SingletonT<StrategyRegistry>::getInstancePtr());
}

TEST_F(SingletonInPlugin, ErrorsOfThePluginReachTheProgramsStrategy)
{
    const test::RecordingErrorStrategy errors;
    find<void()>("pluginReport")();
    EXPECT_THAT(errors.getWords(), testing::ElementsAre("from the plug-in"));
}

TEST_F(SingletonInPlugin, ErrorsOfTheProgramReachThePluginsStrategy)
{
    const test::ClogCapture clog;
    const std::unique_ptr<utils::strategy::Strategy> strategy(
        find<utils::strategy::Strategy*()>("pluginMakeErrorStrategy")());

    EXPECT_EQ(utils::flag::Flag::getFlagPtr("nobody"), nullptr);

    EXPECT_THAT(clog.getText(), testing::HasSubstr("Flag 'nobody' does not exist."));
}

}  // namespace
