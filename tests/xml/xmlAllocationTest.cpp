// Memory.
//
// - with traces off, parsing allocates nothing in steady state: once every record has held a name and
//   a value as long as any that follow
// - what notifiers write into the records is not kept

#include <gtest/gtest.h>
#include <malloc.h>

#include <string>

#include <utils/xml/Parser.h>

#include "support/AllocationCounter.h"
#include "support/ConfigDirectory.h"
#include "xml/EventJournal.h"

namespace
{

using test::ConfigDirectory;
using test::countAllocations;
using utils::xml::DocumentForParsing;
using utils::xml::ElementData;
using utils::xml::Parser;

TEST(XmlAllocation, ParsingAllocatesNothingInSteadyState)
{
    const ConfigDirectory configuration;
    // Long and short names and values in turns, elements in others and one after the other.
    const std::string record =
        "<record number='1' description='more than fifteen characters'>"
        "<id>1</id><a-name-of-more-than-fifteen-characters>a value of more than fifteen characters"
        "</a-name-of-more-than-fifteen-characters><short x=''/>"
        "<group-of-more-than-fifteen-characters><id>2</id></group-of-more-than-fifteen-characters>"
        "</record>\n";
    std::string xml = "<document>";
    for (int i = 0; i < 1000; ++i)
    {
        xml += record;
    }
    xml += "</document>";

    const DocumentForParsing document(xml);
    unsigned long afterTenRecords = 0;
    int numRecords = 0;
    test::ElementNotifier notifier(
        [&](ElementData& data)
        {
            numRecords += data.name == "record" ? 1 : 0;
            if (numRecords == 10 && afterTenRecords == 0)
            {
                afterTenRecords = countAllocations();
            }
        });
    document.m_endOfElementEvent.registerInterest(&notifier, 0);
    const unsigned long before = countAllocations();
    EXPECT_TRUE(Parser(&document).parse());
    EXPECT_EQ(numRecords, 1000);
    EXPECT_GT(afterTenRecords, before);
    EXPECT_EQ(countAllocations() - afterTenRecords, 0U);
}

TEST(XmlAllocation, WhatNotifiersWriteIsNotKept)
{
    constexpr std::size_t SIZE = 100'000;
    const ConfigDirectory configuration;
    std::string xml = "<record";
    for (int i = 0; i < 1000; ++i)
    {
        xml += " x='1'";
    }
    xml += "/>";

    const DocumentForParsing document(xml);
    std::size_t before = 0;
    std::size_t after = 0;
    test::ElementNotifier notifier(
        [&](ElementData& data)
        {
            after = mallinfo2().uordblks;
            before = before == 0 ? after : before;
            data.value = std::string(SIZE, 'y');
        });
    document.m_attributeEvent.registerInterest(&notifier, 0);
    EXPECT_TRUE(Parser(&document).parse());
    EXPECT_LT(after, before + 100 * SIZE);
}

}  // namespace
