#include "core/XmlPosition.h"

#include <algorithm>

namespace instrument
{

namespace
{

constexpr std::string_view WHITE_SPACE = " \t\r\n";
constexpr std::string_view END_OF_NAME = " \t\r\n/>";

// What the reader passes over.
struct Markup
{
    std::string_view open;
    std::string_view close;
};
constexpr Markup SKIPPED[] = {{"<?", "?>"}, {"<!--", "-->"}, {"<!DOCTYPE", ">"}};

const Markup* findMarkup(std::string_view text)
{
    const auto* const found =
        std::find_if(std::begin(SKIPPED), std::end(SKIPPED),
                     [text](const Markup& markup) { return text.starts_with(markup.open); });
    return found == std::end(SKIPPED) ? nullptr : found;
}

}  // namespace

TextPosition findPosition(std::string_view text, std::size_t offset)
{
    const std::string_view before = text.substr(0, offset);
    const std::size_t lineEnd = before.rfind('\n');
    const std::size_t lineStart = lineEnd == std::string_view::npos ? 0 : lineEnd + 1;
    return {static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n')) + 1,
            before.size() - lineStart + 1};
}

void XmlPosition::startElement()
{
    m_tag = findNextTag();
    m_openElements.push_back(m_tag);
    const std::size_t name = m_text.find_first_not_of(WHITE_SPACE, m_tag + 1);
    m_next = std::min(m_text.find_first_of(END_OF_NAME, name), m_text.size());
}

void XmlPosition::attribute(std::string_view value)
{
    m_attribute = findNextAttribute();
    const std::size_t quote = m_text.find_first_of("\"'", m_attribute);
    m_next = std::min(quote + value.size() + 2, m_text.size());
}

void XmlPosition::endElement()
{
    if (!isEmptyElement() || m_openElements.empty() || m_openElements.back() != m_tag)
    {
        m_tag = findNextTag();
        m_next = std::min(m_tag + 1, m_text.size());
    }
    if (!m_openElements.empty())
    {
        m_openElements.pop_back();
    }
}

std::size_t XmlPosition::findNextTag() const
{
    // Behind the current tag; there is none before the first.
    std::size_t from = m_next == 0 ? 0 : m_text.find('>', m_next);
    for (;;)
    {
        const std::size_t tag = m_text.find('<', from);
        if (tag == std::string_view::npos)
        {
            return m_text.size();
        }
        const Markup* const markup = findMarkup(m_text.substr(tag));
        if (markup == nullptr)
        {
            return tag;
        }
        from = m_text.find(markup->close, tag + markup->open.size());
        if (from == std::string_view::npos)
        {
            return m_text.size();
        }
    }
}

std::size_t XmlPosition::findNextAttribute() const
{
    return std::min(m_text.find_first_not_of(WHITE_SPACE, m_next), m_text.size());
}

std::size_t XmlPosition::getOpenElementOffset() const
{
    return m_openElements.empty() ? m_text.size() : m_openElements.back();
}

bool XmlPosition::isEmptyElement() const
{
    const std::size_t end = m_text.find('>', m_tag);
    return end != std::string_view::npos && end > 0 && m_text[end - 1] == '/';
}

}  // namespace instrument
