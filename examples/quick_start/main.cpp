#include <iostream>

#include <utils/command/Command.h>
#include <utils/command/Flags.h>
#include <utils/command/Macro.h>
#include <utils/queue/Queue.h>
#include <utils/singleton/SingletonT.h>
#include <utils/task/Task.h>

class Measure : public utils::command::Command
{
  public:
    explicit Measure(int channel) : Command("Measure"), m_channel(channel) {}

  private:
    int myExecute() override  // on the thread of the task
    {
        std::cout << "channel " << m_channel << "\n";
        return 0;  // anything else is a failure and ends the macro
    }

    int m_channel;
};

int main()
{
    // Trace what commands do, from here on.
    auto* const flags = utils::singleton::SingletonT<utils::command::Flags>::getInstancePtr();
    flags->m_traceSteps.setValue(1);

    utils::queue::Queue jobs("jobs", 16);           // holds up to 16 macros
    utils::task::Task worker("worker", &jobs, 16);  // what is written to jobs goes to the worker
    worker.start(nullptr, nullptr, false);

    auto* const macro = new utils::command::Macro("two channels", false, true);  // deletes itself
    macro->add(new Measure(1));
    macro->add(new Measure(2));
    if (!jobs.write(macro, -1))  // waits for a free place without limit
    {
        delete macro;
    }

    worker.terminate(true);  // after all that was written before; waits for the thread's end
    return worker.getExitStatus();
}
