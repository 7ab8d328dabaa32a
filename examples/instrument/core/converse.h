#ifndef INSTRUMENT_CORE_CONVERSE_H
#define INSTRUMENT_CORE_CONVERSE_H

#include <string>
#include <string_view>

#include "core/Instrument.h"
#include "core/WorkList.h"

namespace instrument
{

/// A whole conversation without a line: a new client sends bytes, and gets responses. For tests.
/// @param instrument started, with `work` as its executor
/// @param bytes any; what has no line feed at the end is executed, too
/// @return all responses
std::string converse(Instrument& instrument, WorkList& work, std::string_view bytes);

}  // namespace instrument

#endif
