// Ends the process from the thread of a static task, while another task runs and main waits.

#include <cstdlib>
#include <latch>

#include "support/Commands.h"
#include "utils/task/Task.h"

namespace
{

utils::task::Task theOther("other", nullptr, 2);
utils::task::Task theTask("task", nullptr, 2);

}  // namespace

int main()
{
    static std::latch* const never = new std::latch(1);
    theOther.start(nullptr, nullptr, false);
    theTask.start(nullptr, nullptr, false);
    theTask.getEventQueuePtr()->write(test::makeMacro([] { std::exit(8); }), -1);
    never->wait();
}
