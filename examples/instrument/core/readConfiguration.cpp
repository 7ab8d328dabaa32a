#include "core/readConfiguration.h"

#include <errno.h>
#include <string.h>

#include <exception>
#include <fstream>
#include <optional>
#include <sstream>
#include <stdexcept>

#include <fmt/format.h>
#include <utils/error/Error.h>
#include <utils/strategy/StrategyT.h>
#include <utils/xml/Parser.h>

#include "core/ConfigurationBuilder.h"
#include "core/ConfigurationError.h"
#include "core/ReaderNotifier.h"
#include "core/XmlPosition.h"

namespace instrument
{

namespace
{

using utils::error::Error;

// Keeps the first report of the reader, instead of having it written to the log.
class ReportKeeper : public utils::strategy::StrategyT<Error>
{
  public:
    ReportKeeper() : StrategyT(Error::STRATEGY_TYPE, "Configuration", false) {}

    bool isInterested(const Error&) override { return !m_report; }
    void processClientObject(Error& error) override { m_report = error; }

    const std::optional<Error>& getReport() const { return m_report; }

  private:
    std::optional<Error> m_report;
};

// What an error says, without the two lines of its header and the line feed at its end.
std::string wordsOf(Error error)
{
    std::string words = error.getStream().str();
    for (int i = 0; i < 2; ++i)
    {
        const std::size_t lineEnd = words.find('\n');
        words.erase(0, lineEnd == std::string::npos ? 0 : lineEnd + 1);
    }
    while (words.ends_with('\n'))
    {
        words.pop_back();
    }
    return error.getName() + ": " + words;
}

// The reader tells what is wrong, not always where.
std::size_t placeOf(const Error& error, const XmlPosition& position)
{
    if (error.getName() == "Malformed Attribute")
    {
        return position.findNextAttribute();
    }
    if (error.getName() == "Malformed Element")
    {
        return position.getTagOffset();
    }
    const bool isTagMissing = position.findNextTag() == position.getTextSize();
    return isTagMissing ? position.getOpenElementOffset() : position.findNextTag();
}

// Has the library read the text; its events go to the builder.
Configuration parse(const std::string& xml)
{
    const ReportKeeper keeper;
    const utils::xml::DocumentForParsing document(xml);
    XmlPosition position(document.getXmlString());
    ConfigurationBuilder builder(position);
    std::exception_ptr failure;
    ReaderNotifier starts(failure, [&](const auto& element) { builder.startElement(element); });
    ReaderNotifier attributes(failure, [&](const auto& element) { builder.attribute(element); });
    ReaderNotifier leaves(failure, [&](const auto& element) { builder.leaf(element); });
    ReaderNotifier ends(failure, [&](const auto& element) { builder.endElement(element); });
    document.m_startOfElementEvent.registerInterest(&starts, 0);
    document.m_attributeEvent.registerInterest(&attributes, 0);
    document.m_leafElementEvent.registerInterest(&leaves, 0);
    document.m_endOfElementEvent.registerInterest(&ends, 0);

    const bool isWhole = utils::xml::Parser(&document).parse();
    if (failure)
    {
        std::rethrow_exception(failure);
    }
    if (!isWhole && keeper.getReport())
    {
        throw ConfigurationError(placeOf(*keeper.getReport(), position),
                                 wordsOf(*keeper.getReport()));
    }
    return builder.finish();
}

}  // namespace

Configuration readConfiguration(const std::string& xml, const std::string& fileName)
{
    try
    {
        return parse(xml);
    }
    catch (const ConfigurationError& error)
    {
        const auto [line, column] = findPosition(xml, error.getOffset());
        throw std::runtime_error(fmt::format("{}:{}:{}: {}", fileName, line, column, error.what()));
    }
}

Configuration readConfigurationFile(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    const bool isEmpty = file && file.peek() == std::ifstream::traits_type::eof() && !file.bad();
    if (!isEmpty && !(text << file.rdbuf()))
    {
        throw std::runtime_error(fmt::format("{}: {}", path, strerror(errno)));
    }
    return readConfiguration(text.str(), path);
}

}  // namespace instrument
