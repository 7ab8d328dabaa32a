#ifndef WORKER_POOL_TEXTCOUNTER_H
#define WORKER_POOL_TEXTCOUNTER_H

#include <cstdint>
#include <string_view>

namespace worker_pool
{

/// Lines, words and bytes, as `wc` counts them in the C locale.
struct TextCounts
{
    std::uint64_t lines = 0;  ///< newline bytes; a last line without one does not count
    std::uint64_t words = 0;  ///< runs of printable characters between white space
    std::uint64_t bytes = 0;
};

/// Counts a text that comes in blocks, which may end anywhere.
class TextCounter
{
  public:
    void add(std::string_view block);

    const TextCounts& getCounts() const { return m_counts; }

  private:
    TextCounts m_counts;
    bool m_isInWord = false;
};

}  // namespace worker_pool

#endif
