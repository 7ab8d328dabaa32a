#ifndef INSTRUMENT_CORE_PARSEPARAMETER_H
#define INSTRUMENT_CORE_PARSEPARAMETER_H

#include <string_view>

#include "core/ProgramMessage.h"

namespace instrument
{

/// Reads a parameter: a number (decimal, or #H, #Q, #B and digits), a word, a string in quotes
/// (a quote inside is doubled), or a block.
/// @param text without white space around it
/// @throw CommandFailure when it is none of these
Parameter parseParameter(std::string_view text);

}  // namespace instrument

#endif
