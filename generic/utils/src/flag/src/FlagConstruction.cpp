#include "flag/src/FlagConstruction.h"

#include <utils/flag/Trace.h>

namespace utils::flag
{

namespace
{
thread_local int theDepth = 0;
}  // namespace

FlagConstruction::FlagConstruction()
{
    ++theDepth;
}

FlagConstruction::~FlagConstruction()
{
    --theDepth;
}

bool isInsideFlagConstruction()
{
    return theDepth > 0;
}

}  // namespace utils::flag
