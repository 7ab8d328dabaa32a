#ifndef GENERIC_UTILS_XML_PARTCOPIER_H
#define GENERIC_UTILS_XML_PARTCOPIER_H

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace utils::xml
{

/// Copies parts of a text into strings, mostly short parts, again and again.
///
/// A string for a short part is made of SHORT_SIZE characters, which takes four instructions since
/// the compiler knows their number, and then cut. An assignment takes two calls and four times as
/// long, which would be half of the time of parsing. The memory of a long string is kept for the
/// next long one.
class PartCopier
{
  public:
    /// @param text must outlive the copier
    explicit PartCopier(std::string_view text)
        : m_lastShortPtr(text.size() < SHORT_SIZE ? nullptr
                                                  : text.data() + text.size() - SHORT_SIZE)
    {
    }

    /// @param part of the text
    void copy(std::string_view part, std::string& target)
    {
        if (!isShort(part))
        {
            copyLong(part, target);
            return;
        }
        if (hasOwnMemory(target))
        {
            keepMemory(target);
        }
        std::destroy_at(&target);
        std::construct_at(&target, part.data(), SHORT_SIZE);
        target.erase(part.size());
    }

    /// Appends a copy.
    void append(std::string_view part, std::vector<std::string>& targets)
    {
        if (!isShort(part))
        {
            copyLong(part, targets.emplace_back());
            return;
        }
        targets.emplace_back(part.data(), SHORT_SIZE).erase(part.size());
    }

    /// Removes the last one.
    void removeLast(std::vector<std::string>& targets)
    {
        if (hasOwnMemory(targets.back()))
        {
            keepMemory(targets.back());
        }
        targets.pop_back();
    }

  private:
    // What a string holds without memory of its own.
    static constexpr std::size_t SHORT_SIZE = 15;

    bool isShort(std::string_view part) const
    {
        const bool isShort = part.size() <= SHORT_SIZE && part.data() <= m_lastShortPtr;
        if (isShort && part.data() == nullptr)
        {
            __builtin_unreachable();  // what the constructor of a string would test again
        }
        return isShort;
    }

    static bool hasOwnMemory(const std::string& target) { return target.capacity() > SHORT_SIZE; }

    // As much as alternating long and short parts need; whoever writes into the strings may make
    // them long time and again.
    [[gnu::noinline]] void keepMemory(std::string& target)
    {
        if (m_numSpares < m_spares.size())
        {
            m_spares[m_numSpares++] = std::move(target);
        }
    }

    [[gnu::noinline]] void copyLong(std::string_view part, std::string& target)
    {
        if (!hasOwnMemory(target) && m_numSpares > 0)
        {
            target = std::move(m_spares[--m_numSpares]);
        }
        target = part;
    }

    const char* m_lastShortPtr;  // the last place from which SHORT_SIZE characters can be copied
    std::array<std::string, 16> m_spares;
    std::size_t m_numSpares = 0;  // that have memory of their own
};

}  // namespace utils::xml

#endif
