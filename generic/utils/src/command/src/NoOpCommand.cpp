#include <utils/command/NoOpCommand.h>

#include <utils/command/Flags.h>
#include <utils/flag/Trace.h>

#include "internal/LastWords.h"

namespace utils::command
{

NoOpCommand::NoOpCommand() : Command("NoOpCommand")
{
    GENERIC_UTILS_TRACE_STEP(1, "Creating a No-Op Command.");
}

NoOpCommand::~NoOpCommand()
{
    GENERIC_UTILS_LAST_WORDS(GENERIC_UTILS_TRACE_STEP(1, "Destroying a No-Op Command."));
}

int NoOpCommand::myExecute()
{
    GENERIC_UTILS_TRACE_STEP(1, "Executing a No-Op Command.");
    return 0;
}

}  // namespace utils::command
