// A task that a static destructor waits for hits fatal misuse, when the process is ending by itself.

#include <latch>

#include "support/Commands.h"
#include "utils/task/Task.h"

namespace
{

std::latch theEndHasBegun{1};

utils::task::Task theTask("task", nullptr, 2);

// Destroyed before the task, which is then waited for.
struct EndOfProcess
{
    ~EndOfProcess() { theEndHasBegun.count_down(); }
};

}  // namespace

int main()
{
    static const EndOfProcess endOfProcess;
    theTask.start(nullptr, nullptr, false);
    theTask.getEventQueuePtr()->write(test::makeMacro(
                                          []
                                          {
                                              theEndHasBegun.wait();
                                              theTask.addQueue(nullptr);
                                          }),
                                      -1);
    return 7;
}
