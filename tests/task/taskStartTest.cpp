// Starting:
// - a running task is refused; a finished one may be started again;
// - what the thread gets: its argument and options, with name, joinable and reserved filled in;
// - names: cut at 127 characters, made up for tasks without a name.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdio>
#include <cstring>

#include "support/Blocker.h"
#include "support/StepRecorder.h"
#include "utils/task/Task.h"

namespace
{

using test::Blocker;
using test::StepRecorder;
using testing::ElementsAre;
using testing::IsEmpty;
using utils::task::Task;

int destroyHook = 0;  // stands for a hook

// Notes how its thread was started, and ends with a given status.
class ProbeTask : public Task
{
  public:
    explicit ProbeTask(const std::string& name) : Task(name, nullptr, 5) {}
    ~ProbeTask() override { cleanUp(); }

    int run(void* arg) override
    {
        m_arg = arg;
        m_options = osTaskGetOptions(osTaskSelf());
        m_myName = getMyName();
        m_myTask = getTaskPtr("");
        m_handle = osTaskSelf();
        return static_cast<int>(++m_numRuns);
    }

    // One whole run; returns when the thread has ended.
    void runOnce(const osTaskOptions_t* options = nullptr, void* arg = nullptr)
    {
        EXPECT_TRUE(start(options, arg, false));
        osTaskJoin(getOsTaskPtr());
    }

    void* m_arg = nullptr;
    osTaskOptions_t m_options{};
    std::string m_myName;
    const Task* m_myTask = nullptr;
    osTaskHandle_t m_handle = nullptr;
    long m_numRuns = 0;
};

std::string unnamed(const Task& task, long id)
{
    char name[128];
    std::snprintf(name, sizeof name, "Task:%p:ID%ld", static_cast<void*>(const_cast<Task*>(&task)),
                  id);
    return name;
}

TEST(TaskStart, OptionsAreLaidOutAsPlatformsExpectThem)
{
    EXPECT_EQ(sizeof(osTaskOptions_t), 184U);
    EXPECT_EQ(offsetof(osTaskOptions_t, name), 0U);
    EXPECT_EQ(offsetof(osTaskOptions_t, priority), 128U);
    EXPECT_EQ(offsetof(osTaskOptions_t, stackSize), 136U);
    EXPECT_EQ(offsetof(osTaskOptions_t, persist), 144U);
    EXPECT_EQ(offsetof(osTaskOptions_t, joinable), 148U);
    EXPECT_EQ(offsetof(osTaskOptions_t, destroyHook), 152U);
    EXPECT_EQ(offsetof(osTaskOptions_t, user1), 160U);
    EXPECT_EQ(offsetof(osTaskOptions_t, user2), 168U);
    EXPECT_EQ(offsetof(osTaskOptions_t, reserved), 176U);
}

TEST(TaskStart, GivesTheThreadItsArgumentAndItsTask)
{
    int argument = 0;
    ProbeTask task("t");
    task.runOnce(nullptr, &argument);
    EXPECT_EQ(task.m_arg, &argument);
    EXPECT_EQ(task.m_myName, "t");
    EXPECT_EQ(task.m_myTask, &task);
    EXPECT_EQ(task.m_options.reserved, static_cast<Task*>(&task));
    EXPECT_EQ(task.getOsTaskPtr(), task.m_handle);
    EXPECT_EQ(task.getExitStatus(), 1);
}

TEST(TaskStart, WithoutOptionsUsesZeroes)
{
    ProbeTask task("t");
    task.runOnce();
    EXPECT_STREQ(task.m_options.name, "t");
    EXPECT_EQ(task.m_options.priority, 0);
    EXPECT_EQ(task.m_options.stackSize, 0U);
    EXPECT_EQ(task.m_options.persist, 0);
    EXPECT_EQ(task.m_options.joinable, 1);
    EXPECT_EQ(task.m_options.destroyHook, nullptr);
    EXPECT_EQ(task.m_options.user1, 0U);
    EXPECT_EQ(task.m_options.user2, 0U);
}

TEST(TaskStart, CopiesTheOptionsAndFillsInWhatIsItsOwn)
{
    osTaskOptions_t options{};
    std::strcpy(options.name, "a longer name that is replaced");
    options.priority = 3;
    options.stackSize = 1048576;
    options.persist = 4;
    options.joinable = 0;
    options.destroyHook = &destroyHook;
    options.user1 = 5;
    options.user2 = 6;
    options.reserved = &options;
    const osTaskOptions_t before = options;

    ProbeTask task("t");
    task.runOnce(&options);
    EXPECT_STREQ(task.m_options.name, "t");
    EXPECT_EQ(task.m_options.priority, 3);
    EXPECT_EQ(task.m_options.stackSize, 1048576U);
    EXPECT_EQ(task.m_options.persist, 4);
    EXPECT_EQ(task.m_options.joinable, 1);
    EXPECT_EQ(task.m_options.destroyHook, &destroyHook);
    EXPECT_EQ(task.m_options.user1, 5U);
    EXPECT_EQ(task.m_options.user2, 6U);
    EXPECT_EQ(task.m_options.reserved, static_cast<Task*>(&task));

    EXPECT_EQ(std::memcmp(&options, &before, sizeof options), 0);
}

TEST(TaskStart, NamesOf127CharactersAreKeptWhole)
{
    const std::string name(127, 'n');
    ProbeTask task(name);
    task.runOnce();
    EXPECT_EQ(task.m_myName, name);
    EXPECT_EQ(task.m_myTask, &task);
}

TEST(TaskStart, LongerNamesAreCutForTheThreadOnly)
{
    for (const std::size_t length : {128U, 200U, 1000U})
    {
        const std::string name(length, 'n');
        ProbeTask task(name);
        task.runOnce();
        EXPECT_EQ(task.m_myName, std::string(127, 'n'));
        EXPECT_EQ(task.getName(), name);
        EXPECT_EQ(Task::getTaskPtr(name), &task);
        EXPECT_EQ(task.m_myTask, nullptr);
    }
}

TEST(TaskStart, UnnamedTasksAreNumberedInTheOrderOfTheirStarts)
{
    {
        ProbeTask first("");
        first.runOnce();
        EXPECT_EQ(first.m_myName, unnamed(first, 1));
        EXPECT_EQ(first.getName(), "");
    }
    ProbeTask named("named");
    named.runOnce();
    ProbeTask second("");
    second.runOnce();
    EXPECT_EQ(second.m_myName, unnamed(second, 2));
    second.runOnce();
    EXPECT_EQ(second.m_myName, unnamed(second, 3));
}

TEST(TaskStart, IsRefusedWhileTheTaskIsRunning)
{
    StepRecorder recorder;
    Blocker blocker;
    Task task("t", nullptr, 5);
    ASSERT_TRUE(task.start(nullptr, nullptr, false));
    task.getEventQueuePtr()->write(blocker.makeMacro(), -1);
    blocker.waitUntilEntered();

    EXPECT_FALSE(task.start(nullptr, nullptr, false));
    EXPECT_THAT(recorder.take(), ElementsAre("ERROR: WrongTaskState Task/start: Task 't' can not "
                                             "be started - task is already running."));
    EXPECT_EQ(task.getState(), Task::RUNNING);

    EXPECT_TRUE(task.terminate(false));
    EXPECT_EQ(task.getState(), Task::WAITING_TO_TERMINATE);
    EXPECT_FALSE(task.start(nullptr, nullptr, true));
    EXPECT_THAT(recorder.take(), ElementsAre("ERROR: WrongTaskState Task/start: Task 't' can not "
                                             "be started - task is already running."));
    EXPECT_EQ(task.getState(), Task::WAITING_TO_TERMINATE);
    blocker.open();
}

TEST(TaskStart, IsPossibleAgainWhenTheThreadHasFinished)
{
    StepRecorder recorder;
    ProbeTask task("t");
    task.runOnce();
    EXPECT_EQ(task.getState(), Task::NOT_RUNNING);
    EXPECT_EQ(task.getExitStatus(), 1);
    task.runOnce();
    EXPECT_EQ(task.getState(), Task::NOT_RUNNING);
    EXPECT_EQ(task.getExitStatus(), 2);
    EXPECT_THAT(recorder.take(), IsEmpty());
}

TEST(TaskStart, PutsTheExitStatusBackToZero)
{
    // Fails at first, then waits until it may go on.
    class TwoFacedTask : public Task
    {
      public:
        TwoFacedTask() : Task("t", nullptr, 5) {}
        ~TwoFacedTask() override { cleanUp(); }
        int run(void* arg) override { return arg == nullptr ? 9 : Task::run(arg); }
    };

    TwoFacedTask task;
    task.start(nullptr, nullptr, false);
    osTaskJoin(task.getOsTaskPtr());
    EXPECT_EQ(task.getExitStatus(), 9);
    task.start(nullptr, &task, false);
    EXPECT_EQ(task.getExitStatus(), 0);
    EXPECT_EQ(task.getState(), Task::RUNNING);
}

}  // namespace
