// SYSTem: errors, versions, flags.

#include <fmt/format.h>

#include "core/CommandTable.h"
#include "core/flagsFile.h"

namespace instrument
{

namespace
{

void answerNextError(Client& client, const Arguments&)
{
    const ScpiError error = client.status.getErrors().next();
    client.response.add(fmt::format("{},{}", static_cast<int>(error), quote(describe(error))));
}

void countErrors(Client& client, const Arguments&)
{
    client.response.add(std::to_string(client.status.getErrors().size()));
}

void answerVersion(Client& client, const Arguments&)
{
    client.response.add("1999.0");
}

void reloadFlags(Client&, const Arguments&)
{
    if (!readFlagsAgain())
    {
        throw CommandFailure(ScpiError::FILE_NAME_NOT_FOUND);
    }
}

void answerFlagsFile(Client& client, const Arguments&)
{
    client.response.add(quote(getFlagsFile()));
}

}  // namespace

void addSystemCommands(CommandTable& table)
{
    table.add({"SYSTem:ERRor[:NEXT]?", 0, 0, answerNextError});
    table.add({"SYSTem:ERRor:COUNt?", 0, 0, countErrors});
    table.add({"SYSTem:VERSion?", 0, 0, answerVersion});
    table.add({"SYSTem:FLAGs:RELoad", 0, 0, reloadFlags});
    table.add({"SYSTem:FLAGs:FILE?", 0, 0, answerFlagsFile});
}

}  // namespace instrument
