#ifndef GENERIC_UTILS_TASK_TERMINATETASKMACRO_H
#define GENERIC_UTILS_TASK_TERMINATETASKMACRO_H

#include <utils/command/Macro.h>
#include <utils/export.h>
#include <utils/queue/Queue.h>

namespace utils::task
{

/// The message that tells a task, through its event queue, to leave its main loop.
///
/// Executing it, on the controlling thread, writes the macro itself into the event queue without
/// waiting. The task recognises it by its type, and deletes it instead of executing it.
class GENERIC_UTILS_EXPORT TerminateTaskMacro : public command::Macro
{
  public:
    /// @param taskEventQueuePtr not owned; null is fatal: it is reported as error NULL_PTR, then
    ///        the process ends with exit status 1
    explicit TerminateTaskMacro(utils::queue::Queue* taskEventQueuePtr);
    ~TerminateTaskMacro() override;

  private:
    utils::queue::Queue* m_taskEventQueuePtr;
};

}  // namespace utils::task

#endif
