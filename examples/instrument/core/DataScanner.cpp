#include "core/DataScanner.h"

namespace instrument
{

namespace
{

bool isDigit(char byte)
{
    return byte >= '0' && byte <= '9';
}

bool isBeforeData(char byte)
{
    return byte == ' ' || byte == '\t' || byte == ',';
}

}  // namespace

DataScanner::Place DataScanner::next(char byte)
{
    if (m_blockRest > 0)
    {
        --m_blockRest;
        return Place::BLOCK;
    }
    if (m_quote != '\0')
    {
        // A doubled quote closes the string and opens it again, which comes to the same.
        m_quote = byte == m_quote ? '\0' : m_quote;
        return Place::STRING;
    }
    if (byte == '"' || byte == '\'')
    {
        m_quote = byte;
        m_isAfterHash = false;
        m_numLengthDigits = 0;
        return Place::STRING;
    }
    followPlain(byte);
    return Place::PLAIN;
}

// A block is "#", the number of digits of its length, these digits, and the data.
void DataScanner::followPlain(char byte)
{
    if (m_numLengthDigits > 0)
    {
        followBlockLength(byte);
    }
    else if (m_isAfterHash && byte >= '1' && byte <= '9')
    {
        m_numLengthDigits = byte - '0';
        m_blockLength = 0;
    }
    m_isAfterHash = m_isAtData && byte == '#';
    m_isAtData = isBeforeData(byte);
}

void DataScanner::followBlockLength(char digit)
{
    if (!isDigit(digit))
    {
        m_numLengthDigits = 0;
        return;
    }
    m_blockLength = m_blockLength * 10 + static_cast<std::size_t>(digit - '0');
    --m_numLengthDigits;
    if (m_numLengthDigits == 0)
    {
        m_blockRest = m_blockLength;
    }
}

}  // namespace instrument
