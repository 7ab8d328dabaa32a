#ifndef INSTRUMENT_CORE_CHECKEXPRESSION_H
#define INSTRUMENT_CORE_CHECKEXPRESSION_H

#include <string>
#include <vector>

#include "core/Configuration.h"

namespace instrument
{

/// Checks a logical expression before it guards anything, because the library has a value for every
/// text: to it, an unknown name is false and an operator without operand is not there.
///
/// What is good has an operand on both sides of "&" ("@") and "|", one behind each "!" ("^"), not
/// two "!" in a row, matching parentheses, and known names. "&" and "|" are not mixed without
/// parentheses, since the library does not give one precedence over the other.
/// @return what is wrong; empty when nothing is
std::string checkExpression(const std::string& expression,
                            const std::vector<StateConfiguration>& states);

}  // namespace instrument

#endif
