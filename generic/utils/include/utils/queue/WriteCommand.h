#ifndef GENERIC_UTILS_QUEUE_WRITECOMMAND_H
#define GENERIC_UTILS_QUEUE_WRITECOMMAND_H

#include <utils/command/Command.h>
#include <utils/command/Macro.h>
#include <utils/export.h>
#include <utils/queue/Queue.h>

namespace utils::queue
{

/// A command, named "WriteCommand", that writes a macro to a queue and stops the macro that it is
/// part of.
///
/// So a macro that contains a WriteCommand of itself moves to the task that reads the queue, which
/// resumes it with the next command:
///
///     macro->add(new Measure);
///     macro->add(new utils::queue::WriteCommand(&reporterQueue, macro, -1));
///     macro->add(new Report);  // runs on the reporter's thread
///
/// Neither the queue nor the macro is owned. Both must live as long as the command.
class GENERIC_UTILS_EXPORT WriteCommand : public command::Command
{
  public:
    /// @param queuePtr,macroPtr null is fatal: it is reported as error NULL_PTR, then the process
    ///        ends with exit status 1
    /// @param waitInMs how long to wait for a free place: 0 = do not wait, -1 = without limit,
    ///        else ms
    WriteCommand(Queue* queuePtr, command::Macro* macroPtr, int waitInMs);
    ~WriteCommand() override;

    /// True.
    bool stopMacro() const override;

    /// Writes the macro.
    /// @return 0 on success, 1 on failure, which the queue has reported
    int myExecute() override;

  private:
    Queue* m_queuePtr;
    command::Macro* m_macroPtr;
    int m_waitInMs;
};

}  // namespace utils::queue

#endif
