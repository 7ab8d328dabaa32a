#ifndef TESTS_XML_XMLTEST_H
#define TESTS_XML_XMLTEST_H

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <utils/xml/Parser.h>

#include "support/ConfigDirectory.h"
#include "support/RecordingErrorStrategy.h"
#include "xml/EventJournal.h"

namespace test
{

/// Parses texts and keeps what comes of it.
class XmlTest : public testing::Test
{
  protected:
    /// Parses a text into m_events and m_errors.
    bool parse(const std::string& xml)
    {
        m_events.clear();
        m_errors.clear();
        const utils::xml::DocumentForParsing document(xml);
        const EventJournal journal(document,
                                   [this](const std::string& line) { m_events.push_back(line); });
        utils::xml::Parser parser(&document);
        return parser.parse();
    }

    /// What came of a text, as "true" or "false", followed by what was reported:
    /// "name, function: words", each on a line of its own.
    std::string outcomeOf(const std::string& xml)
    {
        std::string outcome = parse(xml) ? "true" : "false";
        for (const ErrorReport& report : m_errors.getReports())
        {
            const std::string location = report.getLocation();
            EXPECT_EQ(location.rfind("generic/utils/src/xml/src/Parser/", 0), 0U) << location;
            EXPECT_EQ(report.severity, utils::error::Error::WARNING);
            outcome += "\n" + report.name + ", " + location.substr(location.rfind('/') + 1) + ": " +
                       report.getWords();
        }
        return outcome;
    }

    const ConfigDirectory m_emptyConfiguration;
    RecordingErrorStrategy m_errors;
    std::vector<std::string> m_events;
};

}  // namespace test

#endif
