#include "core/Arguments.h"

#include <cmath>

#include "core/ScpiError.h"

namespace instrument
{

using utils::scpi::ScpiString;

bool isWord(const std::string& word, const ScpiString& mnemonic)
{
    return mnemonic.isCompliant(word);
}

namespace
{

double numberOfWord(const std::string& word, const NumberRange& range)
{
    if (isWord(word, ScpiString("minimum")))
    {
        return range.minimum;
    }
    if (isWord(word, ScpiString("maximum")))
    {
        return range.maximum;
    }
    if (isWord(word, ScpiString("default")))
    {
        return range.defaultValue;
    }
    throw CommandFailure(ScpiError::ILLEGAL_PARAMETER_VALUE);
}

}  // namespace

double Arguments::getNumber(std::size_t index, const NumberRange& range) const
{
    const Parameter& parameter = get(index);
    if (parameter.type == Parameter::Type::WORD)
    {
        return numberOfWord(parameter.text, range);
    }
    if (parameter.type != Parameter::Type::NUMBER)
    {
        throw CommandFailure(ScpiError::DATA_TYPE_ERROR);
    }
    if (parameter.number < range.minimum || parameter.number > range.maximum)
    {
        throw CommandFailure(ScpiError::DATA_OUT_OF_RANGE);
    }
    return parameter.number;
}

double Arguments::getWordNumber(std::size_t index, const NumberRange& range) const
{
    return numberOfWord(getText(index, Parameter::Type::WORD), range);
}

std::uint8_t Arguments::getByte(std::size_t index) const
{
    const Parameter& parameter = get(index);
    if (parameter.type != Parameter::Type::NUMBER)
    {
        throw CommandFailure(ScpiError::DATA_TYPE_ERROR);
    }
    const double value = std::round(parameter.number);
    if (value < 0 || value > 255)
    {
        throw CommandFailure(ScpiError::DATA_OUT_OF_RANGE);
    }
    return static_cast<std::uint8_t>(value);
}

bool Arguments::getBool(std::size_t index) const
{
    const Parameter& parameter = get(index);
    if (parameter.type == Parameter::Type::NUMBER)
    {
        return std::round(parameter.number) != 0;
    }
    if (parameter.type != Parameter::Type::WORD)
    {
        throw CommandFailure(ScpiError::DATA_TYPE_ERROR);
    }
    if (isWord(parameter.text, ScpiString("on")))
    {
        return true;
    }
    if (isWord(parameter.text, ScpiString("off")))
    {
        return false;
    }
    throw CommandFailure(ScpiError::ILLEGAL_PARAMETER_VALUE);
}

const std::string& Arguments::getName(std::size_t index) const
{
    const bool isString = get(index).type == Parameter::Type::STRING;
    return getText(index, isString ? Parameter::Type::STRING : Parameter::Type::WORD);
}

const std::string& Arguments::getText(std::size_t index, Parameter::Type type) const
{
    if (get(index).type != type)
    {
        throw CommandFailure(ScpiError::DATA_TYPE_ERROR);
    }
    return get(index).text;
}

}  // namespace instrument
