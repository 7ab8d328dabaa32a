// The records that notifiers get.
//
// - their fields in their order
// - an element is found in the path of open elements at its level
// - names, values and levels are right whatever a notifier did to the record before
// - names and values of any length, short and long in turns, up to the end of the text
// - names and values of any bytes
// - every event is notified, with its lock when it has one, in the order of priorities

#include <gmock/gmock.h>

#include <cstddef>

#include <utils/observer/Flags.h>

#include "support/RecordingTraceStrategy.h"
#include "xml/XmlTest.h"

namespace
{

using testing::Each;
using testing::ElementsAre;
using testing::MatchesRegex;
using testing::SizeIs;
using utils::observer::Event;
using utils::xml::DocumentForParsing;
using utils::xml::ElementData;
using utils::xml::Parser;

using XmlRecords = test::XmlTest;

std::vector<Event*> eventsOf(const DocumentForParsing& document)
{
    return {&document.m_startOfElementEvent, &document.m_attributeEvent,
            &document.m_leafElementEvent, &document.m_endOfElementEvent};
}

TEST_F(XmlRecords, HaveTheirFieldsInOrder)
{
    const ElementData data;
    EXPECT_EQ(static_cast<const void*>(&data.level), static_cast<const void*>(&data));
    const auto* const begin = reinterpret_cast<const std::byte*>(&data);
    const auto offsetOf = [&](const auto& field)
    { return reinterpret_cast<const std::byte*>(&field) - begin; };
    EXPECT_LT(offsetOf(data.level), offsetOf(data.elementNames));
    EXPECT_LT(offsetOf(data.elementNames), offsetOf(data.name));
    EXPECT_LT(offsetOf(data.name), offsetOf(data.value));
    EXPECT_LT(offsetOf(data.value), offsetOf(data.proceed));
}

TEST_F(XmlRecords, FindTheirElementInThePathAtItsLevel)
{
    const DocumentForParsing document("<a><bb><c>t</c><d/></bb></a>");
    int numCalls = 0;
    test::ElementNotifier notifier(
        [&](ElementData& data)
        {
            ++numCalls;
            ASSERT_THAT(*data.elementNames, SizeIs(static_cast<std::size_t>(data.level) + 1));
            EXPECT_EQ((*data.elementNames)[static_cast<std::size_t>(data.level)], data.name);
        });
    document.m_startOfElementEvent.registerInterest(&notifier, 0);
    document.m_leafElementEvent.registerInterest(&notifier, 0);
    document.m_endOfElementEvent.registerInterest(&notifier, 0);
    EXPECT_TRUE(Parser(&document).parse());
    EXPECT_EQ(numCalls, 12);
}

TEST_F(XmlRecords, AreRightWhateverWasDoneToThemBefore)
{
    const std::string longName(40, 'n');
    const DocumentForParsing document("<a x='1' y='" + longName + "' z='3'><b>t</b><" + longName +
                                      ">" + longName + "</" + longName + "><c/></a>");
    const test::EventJournal journal(document,
                                     [this](const std::string& line) { m_events.push_back(line); });
    // Takes away what is short and lengthens what is long.
    test::ElementNotifier spoiler(
        [&](ElementData& data)
        {
            data.level = 77;
            const bool isLong = data.name.size() > 15;
            data.name = isLong ? data.name + data.name : std::string();
            const std::string taken = std::move(data.value);
            data.value.clear();
        });
    for (Event* const event : eventsOf(document))
    {
        event->registerInterest(&spoiler, 1);
    }
    EXPECT_TRUE(Parser(&document).parse());
    EXPECT_THAT(
        m_events,
        ElementsAre("start 1 a", "attribute 1 x='1'", "attribute 1 y='" + longName + "'",
                    "attribute 1 z='3'", "leaf 1 a=''", "start 2 b", "leaf 2 b='t'", "end 2 b",
                    "start 2 " + longName, "leaf 2 " + longName + "='" + longName + "'",
                    "end 2 " + longName, "start 2 c", "leaf 2 c=''", "end 2 c", "end 1 a"));
}

TEST_F(XmlRecords, HoldNamesAndValuesOfAnyLength)
{
    // Long ones and short ones in turns, and each length next to each other one.
    for (std::size_t first = 1; first <= 34; ++first)
    {
        const std::size_t second = 35 - first;
        const std::string name(first, 'n');
        const std::string value(second, 'v');
        const std::string both = name + value;
        EXPECT_EQ(outcomeOf("<" + name + " " + value + "='" + name + "'>" + value + "</" + name +
                            "><" + value + " " + name + "='" + value + "'>" + name + "</" + value +
                            "><" + both + ">" + both + "</" + both + "><" + name + "/>"),
                  "true");
        EXPECT_THAT(
            m_events,
            ElementsAre("start 1 " + name, "attribute 1 " + value + "='" + name + "'",
                        "leaf 1 " + name + "='" + value + "'", "end 1 " + name, "start 1 " + value,
                        "attribute 1 " + name + "='" + value + "'",
                        "leaf 1 " + value + "='" + name + "'", "end 1 " + value, "start 1 " + both,
                        "leaf 1 " + both + "='" + both + "'", "end 1 " + both, "start 1 " + name,
                        "leaf 1 " + name + "=''", "end 1 " + name));
    }
}

TEST_F(XmlRecords, HoldAnyBytes)
{
    // No valid UTF-8, and NUL among them.
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte)
    {
        bytes += static_cast<char>(byte);
    }
    const auto without = [&](const std::string& excluded)
    {
        std::string rest;
        for (const char byte : bytes)
        {
            rest += excluded.find(byte) == std::string::npos ? std::string(1, byte) : "";
        }
        return rest;
    };
    const std::string element = without(" \t\r\n<>/");
    const std::string attribute = without(" \t\r\n<>='\"");
    const std::string value = without("<>'");
    const std::string text = "x" + without("<") + "x";
    EXPECT_EQ(outcomeOf("<" + element + " " + attribute + "='" + value + "'>" + text + "</" +
                        element + ">"),
              "true");
    EXPECT_THAT(m_events,
                ElementsAre("start 1 " + element, "attribute 1 " + attribute + "='" + value + "'",
                            "leaf 1 " + element + "='" + text + "'", "end 1 " + element));
}

TEST_F(XmlRecords, ComeWithTheLocksOfTheEvents)
{
    const DocumentForParsing document("<a x='1'>t</a>");
    const test::EventJournal journal(document,
                                     [this](const std::string& line) { m_events.push_back(line); });
    for (Event* const event : eventsOf(document))
    {
        event->enableLock();
    }
    EXPECT_TRUE(Parser(&document).parse());
    EXPECT_THAT(m_events, ElementsAre("start 1 a", "attribute 1 x='1'", "leaf 1 a='t'", "end 1 a"));
}

TEST_F(XmlRecords, ComeInTheOrderOfPriorities)
{
    const DocumentForParsing document("<a/>");
    std::string order;
    test::ElementNotifier second([&](ElementData&) { order += "second "; });
    test::ElementNotifier first([&](ElementData&) { order += "first "; });
    document.m_leafElementEvent.registerInterest(&second, 5);
    document.m_leafElementEvent.registerInterest(&first, -5);
    EXPECT_TRUE(Parser(&document).parse());
    EXPECT_EQ(order, "first second ");
}

TEST_F(XmlRecords, AreNotifiedAlsoToNobody)
{
    const DocumentForParsing document("<a x='1'>t</a>");
    Parser parser(&document);
    const test::RecordingTraceStrategy traces;
    auto& level =
        utils::singleton::SingletonT<utils::observer::Flags>::getInstancePtr()->m_traceSteps;
    level.setValue(2);
    EXPECT_TRUE(parser.parse());
    level.setValue(0);
    EXPECT_THAT(traces.getWords(), SizeIs(4));
    EXPECT_THAT(
        traces.getWords(),
        Each(MatchesRegex("An event \\(0x[0-9a-f]+\\) has occurred - notified 0 observers\\.")));
}

}  // namespace
