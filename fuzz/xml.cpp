// The XML reader, on any text:
//
// - what it traces, raises and reports, and its result, are those of the literal model
// - without traces it comes to the same result
// - events are balanced: an end for every start, attributes and one leaf in between
// - a notifier that stops the parser gets no further event

#include <cstddef>
#include <string>
#include <vector>

#include <utils/xml/Parser.h>

#include "support/ConfigDirectory.h"
#include "target.h"
#include "xml/ParserJournal.h"
#include "xml/ParserModel.h"

namespace
{

using utils::xml::DocumentForParsing;
using utils::xml::ElementData;
using utils::xml::Parser;

/// Holds the events of one parse against each other.
class Balance
{
  public:
    explicit Balance(const DocumentForParsing& document)
    {
        document.m_startOfElementEvent.registerInterest(&m_start, 0);
        document.m_attributeEvent.registerInterest(&m_attribute, 0);
        document.m_leafElementEvent.registerInterest(&m_leaf, 0);
        document.m_endOfElementEvent.registerInterest(&m_end, 0);
    }

    bool isEverythingClosed() const { return m_open.empty(); }

    /// How many of the events could have stopped the parser.
    std::size_t countStops() const { return m_numStops; }

  private:
    struct Element
    {
        std::string name;
        bool hadLeaf = false;
    };

    void begin(const ElementData& data)
    {
        fuzz::require(m_open.empty() || m_open.back().hadLeaf, "a child comes after the leaf");
        m_open.push_back({data.name});
        requireInnermost(data);
    }

    void attribute(const ElementData& data)
    {
        fuzz::require(!m_open.empty() && !m_open.back().hadLeaf, "attributes come before the leaf");
        requirePath(data);
        ++m_numStops;
    }

    void leaf(const ElementData& data)
    {
        requireInnermost(data);
        fuzz::require(!m_open.back().hadLeaf, "an element has one leaf event");
        m_open.back().hadLeaf = true;
        ++m_numStops;
    }

    void end(const ElementData& data)
    {
        requireInnermost(data);
        fuzz::require(m_open.back().hadLeaf, "the end comes after the leaf");
        m_open.pop_back();
    }

    void requireInnermost(const ElementData& data) const
    {
        fuzz::require(!m_open.empty() && data.name == m_open.back().name,
                      "the event names the innermost element");
        requirePath(data);
    }

    void requirePath(const ElementData& data) const
    {
        const std::vector<std::string>& path = *data.elementNames;
        fuzz::require(data.level == static_cast<int>(m_open.size()), "the level is the depth");
        fuzz::require(path.size() == m_open.size() + 1, "the path has all open elements");
        fuzz::require(path.back() == m_open.back().name, "the path ends with the element");
    }

    std::vector<Element> m_open;
    std::size_t m_numStops = 0;
    test::ElementNotifier m_start{[this](auto& data) { begin(data); }};
    test::ElementNotifier m_attribute{[this](auto& data) { attribute(data); }};
    test::ElementNotifier m_leaf{[this](auto& data) { leaf(data); }};
    test::ElementNotifier m_end{[this](auto& data) { end(data); }};
};

/// Stops a parser at an attribute or a leaf.
class Stopper
{
  public:
    /// @param place how many attributes and leaves pass before
    Stopper(const DocumentForParsing& document, std::size_t place) : m_place(place)
    {
        document.m_startOfElementEvent.registerInterest(&m_other, 0);
        document.m_attributeEvent.registerInterest(&m_candidate, 0);
        document.m_leafElementEvent.registerInterest(&m_candidate, 0);
        document.m_endOfElementEvent.registerInterest(&m_other, 0);
    }

  private:
    void visit(ElementData& data)
    {
        requireGoing();
        m_hasStopped = m_place == 0;
        data.proceed = !m_hasStopped;
        --m_place;
    }

    void requireGoing() const
    {
        fuzz::require(!m_hasStopped, "no event comes after the parser was stopped");
    }

    std::size_t m_place;
    bool m_hasStopped = false;
    test::ElementNotifier m_candidate{[this](auto& data) { visit(data); }};
    test::ElementNotifier m_other{[this](auto&) { requireGoing(); }};
};

void requireStop(const std::string& text, std::size_t place)
{
    const DocumentForParsing document(text);
    const Stopper stopper(document, place);
    Parser parser(&document);
    fuzz::require(!parser.parse(), "a stopped parser says false");
}

}  // namespace

void fuzz::run(std::string_view input)
{
    static const auto* const configuration = new test::ConfigDirectory;
    static auto* const journal = new test::ParserJournal;
    static_cast<void>(configuration);
    const std::string text(input);

    test::ParserModel model(text);
    const bool expected = model.parse();
    require(journal->parse(text) == expected, "the result is the model's");
    require(journal->getLines() == model.m_journal, "traces, events and reports are the model's");

    const DocumentForParsing document(text);
    const Balance balance(document);
    Parser parser(&document);
    require(parser.parse() == expected, "the result is the same without traces");
    require(balance.isEverythingClosed() || !expected, "after success every element is closed");
    if (balance.countStops() > 0)
    {
        requireStop(text, text.size() % balance.countStops());
    }
}
