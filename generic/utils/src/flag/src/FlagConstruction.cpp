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

bool FlagConstruction::isNested() const
{
    return theDepth > 1;
}

bool isInsideFlagConstruction()
{
    return theDepth > 0;
}

}  // namespace utils::flag
