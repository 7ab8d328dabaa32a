#ifndef INSTRUMENT_CORE_ARGUMENTS_H
#define INSTRUMENT_CORE_ARGUMENTS_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include <utils/scpi/ScpiString.h>

#include "core/ProgramMessage.h"

namespace instrument
{

/// Whether a word means a mnemonic, in its short or in its long form.
bool isWord(const std::string& word, const utils::scpi::ScpiString& mnemonic);

/// The limits and the default of a numeric parameter, which MINimum, MAXimum and DEFault stand for.
struct NumberRange
{
    double minimum;
    double maximum;
    double defaultValue;
};

/// The parameters of a command, as the command wants them. All operations throw CommandFailure
/// when a parameter is not what it should be.
class Arguments
{
  public:
    explicit Arguments(std::vector<Parameter> parameters) : m_parameters(std::move(parameters)) {}

    std::size_t size() const { return m_parameters.size(); }

    /// A number, or one of the words for it. DATA_OUT_OF_RANGE outside of the range.
    double getNumber(std::size_t index, const NumberRange& range) const;

    /// One of the words for a number, and no number.
    double getWordNumber(std::size_t index, const NumberRange& range) const;

    bool isNumber(std::size_t index) const { return get(index).type == Parameter::Type::NUMBER; }

    /// A register of eight bits.
    std::uint8_t getByte(std::size_t index) const;

    /// ON, OFF, or a number: 0 means off.
    bool getBool(std::size_t index) const;

    /// A word or a string.
    const std::string& getName(std::size_t index) const;

    /// The text of a parameter that must be of this type.
    const std::string& getText(std::size_t index, Parameter::Type type) const;

  private:
    const Parameter& get(std::size_t index) const { return m_parameters.at(index); }

    std::vector<Parameter> m_parameters;
};

}  // namespace instrument

#endif
