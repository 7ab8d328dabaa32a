#ifndef INSTRUMENT_CORE_XMLPOSITION_H
#define INSTRUMENT_CORE_XMLPOSITION_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace instrument
{

/// A place in a text; both count from 1, the column in bytes.
struct TextPosition
{
    std::size_t line = 1;
    std::size_t column = 1;
};

/// The place of a byte of a text.
TextPosition findPosition(std::string_view text, std::size_t offset);

/// Where in its text the library's XML reader is. The reader's events carry no position, but come
/// in the order of the tags; so this goes along the text with them.
class XmlPosition
{
  public:
    /// @param text must outlive this
    explicit XmlPosition(std::string_view text) : m_text(text) {}

    /// @name The events of the reader
    /// @{
    void startElement();
    void attribute(std::string_view value);
    void endElement();
    /// @}

    std::size_t getTextSize() const { return m_text.size(); }

    /// The current tag.
    std::size_t getTagOffset() const { return m_tag; }

    /// The current attribute's name.
    std::size_t getAttributeOffset() const { return m_attribute; }

    /// The tag behind the current one; the end of the text when there is none.
    std::size_t findNextTag() const;

    /// What follows in the current tag, its last attribute seen.
    std::size_t findNextAttribute() const;

    /// The tag of the innermost element that is still open; the end of the text when none is.
    std::size_t getOpenElementOffset() const;

  private:
    bool isEmptyElement() const;

    std::string_view m_text;
    std::size_t m_tag = 0;
    std::size_t m_next = 0;       // behind what has been read of the current tag
    std::size_t m_attribute = 0;  // the current attribute
    std::vector<std::size_t> m_openElements;
};

}  // namespace instrument

#endif
