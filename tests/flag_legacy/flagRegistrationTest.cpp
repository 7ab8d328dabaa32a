// Registration and start values of older flags.
//
// - flags register by name and leave when they are destroyed
// - a name that is taken is reported once, as recoverable; the earlier flag stays registered, the
//   later one works
// - destroying either of them removes the name
// - older and newer flags may share a name
// - start values come from the values file, for every type; a text that cannot be converted leaves
//   the default
// - a missing file is reported by the newer errors, once; a strategy that is told may make flags
// - registration and use while static destructors run

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <utils/flag/FlagT.h>
#include <utils/flagFlag.h>
#include <utils/gsFlags.h>

#include "err/RecordingStrategy.h"
#include "support/ClogCapture.h"
#include "support/ConfigDirectory.h"
#include "support/RecordingErrorStrategy.h"

namespace
{

using namespace std::string_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using utils::flag::Flag_Flag;
using utils::flag::Flag_FlagBase;

using Registry = std::map<std::string, Flag_FlagBase*>;

Registry& registry()
{
    return *utils::Std_Singleton<Registry>::getInstancePtr();
}

class FlagRegistration : public testing::Test
{
  protected:
    const int m_userIsSet = setenv("USER", "marie", 1);
    const test::ConfigDirectory m_config;
};

TEST_F(FlagRegistration, EntersTheNameAndLeaves)
{
    {
        Flag_Flag<int> flag("N", 3);
        ASSERT_EQ(registry().count("N"), 1U);
        EXPECT_EQ(registry()["N"], &flag);
    }
    EXPECT_EQ(registry().count("N"), 0U);
}

TEST_F(FlagRegistration, NamesAreInByteWiseOrder)
{
    const Flag_Flag<int> a("a", 1);
    const Flag_Flag<int> b("B", 1);
    const Flag_Flag<int> c("_", 1);
    std::vector<std::string> names;
    for (const auto& entry : registry())
    {
        names.push_back(entry.first);
    }
    EXPECT_THAT(names, ElementsAre("B", "_", "a"));
}

TEST_F(FlagRegistration, NameThatIsTakenIsReported)
{
    const test::RecordingErrStrategy errors;
    Flag_Flag<int> first("N", 3);
    Flag_Flag<bool> second("N", true);
    EXPECT_THAT(errors.getTexts(),
                ElementsAre("!([1.0.0.13]Warning/Err_ObjectAlreadyExistsError) by marie on TIME.\n"
                            "        Generated from "
                            "generic/utils/src/flag/src/flagFlagBase/22/Flag_FlagBase:\n"
                            "        Object 'N' already exists.\0"s));
    EXPECT_THAT(errors.getRecoverables(), ElementsAre(true));
    EXPECT_EQ(registry()["N"], &first);
}

TEST_F(FlagRegistration, NameThatIsTakenDoesNotEndTheProcess)
{
    const test::ClogCapture clog;
    const Flag_Flag<int> first("N", 3);
    const Flag_Flag<int> second("N", 4);
    EXPECT_THAT(clog.getText(), testing::HasSubstr("        Object 'N' already exists."));
}

TEST_F(FlagRegistration, FlagWithoutRegistrationWorks)
{
    const test::RecordingErrStrategy errors;
    m_config.writeValues("N\n7\n");
    const Flag_Flag<int> first("N", 3);
    Flag_Flag<int> second("N", 4);
    EXPECT_EQ(second.getName(), "N");
    EXPECT_EQ(second(), 7);
    EXPECT_TRUE(second.setValueStr("8"));
    EXPECT_EQ(second(), 8);
    EXPECT_EQ(first(), 7);
}

TEST_F(FlagRegistration, DestroyingTheLaterFlagRemovesTheName)
{
    const test::RecordingErrStrategy errors;
    const Flag_Flag<int> first("N", 3);
    {
        const Flag_Flag<int> second("N", 4);
    }
    EXPECT_EQ(registry().count("N"), 0U);
    Flag_Flag<int> third("N", 5);
    EXPECT_EQ(registry()["N"], &third);
    EXPECT_EQ(errors.getTexts().size(), 1U);
}

TEST_F(FlagRegistration, NewerFlagsAreApart)
{
    const test::RecordingErrStrategy errors;
    const Flag_Flag<int> older("N", 3);
    const utils::flag::FlagT<int> newer("N", 4);
    EXPECT_THAT(errors.getTexts(), IsEmpty());
    EXPECT_EQ(utils::flag::Flag::getFlagPtr("N"), &newer);
    EXPECT_EQ(registry()["N"], &older);
}

TEST_F(FlagRegistration, StartValuesComeFromTheFile)
{
    m_config.writeValues(
        "bool\n1\nfloat\n2.5\nint\n-3\nlong\n9223372036854775807\nushort\n65535\n"
        "uint\n4294967295\nulong\n18446744073709551615\nstring\nseveral words, kept\n");
    EXPECT_EQ(Flag_Flag<bool>("bool", false)(), true);
    EXPECT_EQ(Flag_Flag<float>("float", 0)(), 2.5F);
    EXPECT_EQ(Flag_Flag<int>("int", 0)(), -3);
    EXPECT_EQ(Flag_Flag<long>("long", 0)(), 9223372036854775807L);
    EXPECT_EQ(Flag_Flag<unsigned short>("ushort", 0)(), 65535);
    EXPECT_EQ(Flag_Flag<unsigned int>("uint", 0)(), 4294967295U);
    EXPECT_EQ(Flag_Flag<unsigned long>("ulong", 0)(), 18446744073709551615UL);
    EXPECT_EQ(Flag_Flag<std::string>("string", "")(), "several words, kept");
    EXPECT_EQ(Flag_Flag<int>("other", 5)(), 5);
}

TEST_F(FlagRegistration, TextThatCannotBeConvertedLeavesTheDefault)
{
    m_config.writeValues("bool\ntrue\nint\n99999999999\nfloat\nx\nushort\n65536\nempty\n");
    EXPECT_EQ(Flag_Flag<bool>("bool", false)(), false);
    EXPECT_EQ(Flag_Flag<int>("int", 5)(), 5);
    EXPECT_EQ(Flag_Flag<float>("float", 1.5F)(), 1.5F);
    EXPECT_EQ(Flag_Flag<unsigned short>("ushort", 9)(), 9);
    EXPECT_EQ(Flag_Flag<std::string>("empty", "default")(), "default");
}

class Doubling : public Flag_Flag<int>
{
  public:
    using Flag_Flag::Flag_Flag;
    void setValue(const int& value) override { Flag_Flag::setValue(2 * value); }
};

TEST_F(FlagRegistration, StartValueDoesNotGoThroughSetValue)
{
    m_config.writeValues("N\n21\n");
    EXPECT_EQ(Doubling("N", 3)(), 21);
}

TEST_F(FlagRegistration, MissingFileIsReportedOnce)
{
    const test::RecordingErrorStrategy errors;
    m_config.removeValues();
    const Flag_Flag<int> first("a", 3);
    const Flag_Flag<int> second("b", 4);
    EXPECT_THAT(errors.getWords(),
                ElementsAre("Could not read initial flag values from file '" +
                            m_config.getValuesPath() + "' - stream read error."));
    EXPECT_EQ(first(), 3);
    EXPECT_EQ(second(), 4);
}

// A newer strategy that does what the test says.
class Scripted : public utils::strategy::StrategyT<utils::error::Error>
{
  public:
    explicit Scripted(std::function<void()> action)
        : StrategyT("Error", "Scripted", false), m_action(std::move(action))
    {
    }
    bool isInterested(const utils::error::Error&) override { return true; }
    void processClientObject(utils::error::Error&) override { m_action(); }

  private:
    std::function<void()> m_action;
};

// Without care, the singleton of the initial values is asked for inside its own construction.
TEST_F(FlagRegistration, StrategyToldOfAMissingFileMakesAFlag)
{
    std::unique_ptr<Flag_Flag<int>> inner;
    const Scripted strategy([&] { inner = std::make_unique<Flag_Flag<int>>("inner", 4); });
    m_config.removeValues();
    const Flag_Flag<int> outer("outer", 3);
    ASSERT_NE(inner, nullptr);
    EXPECT_EQ((*inner)(), 4);
    EXPECT_EQ(outer(), 3);
}

TEST_F(FlagRegistration, StrategyToldOfATakenNameMakesAFlag)
{
    class Making : public test::RecordingErrStrategy
    {
      public:
        bool processError(const utils::err::Err_Error& error, bool recoverable) override
        {
            m_made = std::make_unique<Flag_Flag<int>>("made", 4);
            m_named = std::make_unique<Flag_Flag<int>>("named", 4);
            return RecordingErrStrategy::processError(error, recoverable);
        }
        std::unique_ptr<Flag_Flag<int>> m_made;
        std::unique_ptr<Flag_Flag<int>> m_named;
    };
    m_config.writeValues("named\n5\n");
    const Making strategy;
    const Flag_Flag<int> first("N", 1);
    const Flag_Flag<int> second("N", 2);
    ASSERT_NE(strategy.m_made, nullptr);
    EXPECT_EQ((*strategy.m_made)(), 4);
    EXPECT_EQ((*strategy.m_named)(), 5);
    EXPECT_EQ(strategy.getTexts().size(), 1U);
}

TEST_F(FlagRegistration, WorksWhileStaticDestructorsRun)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(
        {
            struct AtExit
            {
                ~AtExit()
                {
                    const Flag_Flag<std::string> flag("a name too long to be kept in the object",
                                                      "a value that is just as long as the name");
                    std::fprintf(stderr, "%s %zu\n", flag().c_str(), registry().size());
                }
            };
            static const AtExit atExit;
            static const Flag_Flag<int> earlier("N", 1);
            std::exit(0);
        },
        testing::ExitedWithCode(0), "^a value that is just as long as the name 1\n$");
}

}  // namespace
