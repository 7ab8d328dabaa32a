#include <utils/task/TerminateTaskMacro.h>

#include <utils/command/NoOpCommand.h>
#include <utils/flag/Trace.h>
#include <utils/queue/WriteCommand.h>
#include <utils/task/Flags.h>

#include "internal/Report.h"

namespace utils::task
{

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
    add(new utils::queue::WriteCommand(m_taskEventQueuePtr, this, 0));
    add(new command::NoOpCommand);
}

TerminateTaskMacro::~TerminateTaskMacro()
{
    GENERIC_UTILS_TRACE_STEP(1, "Destroying a Terminate Task Macro with queue '"
                                    << m_taskEventQueuePtr->getName() << "'.");
}

}  // namespace utils::task
