// Static tasks that are destroyed by exit while their threads work, trace and report. Status 6
// tells that both were destroyed with everything done.

#include <unistd.h>

#include <atomic>
#include <cstdlib>

#include "support/Commands.h"
#include "utils/task/Flags.h"
#include "utils/task/Task.h"

namespace
{

using utils::task::Task;

constexpr int NUM_MACROS = 50;

std::atomic<int> numDone{0};

// Destroyed last.
struct Verdict
{
    ~Verdict()
    {
        const bool isGood = numDone == 2 * NUM_MACROS && Task::getTaskPtr("first") == nullptr &&
                            Task::getTaskPtr("second") == nullptr;
        _exit(isGood ? 6 : 7);
    }
};

const Verdict theVerdict;
Task theFirst("first", nullptr, NUM_MACROS + 1);

}  // namespace

int main()
{
    utils::singleton::SingletonT<utils::task::Flags>::getInstancePtr()->m_traceSteps.setValue(2);
    static Task theSecond("second", nullptr, NUM_MACROS + 1);
    for (Task* const task : {&theFirst, &theSecond})
    {
        task->start(nullptr, nullptr, false);
        for (int i = 0; i < NUM_MACROS; ++i)
        {
            task->getEventQueuePtr()->write(test::makeMacro(
                                                []
                                                {
                                                    utils::queue::Queue::getQueuePtr("unknown");
                                                    ++numDone;
                                                }),
                                            -1);
        }
    }
    std::exit(0);
}
