#include <utils/task/TerminateTaskMacro.h>

#include <memory>

#include <utils/command/NoOpCommand.h>
#include <utils/flag/Trace.h>
#include <utils/queue/WriteCommand.h>
#include <utils/task/Flags.h>

#include "internal/LastWords.h"
#include "internal/Report.h"

namespace utils::task
{

namespace
{

// The command is the macro's once it has been added, and does not leak when it could not be.
void addTo(command::Macro& macro, std::unique_ptr<command::Command> commandPtr)
{
    macro.add(commandPtr.get());
    commandPtr.release();
}

}  // namespace

TerminateTaskMacro::TerminateTaskMacro(utils::queue::Queue* taskEventQueuePtr)
    : Macro("TerminateTaskMacro", true, true), m_taskEventQueuePtr(taskEventQueuePtr)
{
    if (m_taskEventQueuePtr == nullptr)
    {
        error::reportFatal(
            GENERIC_UTILS_HERE, error::Error::NULL_PTR, error::Error::ERROR,
            "Null pointer (taskEventQueuePtr) passed to TerminateTaskMacro::TerminateTaskMacro.");
    }
    GENERIC_UTILS_TRACE_STEP(1, "Creating a Terminate Task Macro with queue '"
                                    << m_taskEventQueuePtr->getName() << "'.");
    addTo(*this, std::make_unique<utils::queue::WriteCommand>(m_taskEventQueuePtr, this, 0));
    addTo(*this, std::make_unique<command::NoOpCommand>());
}

TerminateTaskMacro::~TerminateTaskMacro()
{
    GENERIC_UTILS_LAST_WORDS(
        GENERIC_UTILS_TRACE_STEP(1, "Destroying a Terminate Task Macro with queue '"
                                        << m_taskEventQueuePtr->getName() << "'."));
}

}  // namespace utils::task
