#include "xml/src/Markup.h"

namespace utils::xml
{

namespace
{

// What is between these is skipped.
struct SkippedMarkup
{
    std::string_view open;
    std::string_view close;
};
constexpr SkippedMarkup PROCESSING_INSTRUCTION{"<?", "?>"};
constexpr SkippedMarkup COMMENT{"<!--", "-->"};
constexpr SkippedMarkup DOCUMENT_TYPE{"<!DOCTYPE", ">"};

const SkippedMarkup* findSkippedMarkup(std::string_view text)
{
    for (const SkippedMarkup* const markup : {&PROCESSING_INSTRUCTION, &COMMENT, &DOCUMENT_TYPE})
    {
        if (text.starts_with(markup->open))
        {
            return markup;
        }
    }
    return nullptr;
}

}  // namespace

std::size_t findElementTag(std::string_view xml, std::size_t from, std::size_t& behindSkipped)
{
    for (;;)
    {
        const std::size_t left = xml.find(LEFT_DELIMITER, from);
        if (left == NOT_FOUND)
        {
            return NOT_FOUND;
        }
        const SkippedMarkup* const markup = findSkippedMarkup(xml.substr(left));
        if (markup == nullptr)
        {
            return left;
        }
        const std::size_t close = xml.find(markup->close, left + markup->open.size());
        if (close == NOT_FOUND)
        {
            return NOT_FOUND;
        }
        from = close + 1;
        behindSkipped = from;
    }
}

std::size_t findRightDelimiter(std::string_view xml, std::size_t from)
{
    const std::size_t right = xml.find(RIGHT_DELIMITER, from);
    if (right == NOT_FOUND)
    {
        return NOT_FOUND;
    }
    const bool isLeftFirst = xml.substr(from, right - from).find(LEFT_DELIMITER) != NOT_FOUND;
    return isLeftFirst ? NOT_FOUND : right;
}

}  // namespace utils::xml
