#include <utils/command/Command.h>

#include <utils/command/Flags.h>
#include <utils/flag/Trace.h>

#include "internal/LastWords.h"
#include "internal/NameCopy.h"
#include "internal/TextOutput.h"

namespace utils::command
{

Command::Command(const std::string& name) : m_name(name)
{
    GENERIC_UTILS_TRACE_STEP(1, "Creating command '" << m_name << "'.");
}

Command::~Command()
{
    GENERIC_UTILS_LAST_WORDS(GENERIC_UTILS_TRACE_STEP(1, "Destroying command '" << m_name << "'."));
}

bool Command::stopMacro() const
{
    return false;
}

std::ostream& Command::output(std::ostream& os) const
{
    writeLine(os, "Name = '", m_name, "'");
    return os;
}

void Command::myReset() {}

int Command::execute()
{
    GENERIC_UTILS_TRACE_STEP(1, "Executing command '" << m_name << "'.");
    const NameCopy name(m_name);
    const int status = myExecute();  // afterwards the command may be gone
    GENERIC_UTILS_TRACE_STEP(1, "Executed command '" << name << "' - status = " << status << ".");
    return status;
}

void Command::reset()
{
    GENERIC_UTILS_TRACE_STEP(1, "Resetting command '" << m_name << "'.");
    myReset();
}

std::ostream& operator<<(std::ostream& os, const Command& command)
{
    return command.output(os);
}

}  // namespace utils::command
