#include "TextCounter.h"

#include <array>

namespace worker_pool
{

namespace
{

enum class Kind : unsigned char
{
    OTHER,  // neither begins a word nor ends one: control characters, bytes above ASCII
    SPACE,
    PRINTABLE
};

constexpr std::array<Kind, 256> KINDS = []
{
    std::array<Kind, 256> kinds{};
    for (std::size_t byte = '!'; byte <= '~'; ++byte)
    {
        kinds[byte] = Kind::PRINTABLE;
    }
    for (const char space : {' ', '\t', '\n', '\v', '\f', '\r'})
    {
        kinds[static_cast<unsigned char>(space)] = Kind::SPACE;
    }
    return kinds;
}();

}  // namespace

void TextCounter::add(std::string_view block)
{
    // Local copies stay in registers.
    TextCounts counts = m_counts;
    bool isInWord = m_isInWord;
    for (const char character : block)
    {
        const Kind kind = KINDS[static_cast<unsigned char>(character)];
        const bool isPrintable = kind == Kind::PRINTABLE;
        counts.lines += character == '\n' ? 1 : 0;
        counts.words += isPrintable && !isInWord ? 1 : 0;
        isInWord = isPrintable || (isInWord && kind == Kind::OTHER);
    }
    counts.bytes += block.size();
    m_counts = counts;
    m_isInWord = isInWord;
}

}  // namespace worker_pool
