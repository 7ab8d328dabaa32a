// One trace message: its stream, its header, its output.
//
// - a new message is empty; what is written to its stream is its text
// - a null file or function leaves the stream in its bad state, with nothing written
// - header: short or full by the headers flag and the message's level; texts whole
// - the header goes to the stream that it is given, shows the flag's value at that time and asks
//   for the current time
// - numbers are written without the grouping of the global locale
// - output writes the text and nothing else; the stream operator calls the virtual output
// - an empty message leaves the target stream good; formatting of the target stream is neither
//   used nor changed

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ctime>
#include <iomanip>
#include <ostream>
#include <sstream>
#include <string>
#include <type_traits>

#include <utils/flag/Flags.h>
#include <utils/flag/TraceMsg.h>

#include "support/ConfigDirectory.h"
#include "support/FixedUserAndTime.h"
#include "support/GroupedNumbers.h"

namespace
{

using utils::flag::FlagT;
using utils::flag::TraceMsg;

constexpr const char* SHORT_HEADER = "2001-02-03 04:05:06: ";

class TraceMsgTest : public testing::Test
{
  protected:
    static void setHeaders(int value)
    {
        utils::singleton::SingletonT<utils::flag::Flags>::getInstancePtr()
            ->m_enableTraceMsgHeaders.setValue(value);
    }

    std::string headerOf(int messageLevel) const
    {
        TraceMsg message(m_level, messageLevel, "some/file", 12, "function");
        std::ostringstream os;
        message.header(os);
        return os.str();
    }

    bool isHeaderFull(int messageLevel) const
    {
        const std::string header = headerOf(messageLevel);
        EXPECT_TRUE(header == SHORT_HEADER || header.rfind("!TRACE (", 0) == 0) << header;
        return header != SHORT_HEADER;
    }

    const test::ConfigDirectory m_config;
    FlagT<int> m_level{"app::m_traceSteps", 2};
    TraceMsg m_message{m_level, 1, "some/file", 12, "function"};
};

TEST_F(TraceMsgTest, StrategyTypeIsTrace)
{
    EXPECT_EQ(TraceMsg::STRATEGY_TYPE, "Trace");
}

// Taken while this program's static objects are initialised.
const std::string theTypeAtLoad = TraceMsg::STRATEGY_TYPE;

TEST_F(TraceMsgTest, StrategyTypeExistsFromLibraryLoad)
{
    EXPECT_EQ(theTypeAtLoad, "Trace");
}

TEST_F(TraceMsgTest, HasAVirtualDestructor)
{
    static_assert(std::has_virtual_destructor_v<TraceMsg>);
}

TEST_F(TraceMsgTest, IsEmptyAtFirst)
{
    EXPECT_EQ(m_message.getStream().str(), "");
    EXPECT_TRUE(m_message.getStream().good());
}

TEST_F(TraceMsgTest, NullFileLeavesTheStreamBad)
{
    TraceMsg message(m_level, 1, nullptr, 12, "function");
    EXPECT_TRUE(message.getStream().bad());
    EXPECT_EQ(message.getStream().str(), "");
}

TEST_F(TraceMsgTest, NullFunctionLeavesTheStreamBad)
{
    TraceMsg message(m_level, 1, "some/file", 12, nullptr);
    EXPECT_TRUE(message.getStream().bad());
    EXPECT_EQ(message.getStream().str(), "");
    message.getStream() << "not written";
    EXPECT_EQ(message.getStream().str(), "");
}

TEST_F(TraceMsgTest, HeaderIsShortByDefault)
{
    EXPECT_EQ(headerOf(1), "2001-02-03 04:05:06: ");
}

TEST_F(TraceMsgTest, FullHeaderNamesFlagLevelUserTimeAndPlace)
{
    setHeaders(0);
    EXPECT_EQ(headerOf(1),
              "!TRACE (app::m_traceSteps = 2; trace level = 1) by tester on "
              "2001-02-03 04:05:06.\n"
              "Generated from some/file/12/function:\n");
}

TEST_F(TraceMsgTest, FullHeaderShowsTheValueOfTheFlagAtThatTime)
{
    setHeaders(0);
    m_level.setValue(-7);
    std::ostringstream os;
    m_message.header(os);
    EXPECT_EQ(os.str(),
              "!TRACE (app::m_traceSteps = -7; trace level = 1) by tester on "
              "2001-02-03 04:05:06.\n"
              "Generated from some/file/12/function:\n");
}

TEST_F(TraceMsgTest, PlaceIsFixedAtConstruction)
{
    setHeaders(0);
    std::string file = "one/file";
    TraceMsg message(m_level, 1, file.c_str(), 3, "f");
    file = "changed!";
    std::ostringstream os;
    message.header(os);
    EXPECT_THAT(os.str(), testing::EndsWith("\nGenerated from one/file/3/f:\n"));
}

TEST_F(TraceMsgTest, NoHeaderIsFullWhenTheFlagIsNegative)
{
    setHeaders(-1);
    EXPECT_FALSE(isHeaderFull(0));
    EXPECT_FALSE(isHeaderFull(1));
    EXPECT_FALSE(isHeaderFull(1000));
}

TEST_F(TraceMsgTest, EveryHeaderIsFullWhenTheFlagIsZero)
{
    setHeaders(0);
    EXPECT_TRUE(isHeaderFull(-1));
    EXPECT_TRUE(isHeaderFull(0));
    EXPECT_TRUE(isHeaderFull(1));
    EXPECT_TRUE(isHeaderFull(1000));
}

TEST_F(TraceMsgTest, HeadersAreFullUpToAPositiveFlag)
{
    setHeaders(2);
    EXPECT_TRUE(isHeaderFull(0));
    EXPECT_TRUE(isHeaderFull(1));
    EXPECT_TRUE(isHeaderFull(2));
    EXPECT_FALSE(isHeaderFull(3));
}

// Only a level above the flag's value is short, also below zero.
TEST_F(TraceMsgTest, NegativeLevelsAreComparedToo)
{
    setHeaders(-1);
    EXPECT_TRUE(isHeaderFull(-1));
    EXPECT_TRUE(isHeaderFull(-2));
}

TEST_F(TraceMsgTest, HeaderGoesToTheGivenStreamOnly)
{
    std::ostringstream os;
    EXPECT_EQ(&m_message.header(os), &os);
    EXPECT_EQ(os.str(), SHORT_HEADER);
    EXPECT_EQ(m_message.getStream().str(), "");
}

TEST_F(TraceMsgTest, HeaderAsksForTheCurrentTime)
{
    const long before = std::time(nullptr);
    headerOf(1);
    EXPECT_GE(test::lastTimeFormatted(), before);
    EXPECT_LE(test::lastTimeFormatted(), std::time(nullptr));
}

TEST_F(TraceMsgTest, HeaderIgnoresAndKeepsTheFormatOfTheStream)
{
    setHeaders(0);
    std::ostringstream os;
    os << std::hex << std::showbase << std::setfill('*') << std::setw(100);
    m_message.header(os);
    EXPECT_EQ(os.str(),
              "!TRACE (app::m_traceSteps = 2; trace level = 1) by tester on "
              "2001-02-03 04:05:06.\n"
              "Generated from some/file/12/function:\n");
    EXPECT_EQ(os.width(), 100);
    EXPECT_EQ(os.fill(), '*');
    EXPECT_EQ(os.flags() & std::ios_base::basefield, std::ios_base::hex);
}

TEST_F(TraceMsgTest, OutputWritesTheTextOnly)
{
    m_message.header(m_message.getStream()) << "some " << 12 << " words";
    std::ostringstream os;
    m_message.output(os);
    EXPECT_EQ(os.str(), "2001-02-03 04:05:06: some 12 words");
    EXPECT_EQ(m_message.getStream().str(), "2001-02-03 04:05:06: some 12 words");
}

TEST_F(TraceMsgTest, OutputWritesNulBytesToo)
{
    const std::string words("a\0b", 3);
    m_message.getStream() << words;
    std::ostringstream os;
    m_message.output(os);
    EXPECT_EQ(os.str(), words);
}

class LoudMsg : public TraceMsg
{
  public:
    using TraceMsg::TraceMsg;

    void output(std::ostream& os) override
    {
        TraceMsg::output(os);
        os << "!";
    }
};

TEST_F(TraceMsgTest, StreamOperatorCallsTheVirtualOutput)
{
    LoudMsg loud(m_level, 1, "some/file", 12, "function");
    loud.getStream() << "words";
    const TraceMsg& base = loud;
    std::ostringstream os;
    EXPECT_EQ(&(os << base), &os);
    EXPECT_EQ(os.str(), "words!");
}

// Handing the message's buffer to the target with operator<< sets the target's fail bit.
TEST_F(TraceMsgTest, EmptyMessageLeavesTheTargetStreamGood)
{
    std::ostringstream os;
    os << m_message;
    EXPECT_TRUE(os.good());
    m_message.output(os);
    EXPECT_TRUE(os.good());
    EXPECT_EQ(os.str(), "");
}

TEST_F(TraceMsgTest, NumbersAreIndependentOfTheGlobalLocale)
{
    const test::GroupedNumbers locale;
    setHeaders(0);
    const FlagT<int> flag("App::m_traceSteps", 3000);
    TraceMsg message(flag, 2000, "some/file", 1200, "function");
    std::ostringstream header;
    message.header(header);
    EXPECT_EQ(header.str(),
              "!TRACE (App::m_traceSteps = 3000; trace level = 2000) by tester on "
              "2001-02-03 04:05:06.\nGenerated from some/file/1200/function:\n");
    message.getStream() << 1234567;
    EXPECT_EQ(message.getStream().str(), "1234567");
}

TEST_F(TraceMsgTest, OutputIgnoresAndKeepsTheFormatOfTheStream)
{
    m_message.getStream() << "words";
    std::ostringstream os;
    os << std::setfill('*') << std::setw(40) << std::left;
    os << m_message;
    EXPECT_EQ(os.str(), "words");
    EXPECT_EQ(os.width(), 40);
    EXPECT_EQ(os.fill(), '*');
}

}  // namespace
