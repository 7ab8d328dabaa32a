#include <utils/command/Macro.h>

#include <ostream>
#include <sstream>

#include <utils/command/Flags.h>
#include <utils/flag/Trace.h>

#include "internal/NameCopy.h"
#include "internal/Report.h"
#include "internal/TextOutput.h"

namespace utils::command
{

namespace
{

// A bool as the target stream would write it.
std::string toText(const std::ostream& target, bool value)
{
    std::ostringstream text;
    text.imbue(target.getloc());
    text.setf(target.flags() & std::ios_base::boolalpha);
    text << value;
    return text.str();
}

}  // namespace

Macro::Macro(const std::string& name, bool continueOnError, bool autoDelete)
    : Command(name), m_continueOnError(continueOnError), m_autoDelete(autoDelete)
{
}

Macro::~Macro()
{
    // By index, because a command's destructor may look at the macro, or even add a command to it.
    for (unsigned long index = 0; index < size(); ++index)
    {
        delete m_commands[index];
        m_commands[index] = nullptr;
    }
}

void Macro::add(Command* commandPtr)
{
    if (commandPtr == nullptr)
    {
        error::report(GENERIC_UTILS_HERE, error::Error::NULL_PTR, error::Error::ERROR,
                      "Null pointer (commandPtr) passed to Macro::add for macro command '",
                      getName(), "'.");
        return;
    }
    GENERIC_UTILS_TRACE_STEP(1, "Adding command '" << commandPtr->getName()
                                                   << "' to macro command '" << getName() << "'.");
    m_commands.push_back(commandPtr);
}

Command* Macro::getCommandPtr(unsigned long index) const
{
    if (index >= size())
    {
        error::report(GENERIC_UTILS_HERE, error::Error::INVALID_ARGUMENT, error::Error::ERROR,
                      "Invalid index (", index, ") specified for macro command '", getName(), "'.");
        return nullptr;
    }
    GENERIC_UTILS_TRACE_STEP(
        1, "Getting command with index " << index << " from macro command '" << getName() << "'.");
    return m_commands[index];
}

std::ostream& Macro::output(std::ostream& os) const
{
    Command::output(os);
    writeLine(os, "Continue on error? = ", toText(os, m_continueOnError));
    writeLine(os, "Auto delete? = ", toText(os, m_autoDelete));
    writeLine(os, "Current index = ", m_currentIndex);
    writeLine(os, "Constituent commands:");
    for (const Command* const commandPtr : m_commands)
    {
        commandPtr->output(os);
    }
    return os;
}

int Macro::myExecute()
{
    // Copies, because a command that stops the macro may have handed it to another thread, which
    // may run it to its end and delete it before this function returns.
    const NameCopy name(getName());
    NameCopy commandName;
    const bool continueOnError = m_continueOnError;
    const bool autoDelete = m_autoDelete;
    int status = 0;
    bool isLast = false;

    GENERIC_UTILS_TRACE_STEP(1, "Executing macro command '" << name << "'.");

    while (m_currentIndex < size())
    {
        Command* const commandPtr = m_commands[m_currentIndex];
        ++m_currentIndex;
        isLast = isLast || m_currentIndex >= size();
        commandName = commandPtr->getName();
        const bool isStopping = commandPtr->stopMacro();

        status = commandPtr->execute();

        const bool isFailed = status != 0 && !continueOnError;
        if (isStopping)
        {
            GENERIC_UTILS_TRACE_STEP(2, "Stopping execution of macro command '"
                                            << name << "' as specified by command '" << commandName
                                            << "'.");
        }
        if (isFailed)
        {
            GENERIC_UTILS_TRACE_STEP(2, "Stopping execution of macro command '"
                                            << name
                                            << "'. Error encountered while executing command '"
                                            << commandName << "' - status = " << status << ".");
        }
        if (isStopping && !isLast)
        {
            return status;
        }
        if (isStopping || isFailed)
        {
            break;
        }
    }

    if (autoDelete)
    {
        delete this;
    }
    return status;
}

void Macro::myReset()
{
    // By index, because a command that is reset may add commands to the macro.
    for (unsigned long index = 0; index < size(); ++index)
    {
        m_commands[index]->reset();
    }
    m_currentIndex = 0;
}

}  // namespace utils::command
