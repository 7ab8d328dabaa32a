#ifndef INSTRUMENT_CORE_DATASCANNER_H
#define INSTRUMENT_CORE_DATASCANNER_H

#include <cstddef>

namespace instrument
{

/// Follows a program message byte by byte and tells separators from data: inside a quoted string
/// and inside a block, every byte is data.
class DataScanner
{
  public:
    enum class Place
    {
        PLAIN,
        STRING,  ///< the quotes included
        BLOCK    ///< behind the block's length
    };

    /// Takes the next byte. @return where it stands
    Place next(char byte);

    /// How many bytes of a block are still to come.
    std::size_t getBlockRest() const { return m_blockRest; }

  private:
    void followPlain(char byte);
    void followBlockLength(char digit);

    char m_quote = '\0';      // that closes the string; NUL outside of strings
    bool m_isAtData = false;  // whether a parameter may begin here
    bool m_isAfterHash = false;
    int m_numLengthDigits = 0;  // of the block's length, still to come
    std::size_t m_blockLength = 0;
    std::size_t m_blockRest = 0;
};

}  // namespace instrument

#endif
