#include "XmlDocuments.h"

#include <array>
#include <random>
#include <string_view>

namespace bench
{

namespace
{

const std::string DECLARATION = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

class Writer
{
  public:
    explicit Writer(std::size_t size) { m_xml.reserve(size + 4096); }

    std::size_t getSize() const { return m_xml.size(); }
    std::string take() { return std::move(m_xml); }

    void add(std::string_view text) { m_xml += text; }

    void addReading(bool isOfElements)
    {
        m_xml += isOfElements ? "  <reading>" : "  <reading";
        addField(isOfElements, "id", std::to_string(m_number++));
        addField(isOfElements, "channel", "CH" + std::to_string(1 + pick(8)));
        addField(isOfElements, "time",
                 "2026-03-" + twoDigits(1 + pick(31)) + "T" + twoDigits(pick(24)) + ":" +
                     twoDigits(pick(60)) + ":" + twoDigits(pick(60)));
        if (isOfElements)
        {
            m_xml += "<result>";
        }
        addField(isOfElements, "value",
                 std::string(pick(2) == 0 ? "-" : "") + std::to_string(pick(10)) + "." +
                     std::to_string(1000000 + pick(9000000)) + "E-0" + std::to_string(pick(10)));
        addField(isOfElements, "unit", UNITS[pick(UNITS.size())]);
        if (isOfElements)
        {
            m_xml += "</result>";
        }
        addField(isOfElements, "range", std::to_string(1U << pick(8)));
        addField(isOfElements, "status", pick(10) == 0 ? "overload" : "ok");
        m_xml += isOfElements ? "</reading>\n" : "/>\n";
    }

    void addSection()
    {
        m_xml += "  <section>\n    <title>";
        addWords(20 + pick(40), false);
        m_xml += "</title>\n";
        for (std::size_t count = 1 + pick(4); count > 0; --count)
        {
            m_xml += "    <p>";
            addWords(200 + pick(1000), true);
            m_xml += "</p>\n";
        }
        m_xml += "  </section>\n";
    }

  private:
    static constexpr std::array<const char*, 5> UNITS{"V", "A", "Ohm", "dBm", "MHz"};
    static constexpr std::array<const char*, 24> WORDS{
        "the",    "a",         "of",  "instrument", "measures", "signal",  "at",     "every",
        "its",    "frequency", "and", "reports",    "noise",    "within",  "limits", "as",
        "before", "trigger",   "is",  "calibrated", "by",       "default", "level",  "range"};

    std::size_t pick(std::size_t count) { return m_random() % count; }

    static std::string twoDigits(std::size_t number)
    {
        return {static_cast<char>('0' + number / 10), static_cast<char>('0' + number % 10)};
    }

    void addField(bool isElement, const std::string& name, const std::string& value)
    {
        m_xml += isElement ? "<" + name + ">" + value + "</" + name + ">"
                           : " " + name + "=\"" + value + "\"";
    }

    // Words of together about this many characters, in lines of about eighty.
    void addWords(std::size_t size, bool isWrapped)
    {
        const std::size_t begin = m_xml.size();
        std::size_t beginOfLine = begin;
        for (;;)
        {
            m_xml += WORDS[pick(WORDS.size())];
            if (m_xml.size() - begin >= size)
            {
                m_xml += '.';
                return;
            }
            if (isWrapped && m_xml.size() - beginOfLine > 80)
            {
                m_xml += "\n      ";
                beginOfLine = m_xml.size();
            }
            else
            {
                m_xml += ' ';
            }
        }
    }

    std::mt19937 m_random{1};
    std::string m_xml;
    unsigned m_number = 100000;
};

std::string makeNested(std::size_t size)
{
    constexpr std::string_view START = "<level>";
    constexpr std::string_view END = "</level>";
    const std::size_t depth = size / (START.size() + END.size());
    Writer writer(size);
    for (std::size_t i = 0; i < depth; ++i)
    {
        writer.add(START);
    }
    for (std::size_t i = 0; i < depth; ++i)
    {
        writer.add(END);
    }
    return writer.take();
}

std::string makeOneTag(std::size_t size)
{
    Writer writer(size);
    writer.add("<reading");
    for (unsigned number = 100000; writer.getSize() < size; ++number)
    {
        writer.add(" value" + std::to_string(number) + "=\"-1.234567\"");
    }
    writer.add("/>");
    return writer.take();
}

}  // namespace

std::string makeXmlDocument(XmlKind kind, std::size_t size)
{
    if (kind == XmlKind::nested)
    {
        return makeNested(size);
    }
    if (kind == XmlKind::oneTag)
    {
        return makeOneTag(size);
    }
    Writer writer(size);
    writer.add(DECLARATION);
    writer.add("<!-- Made by the instrument. -->\n<document>\n");
    while (writer.getSize() < size)
    {
        if (kind == XmlKind::text)
        {
            writer.addSection();
        }
        else
        {
            writer.addReading(kind == XmlKind::elements);
        }
    }
    writer.add("</document>\n");
    return writer.take();
}

}  // namespace bench
