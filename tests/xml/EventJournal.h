#ifndef TESTS_XML_EVENTJOURNAL_H
#define TESTS_XML_EVENTJOURNAL_H

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include <utils/observer/Notifier.h>
#include <utils/xml/DocumentForParsing.h>
#include <utils/xml/ElementData.h>

namespace test
{

/// A notifier that hands the record of an XML event to a function.
class ElementNotifier : public utils::observer::Notifier
{
  public:
    using Function = std::function<void(utils::xml::ElementData&)>;

    explicit ElementNotifier(Function function) : m_function(std::move(function)) {}

    void notify(void* data) override { m_function(*static_cast<utils::xml::ElementData*>(data)); }

  private:
    Function m_function;
};

/// Writes the events of a document as lines:
///
///     start 1 a
///     attribute 1 x='1'
///     leaf 1 a=''
///     end 1 a
class EventJournal
{
  public:
    using Add = std::function<void(const std::string&)>;

    EventJournal(const utils::xml::DocumentForParsing& document, Add add) : m_add(std::move(add))
    {
        document.m_startOfElementEvent.registerInterest(&m_start, 0);
        document.m_attributeEvent.registerInterest(&m_attribute, 0);
        document.m_leafElementEvent.registerInterest(&m_leaf, 0);
        document.m_endOfElementEvent.registerInterest(&m_end, 0);
    }

    EventJournal(const EventJournal&) = delete;
    EventJournal& operator=(const EventJournal&) = delete;

  private:
    void add(const char* kind, const utils::xml::ElementData& data, const std::string& value) const
    {
        m_add(kind + std::to_string(data.level) + " " + data.name + value);
    }

    static std::string valueOf(const utils::xml::ElementData& data)
    {
        return "='" + data.value + "'";
    }

    Add m_add;
    ElementNotifier m_start{[this](auto& data) { add("start ", data, data.value); }};
    ElementNotifier m_attribute{[this](auto& data) { add("attribute ", data, valueOf(data)); }};
    ElementNotifier m_leaf{[this](auto& data) { add("leaf ", data, valueOf(data)); }};
    ElementNotifier m_end{[this](auto& data) { add("end ", data, data.value); }};
};

}  // namespace test

#endif
