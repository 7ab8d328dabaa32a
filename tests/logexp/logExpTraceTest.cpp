// What the evaluation of logical expressions traces.
//
// - level 2: the steps, in their order, sections as they are reduced; level 3: what they found
// - the section number, which is otherwise not used
// - the step of an empty section, which has no result
// - the flag, the level and the place that the full header names
// - nothing below the level; off by default

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <stdexcept>
#include <string>

#include <utils/flag/Flags.h>
#include <utils/logexp/Flags.h>
#include <utils/logexp/LogExp.h>

#include "support/ConfigDirectory.h"
#include "support/RecordingTraceStrategy.h"

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;
using testing::MatchesRegex;
using utils::logexp::Flags;
using utils::logexp::LogExp;
using utils::singleton::SingletonT;

class LogExpTrace : public testing::Test
{
  protected:
    static void setLevel(int level)
    {
        SingletonT<Flags>::getInstancePtr()->m_traceSteps.setValue(level);
    }

    const test::ConfigDirectory m_emptyConfiguration;
    const std::map<std::string, bool> m_table{{"a", true}, {"b", false}};
    test::RecordingTraceStrategy m_traces;
};

TEST_F(LogExpTrace, ShowsStepsAtLevelTwo)
{
    setLevel(2);
    EXPECT_FALSE(LogExp::evaluate("!(a | (b)) @ cd", m_table));
    EXPECT_THAT(
        m_traces.getWords(),
        ElementsAre("    parse !(a | (b)) @ cd", "    getIdValue a", "    getIdValue b",
                    "    getIdValue cd", "    calculate !(1|(0))&0", "    calculateSection.0 0",
                    "    calculateSection.0 1|0", "    calculateSection.0 !1&0"));
}

TEST_F(LogExpTrace, ShowsFindingsAtLevelThree)
{
    setLevel(3);
    EXPECT_TRUE(LogExp::evaluate("(b)|a&!c", m_table));
    EXPECT_THAT(
        m_traces.getWords(),
        ElementsAre("    parse (b)|a&!c", "    getIdValue b", "      b found", "      b = 0",
                    "    getIdValue a", "      a found", "      a = 1", "    getIdValue c",
                    "      c not found", "      c = 0", "    calculate (0)|1&!0",
                    "    calculateSection.0 0", "      result = 0", "    calculateSection.0 0|1&!0",
                    "      result = 1"));
}

TEST_F(LogExpTrace, ShowsTheSectionNumber)
{
    setLevel(3);
    LogExp::calculateSection("1&0", -12);
    EXPECT_THAT(m_traces.getWords(),
                ElementsAre("    calculateSection.-12 1&0", "      result = 0"));
}

TEST_F(LogExpTrace, ShowsNoResultOfAnEmptySection)
{
    setLevel(3);
    EXPECT_THROW(LogExp::evaluate("()", m_table), std::out_of_range);
    EXPECT_THAT(m_traces.getWords(),
                ElementsAre("    parse ()", "    calculate ()", "    calculateSection.0 "));
}

TEST_F(LogExpTrace, ShowsNothingOfAnEmptyExpression)
{
    setLevel(3);
    EXPECT_TRUE(LogExp::evaluate("", m_table));
    EXPECT_THAT(m_traces.getWords(), IsEmpty());
}

TEST_F(LogExpTrace, NamesFlagLevelAndPlace)
{
    setLevel(3);
    SingletonT<utils::flag::Flags>::getInstancePtr()->m_enableTraceMsgHeaders.setValue(0);
    LogExp::evaluate("a&c", m_table);
    const std::string level2 =
        "!TRACE \\(utils::logexp::m_traceSteps = 3; trace level = 2\\) by [^\n]*\n"
        "Generated from generic/utils/src/logexp/src/LogExp/[0-9]+/";
    const std::string level3 =
        "!TRACE \\(utils::logexp::m_traceSteps = 3; trace level = 3\\) by [^\n]*\n"
        "Generated from generic/utils/src/logexp/src/LogExp/[0-9]+/";
    EXPECT_THAT(m_traces.getTexts(),
                ElementsAre(MatchesRegex(level2 + "parse:\n    parse a&c"),
                            MatchesRegex(level2 + "getIdValue:\n    getIdValue a"),
                            MatchesRegex(level3 + "getIdValue:\n      a found"),
                            MatchesRegex(level3 + "getIdValue:\n      a = 1"),
                            MatchesRegex(level2 + "getIdValue:\n    getIdValue c"),
                            MatchesRegex(level3 + "getIdValue:\n      c not found"),
                            MatchesRegex(level3 + "getIdValue:\n      c = 0"),
                            MatchesRegex(level2 + "calculate:\n    calculate 1&0"),
                            MatchesRegex(level2 + "calculateSection:\n    calculateSection.0 1&0"),
                            MatchesRegex(level3 + "calculateSection:\n      result = 0")));
}

TEST_F(LogExpTrace, IsOffByDefaultAndBelowLevelTwo)
{
    LogExp::evaluate("a&b", m_table);
    setLevel(1);
    LogExp::evaluate("a&b", m_table);
    EXPECT_THAT(m_traces.getTexts(), IsEmpty());
}

TEST_F(LogExpTrace, ObeysTheMasterSwitch)
{
    setLevel(3);
    SingletonT<utils::flag::Flags>::getInstancePtr()->m_enableTraceMsgs.setValue(false);
    LogExp::evaluate("a&b", m_table);
    EXPECT_THAT(m_traces.getTexts(), IsEmpty());
}

}  // namespace
