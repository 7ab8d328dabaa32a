#include "core/Flags.h"

namespace instrument
{

Flags::Flags() : m_traceSteps("instrument::m_traceSteps", 0) {}

}  // namespace instrument
