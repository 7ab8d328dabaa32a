#ifndef GENERIC_UTILS_XML_CHARACTERSET_H
#define GENERIC_UTILS_XML_CHARACTERSET_H

#include <array>
#include <cstddef>
#include <string_view>

namespace utils::xml
{

/// A set of characters, and searches for and past its members. NUL is a character like any other.
class CharacterSet
{
  public:
    static constexpr std::size_t NOT_FOUND = std::string_view::npos;

    constexpr explicit CharacterSet(std::string_view members)
    {
        for (const char member : members)
        {
            m_isMember[index(member)] = true;
        }
    }

    constexpr bool contains(char character) const { return m_isMember[index(character)]; }

    /// Position of the first member from a position on.
    constexpr std::size_t findFirst(std::string_view text, std::size_t from) const
    {
        return find(text, from, true);
    }

    /// Position of the first other character from a position on.
    constexpr std::size_t findFirstOther(std::string_view text, std::size_t from) const
    {
        return find(text, from, false);
    }

    /// The text without the members at its end.
    constexpr std::string_view trimEnd(std::string_view text) const
    {
        while (!text.empty() && contains(text.back()))
        {
            text.remove_suffix(1);
        }
        return text;
    }

  private:
    static constexpr std::size_t index(char character)
    {
        return static_cast<unsigned char>(character);
    }

    constexpr std::size_t find(std::string_view text, std::size_t from, bool isMember) const
    {
        for (std::size_t position = from; position < text.size(); ++position)
        {
            if (contains(text[position]) == isMember)
            {
                return position;
            }
        }
        return NOT_FOUND;
    }

    std::array<bool, 256> m_isMember{};
};

}  // namespace utils::xml

#endif
