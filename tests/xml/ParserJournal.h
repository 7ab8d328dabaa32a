#ifndef TESTS_XML_PARSERJOURNAL_H
#define TESTS_XML_PARSERJOURNAL_H

#include <sstream>
#include <string>
#include <vector>

#include <utils/error/Error.h>
#include <utils/flag/TraceMsg.h>
#include <utils/strategy/StrategyT.h>
#include <utils/xml/Flags.h>
#include <utils/xml/Parser.h>

#include "support/Header.h"
#include "support/RecordingTraceStrategy.h"
#include "xml/EventJournal.h"

namespace test
{

/// Adds every trace, without its header.
class TraceLines : public utils::strategy::StrategyT<utils::flag::TraceMsg>
{
  public:
    explicit TraceLines(std::vector<std::string>& lines)
        : StrategyT("Trace", "TraceLines", false), m_lines(lines)
    {
    }
    bool isInterested(const utils::flag::TraceMsg&) override { return true; }
    void processClientObject(utils::flag::TraceMsg& traceMsg) override
    {
        std::ostringstream text;
        traceMsg.output(text);
        m_lines.push_back(RecordingTraceStrategy::withoutHeader(text.str()));
    }

  private:
    std::vector<std::string>& m_lines;
};

/// Adds every error as "name: words".
class ErrorLines : public utils::strategy::StrategyT<utils::error::Error>
{
  public:
    explicit ErrorLines(std::vector<std::string>& lines)
        : StrategyT("Error", "ErrorLines", false), m_lines(lines)
    {
    }
    bool isInterested(const utils::error::Error&) override { return true; }
    void processClientObject(utils::error::Error& error) override
    {
        std::ostringstream text;
        error.output(text);
        m_lines.push_back(error.getName() + ": " + behindTwoLines(text.str()));
    }

  private:
    std::vector<std::string>& m_lines;
};

/// Parses texts and has, in one order, all that the parser traces at level 2, raises and reports,
/// in the words of ParserModel.
class ParserJournal
{
  public:
    /// @return the parser's result
    bool parse(const std::string& text)
    {
        const utils::xml::DocumentForParsing document(text);
        const EventJournal events(document,
                                  [this](const std::string& line) { m_lines.push_back(line); });
        utils::xml::Parser parser(&document);
        m_lines.clear();
        auto& level =
            utils::singleton::SingletonT<utils::xml::Flags>::getInstancePtr()->m_traceSteps;
        level.setValue(2);
        const bool result = parser.parse();
        level.setValue(0);
        return result;
    }

    /// What came of the last text.
    const std::vector<std::string>& getLines() const { return m_lines; }

  private:
    std::vector<std::string> m_lines;
    TraceLines m_traces{m_lines};
    ErrorLines m_errors{m_lines};
};

}  // namespace test

#endif
