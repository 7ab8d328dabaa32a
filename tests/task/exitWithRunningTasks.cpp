// Leaves main while tasks work, trace and report, and are never destroyed.

#include <latch>
#include <string>

#include "support/Commands.h"
#include "utils/command/Flags.h"
#include "utils/queue/Flags.h"
#include "utils/task/Flags.h"
#include "utils/task/Task.h"

int main()
{
    using utils::queue::Queue;
    using utils::singleton::SingletonT;
    using utils::task::Task;

    constexpr int NUM_TASKS = 3;
    static std::latch* const areBusy = new std::latch(NUM_TASKS);

    SingletonT<utils::command::Flags>::getInstancePtr()->m_traceSteps.setValue(2);
    SingletonT<utils::queue::Flags>::getInstancePtr()->m_traceSteps.setValue(2);
    SingletonT<utils::task::Flags>::getInstancePtr()->m_traceSteps.setValue(2);
    for (int i = 0; i < NUM_TASKS; ++i)
    {
        auto* const task = new Task(std::to_string(i), nullptr, 2);
        task->start(nullptr, nullptr, false);
        // Works for ever, and keeps reporting that the queue is unknown.
        task->getEventQueuePtr()->write(test::makeMacro(
                                            []
                                            {
                                                areBusy->count_down();
                                                while (Queue::getQueuePtr("unknown") == nullptr)
                                                {
                                                    Task::getMyName();
                                                }
                                            }),
                                        -1);
    }
    areBusy->wait();
    return 5;
}
