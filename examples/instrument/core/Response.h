#ifndef INSTRUMENT_CORE_RESPONSE_H
#define INSTRUMENT_CORE_RESPONSE_H

#include <string>
#include <string_view>
#include <vector>

namespace instrument
{

/// The answers to one program message: one line, in which ";" stands between them.
class Response
{
  public:
    bool isEmpty() const { return !m_hasAnswer; }

    /// Adds an answer.
    /// @throw CommandFailure QUERY_DEADLOCKED when the response has become too long; then it is
    ///        empty
    void add(std::string_view answer);

    /// Takes the response, with the line feed at its end; empty without any answer.
    std::string take();

  private:
    std::string m_text;
    bool m_hasAnswer = false;
};

/// @name How things are written in answers
/// @{

/// A voltage: ten significant digits and an exponent.
std::string formatVolts(double volts);

/// Text in double quotes, those inside doubled.
std::string quote(std::string_view text);

/// Names in quotes, with commas between them; an empty text in quotes when there are none.
std::string quoteAll(const std::vector<std::string>& names);

/// A block of definite length.
std::string makeBlock(std::string_view data);
/// @}

}  // namespace instrument

#endif
