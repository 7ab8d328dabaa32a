#include <utils/queue/WriteCommand.h>

#include <utils/flag/Trace.h>
#include <utils/queue/Flags.h>

#include "internal/LastWords.h"
#include "internal/Report.h"

namespace utils::queue
{

using error::Error;

WriteCommand::WriteCommand(Queue* queuePtr, command::Macro* macroPtr, int waitInMs)
    : Command("WriteCommand"), m_queuePtr(queuePtr), m_macroPtr(macroPtr), m_waitInMs(waitInMs)
{
    if (m_queuePtr == nullptr)
    {
        error::reportFatal(GENERIC_UTILS_HERE, Error::NULL_PTR, Error::ERROR,
                           "Null pointer (queuePtr) passed to WriteCommand::WriteCommand.");
    }
    if (m_macroPtr == nullptr)
    {
        error::reportFatal(GENERIC_UTILS_HERE, Error::NULL_PTR, Error::ERROR,
                           "Null pointer (macroPtr) passed to WriteCommand::WriteCommand.");
    }
    GENERIC_UTILS_TRACE_STEP(1, "Creating Write Command for queue '"
                                    << m_queuePtr->getName() << "' and macro '"
                                    << m_macroPtr->getName() << "' - wait " << m_waitInMs
                                    << " ms.");
}

WriteCommand::~WriteCommand()
{
    GENERIC_UTILS_LAST_WORDS(GENERIC_UTILS_TRACE_STEP(
        1, "Destroying Write Command for queue '" << m_queuePtr->getName() << "' and macro '"
                                                  << m_macroPtr->getName() << "'."));
}

bool WriteCommand::stopMacro() const
{
    return true;
}

int WriteCommand::myExecute()
{
    GENERIC_UTILS_TRACE_STEP(1, "Writing macro '" << m_macroPtr->getName() << "' to queue '"
                                                  << m_queuePtr->getName()
                                                  << "' - wait = " << m_waitInMs << ".");
    // Once written, the macro, and this command with it, belong to the queue's reader.
    return m_queuePtr->write(m_macroPtr, m_waitInMs) ? 0 : 1;
}

}  // namespace utils::queue
