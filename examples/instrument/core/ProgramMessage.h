#ifndef INSTRUMENT_CORE_PROGRAMMESSAGE_H
#define INSTRUMENT_CORE_PROGRAMMESSAGE_H

#include <string>
#include <string_view>
#include <vector>

namespace instrument
{

/// One parameter of a command.
struct Parameter
{
    enum class Type
    {
        NUMBER,  ///< in `number`
        WORD,    ///< a mnemonic such as MIN, ON or a channel's name, in `text`
        STRING,  ///< what was in quotes, in `text`
        BLOCK    ///< the bytes of a block, in `text`
    };

    Type type = Type::NUMBER;
    double number = 0;
    std::string text;
};

/// One command of a program message, taken apart.
struct MessageUnit
{
    std::string header;  ///< as it was sent, without "?"; empty when the unit is empty
    bool isQuery = false;
    std::vector<Parameter> parameters;
};

/// Cuts the first unit off a program message: what comes before the first ";" that is no data.
/// @param rest becomes what follows; empty after the last unit
std::string_view cutUnit(std::string_view& rest);

/// Takes a unit apart.
/// @throw CommandFailure when it is malformed
MessageUnit parseUnit(std::string_view text);

}  // namespace instrument

#endif
