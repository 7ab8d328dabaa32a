// What SCPI strings trace, all at level 3.
//
// - the name being set, then the creation; the long form at the destruction
// - the steps of a comparison, in their order, with what is left of the header and of the long form
// - nothing for a null or an empty header
// - the flag and the place that the full header names
// - nothing below level 3, which is off by default

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <utils/flag/Flags.h>
#include <utils/scpi/Flags.h>
#include <utils/scpi/ScpiString.h>

#include "support/ConfigDirectory.h"
#include "support/RecordingTraceStrategy.h"

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;
using testing::MatchesRegex;
using utils::scpi::Flags;
using utils::scpi::ScpiString;
using utils::singleton::SingletonT;

class ScpiTrace : public testing::Test
{
  protected:
    static void setLevel(int level)
    {
        SingletonT<Flags>::getInstancePtr()->m_traceSteps.setValue(level);
    }

    std::vector<std::string> takeWords()
    {
        std::vector<std::string> words = m_traces.getWords();
        m_traces.clear();
        return words;
    }

    std::vector<std::string> compare(const char* name, const char* header)
    {
        const ScpiString command(name);
        setLevel(3);
        m_traces.clear();
        command.isCompliant(header);
        setLevel(0);
        return takeWords();
    }

    const test::ConfigDirectory m_emptyConfiguration;
    test::RecordingTraceStrategy m_traces;
};

TEST_F(ScpiTrace, ShowsSettingBeforeCreating)
{
    setLevel(3);
    {
        ScpiString command("frequency?");
        EXPECT_THAT(takeWords(), ElementsAre("Setting Scpi String using 'frequency?'.",
                                             "Creating Scpi String for 'frequency?'."));
        command.setName(std::string("power"));
        EXPECT_THAT(takeWords(), ElementsAre("Setting Scpi String using 'power'."));
    }
    EXPECT_THAT(takeWords(), ElementsAre("Destroying Scpi String 'POWer'."));
}

TEST_F(ScpiTrace, ShowsAStringLikeCharacters)
{
    setLevel(3);
    const ScpiString command(std::string("power"));
    EXPECT_THAT(takeWords(), ElementsAre("Setting Scpi String using 'power'.",
                                         "Creating Scpi String for 'power'."));
    setLevel(0);
}

TEST_F(ScpiTrace, ShowsNothingOfANullName)
{
    setLevel(3);
    {
        const ScpiString command(static_cast<const char*>(nullptr));
    }
    EXPECT_THAT(takeWords(),
                ElementsAre("Setting Scpi String using ''.", "Creating Scpi String for ''.",
                            "Destroying Scpi String ''."));
}

TEST_F(ScpiTrace, ShowsAShortForm)
{
    EXPECT_THAT(compare("frequency", "freq"),
                ElementsAre("short character match 'freq' 'FREQuency'.",
                            "short header match '' 'uency'.", "long character match '' ''.",
                            "compliant if following strings are both empty '' ''."));
}

TEST_F(ScpiTrace, ShowsALongForm)
{
    EXPECT_THAT(compare("frequency", "frequency"),
                ElementsAre("short character match 'frequency' 'FREQuency'.",
                            "long character match 'uency' 'uency'.",
                            "compliant if following strings are both empty '' ''."));
}

TEST_F(ScpiTrace, ShowsEveryNode)
{
    EXPECT_THAT(compare("measure:voltage:dc", "meas:voltage:dc"),
                ElementsAre("short character match 'meas:voltage:dc' 'MEASure:VOLTage:DC'.",
                            "short header match ':voltage:dc' 'ure:VOLTage:DC'.",
                            "short character match ':voltage:dc' ':VOLTage:DC'.",
                            "long character match 'age:dc' 'age:DC'.",
                            "short character match ':dc' ':DC'.", "long character match '' ''.",
                            "compliant if following strings are both empty '' ''."));
}

TEST_F(ScpiTrace, ShowsWhatIsLeftAtADifference)
{
    EXPECT_THAT(compare("frequency", "frequx"),
                ElementsAre("short character match 'frequx' 'FREQuency'.",
                            "long character match 'ux' 'uency'.",
                            "compliant if following strings are both empty 'x' 'ency'."));
    EXPECT_THAT(compare("frequency", "x"),
                ElementsAre("compliant if following strings are both empty 'x' 'FREQuency'."));
}

TEST_F(ScpiTrace, LeavesSkippedQuotesOut)
{
    EXPECT_THAT(compare("volt", "\"volt\""),
                ElementsAre("short character match 'volt\"' 'VOLT'.",
                            "compliant if following strings are both empty '' ''."));
    EXPECT_THAT(compare("volt", "\""),
                ElementsAre("compliant if following strings are both empty '' 'VOLT'."));
}

TEST_F(ScpiTrace, ShowsNothingForNullOrAnEmptyHeader)
{
    EXPECT_THAT(compare("frequency", nullptr), IsEmpty());
    EXPECT_THAT(compare("frequency", ""), IsEmpty());
}

TEST_F(ScpiTrace, NamesFlagLevelAndPlace)
{
    setLevel(3);
    SingletonT<utils::flag::Flags>::getInstancePtr()->m_enableTraceMsgHeaders.setValue(0);
    {
        const ScpiString command("frequency");
        command.isCompliant("freq");
    }
    const std::string header =
        "!TRACE \\(utils::scpi::m_traceSteps = 3; trace level = 3\\) by [^\n]*\n"
        "Generated from generic/utils/src/scpi/src/ScpiString/[0-9]+/";
    EXPECT_THAT(m_traces.getTexts(),
                ElementsAre(MatchesRegex(header + "setName:\nSetting [^\n]*"),
                            MatchesRegex(header + "ScpiString:\nCreating [^\n]*"),
                            MatchesRegex(header + "isCompliant:\nshort character [^\n]*"),
                            MatchesRegex(header + "isCompliant:\nshort header [^\n]*"),
                            MatchesRegex(header + "isCompliant:\nlong character [^\n]*"),
                            MatchesRegex(header + "isCompliant:\ncompliant if [^\n]*"),
                            MatchesRegex(header + "~ScpiString:\nDestroying [^\n]*")));
}

TEST_F(ScpiTrace, IsOffByDefaultAndBelowLevelThree)
{
    ScpiString("frequency").isCompliant("freq");
    setLevel(2);
    ScpiString("frequency").isCompliant("freq");
    EXPECT_THAT(takeWords(), IsEmpty());
}

TEST_F(ScpiTrace, ObeysTheMasterSwitch)
{
    setLevel(3);
    SingletonT<utils::flag::Flags>::getInstancePtr()->m_enableTraceMsgs.setValue(false);
    ScpiString("frequency").isCompliant("freq");
    EXPECT_THAT(takeWords(), IsEmpty());
}

}  // namespace
