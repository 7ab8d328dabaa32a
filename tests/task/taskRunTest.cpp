// The thread of a task:
// - the hooks run on it, in order, and the exit status goes through them;
// - the default main loop executes macros in order, whatever their status, until told to end;
// - macros that delete themselves do, others stay their owner's;
// - an event queue that cannot be read ends the loop with a report and status 1;
// - priorities, policies, sleeping.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <latch>
#include <thread>

#include "support/Blocker.h"
#include "support/StepRecorder.h"
#include "utils/task/Task.h"

namespace
{

using test::Blocker;
using test::CountedMacro;
using test::Journal;
using test::JournalCommand;
using test::makeMacro;
using test::StepRecorder;
using testing::ElementsAre;
using testing::IsEmpty;
using utils::command::Macro;
using utils::task::Task;

TEST(TaskRun, HooksRunInOrderOnTheTasksThread)
{
    class HookedTask : public Task
    {
      public:
        HookedTask() : Task("t", nullptr, 5) {}
        ~HookedTask() override { cleanUp(); }
        void initialize() override { note("initialize"); }
        int run(void*) override
        {
            note("run");
            return 42;
        }
        void finalize(const int& exitStatus) override
        {
            note("finalize " + std::to_string(exitStatus));
        }
        Journal m_journal;

      private:
        void note(const std::string& what)
        {
            m_journal.push_back(what);
            EXPECT_EQ(getTaskPtr(""), this);
            EXPECT_EQ(getState(), RUNNING);
        }
    };

    HookedTask task;
    task.start(nullptr, nullptr, false);
    EXPECT_EQ(osTaskJoin(task.getOsTaskPtr()), 42);
    EXPECT_THAT(task.m_journal, ElementsAre("initialize", "run", "finalize 42"));
    EXPECT_EQ(task.getExitStatus(), 42);
    EXPECT_EQ(task.getState(), Task::NOT_RUNNING);
}

TEST(TaskRun, ExecutesMacrosInOrderWhateverTheirStatus)
{
    Journal journal;
    Macro good("good");
    Macro bad("bad");
    good.add(new JournalCommand("a", journal, 0));
    bad.add(new JournalCommand("b", journal, 5));
    {
        Task task("t", nullptr, 5);
        task.getEventQueuePtr()->write(&bad, 0);  // also what was written before the start
        task.start(nullptr, nullptr, false);
        task.getEventQueuePtr()->write(&good, 0);
        EXPECT_TRUE(task.terminate(true));
        EXPECT_EQ(task.getExitStatus(), 0);
    }
    EXPECT_THAT(journal, ElementsAre("run b", "run a"));
}

TEST(TaskRun, LeavesOrdinaryMacrosToTheirOwners)
{
    std::atomic<int> numDeleted{0};
    CountedMacro ordinary("ordinary", numDeleted, false);
    Task task("t", nullptr, 5);
    task.start(nullptr, nullptr, false);
    task.getEventQueuePtr()->write(&ordinary, 0);
    task.terminate(true);
    EXPECT_EQ(numDeleted, 0);
}

TEST(TaskRun, AutoDeleteMacrosDisposeOfThemselves)
{
    std::atomic<int> numDeleted{0};
    Task task("t", nullptr, 5);
    task.start(nullptr, nullptr, false);
    task.getEventQueuePtr()->write(new CountedMacro("auto", numDeleted, true), 0);
    task.terminate(true);
    EXPECT_EQ(numDeleted, 1);
}

TEST(TaskRun, EndsWhenTheEventQueueCannotBeRead)
{
    StepRecorder recorder;
    Task task("t", nullptr, 5);
    task.getEventQueuePtr()->cleanUp();
    task.start(nullptr, nullptr, false);
    EXPECT_EQ(osTaskJoin(task.getOsTaskPtr()), 1);
    EXPECT_EQ(task.getExitStatus(), 1);
    EXPECT_EQ(task.getState(), Task::NOT_RUNNING);
    EXPECT_THAT(recorder.take(),
                ElementsAre("ERROR: TaskError Task/run: Could not read from internal Event Queue "
                            "'t-TaskEventQueue' for task 't' - terminating task."));
}

TEST(TaskRun, RunsOnOneThreadFromMacroToMacro)
{
    Task task("t", nullptr, 5);
    task.start(nullptr, nullptr, false);
    std::thread::id first;
    std::thread::id second;
    task.getEventQueuePtr()->write(makeMacro([&] { first = std::this_thread::get_id(); }), 0);
    task.getEventQueuePtr()->write(makeMacro([&] { second = std::this_thread::get_id(); }), 0);
    task.terminate(true);
    EXPECT_EQ(first, second);
    EXPECT_NE(first, std::this_thread::get_id());
}

TEST(TaskRun, ShowsItsStateAndHandleWhileItRuns)
{
    Blocker blocker;
    Task task("t", nullptr, 5);
    task.start(nullptr, nullptr, false);
    task.getEventQueuePtr()->write(blocker.makeMacro(), 0);
    blocker.waitUntilEntered();

    EXPECT_TRUE(task.isThreadOfExecutionRunning());
    EXPECT_FALSE(task.waitingToTerminate());
    std::ostringstream expected;
    expected << "Name                = 't'\n"
                "Event Queue         = 't-TaskEventQueue'\n"
                "State               = 1\n"
                "OS Task Pointer     = "
             << task.getOsTaskPtr()
             << "\n"
                "Exit Status         = 0\n";
    std::ostringstream os;
    os << task;
    EXPECT_EQ(os.str(), expected.str());
    EXPECT_NE(task.getOsTaskPtr(), nullptr);
    blocker.open();
}

TEST(TaskRun, PriorityIsSetAndGotWhileItRuns)
{
    StepRecorder recorder;
    osTaskOptions_t options{};
    options.priority = 2;
    Task task("t", nullptr, 5);
    task.start(&options, nullptr, false);
    int priority = 0;
    EXPECT_TRUE(task.getPriority(priority));
    EXPECT_EQ(priority, 2);
    EXPECT_TRUE(task.setPriority(7));
    EXPECT_TRUE(task.getPriority(priority));
    EXPECT_EQ(priority, 7);
    EXPECT_TRUE(task.setSchedulingPolicy(OS_SCHED_NORMAL));
    EXPECT_THAT(recorder.take(), IsEmpty());
}

TEST(TaskRun, GoToSleepSleepsAndYieldDoesNot)
{
    using std::chrono::milliseconds;
    using std::chrono::steady_clock;

    const auto begin = steady_clock::now();
    Task::goToSleep(50);
    EXPECT_GE(steady_clock::now() - begin, milliseconds(50));

    Task::yield();
    EXPECT_LT(steady_clock::now() - begin, milliseconds(20000));
}

}  // namespace
