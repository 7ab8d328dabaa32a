// Tasks that are not running:
// - what is there after construction; the event queue and its name; the error names;
// - output, a line flushed each, whatever the format of the stream;
// - what is refused while the task is not running, with its report.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iomanip>
#include <ios>
#include <sstream>
#include <type_traits>

#include "support/FlushedPieces.h"
#include "support/StepRecorder.h"
#include "utils/task/Task.h"

namespace
{

using test::StepRecorder;
using testing::ElementsAre;
using testing::IsEmpty;
using utils::queue::Queue;
using utils::task::Task;

TEST(Task, IsNotCopyableAndHasTheControlBase)
{
    EXPECT_FALSE(std::is_copy_constructible_v<Task>);
    EXPECT_FALSE(std::is_copy_assignable_v<Task>);
    EXPECT_TRUE(std::has_virtual_destructor_v<Task>);
    EXPECT_TRUE((std::is_base_of_v<utils::task::TaskControl, Task>));
}

TEST(Task, NumbersItsStates)
{
    EXPECT_EQ(static_cast<int>(Task::NOT_RUNNING), 0);
    EXPECT_EQ(static_cast<int>(Task::RUNNING), 1);
    EXPECT_EQ(static_cast<int>(Task::WAITING_TO_TERMINATE), 2);
    EXPECT_EQ(sizeof(Task::State), 4U);
}

TEST(Task, NamesItsErrors)
{
    EXPECT_EQ(Task::TASK_ERROR, "TaskError");
    EXPECT_EQ(Task::WRONG_STATE_ERROR, "WrongTaskState");
}

TEST(Task, IsNotRunningAtFirst)
{
    StepRecorder recorder;
    Task task("t", nullptr, 5);
    EXPECT_EQ(task.getName(), "t");
    EXPECT_EQ(task.getState(), Task::NOT_RUNNING);
    EXPECT_EQ(task.getExitStatus(), 0);
    EXPECT_EQ(task.getOsTaskPtr(), nullptr);
    EXPECT_FALSE(task.isThreadOfExecutionRunning());
    EXPECT_FALSE(task.waitingToTerminate());
    EXPECT_THAT(recorder.take(), IsEmpty());
}

TEST(Task, HasAnEventQueueOfItsOwn)
{
    Task task("t", nullptr, 5);
    Queue* const queue = task.getEventQueuePtr();
    EXPECT_EQ(queue->getName(), "t-TaskEventQueue");
    EXPECT_EQ(queue->getMaxMacros(), 5UL);
    EXPECT_EQ(Queue::getQueuePtr("t-TaskEventQueue"), queue);
}

TEST(Task, WaitsToTerminateInStateTwoOnly)
{
    Task task("t", nullptr, 5);
    task.setState(Task::WAITING_TO_TERMINATE);
    EXPECT_TRUE(task.waitingToTerminate());
    EXPECT_TRUE(task.isThreadOfExecutionRunning());
    task.setState(Task::RUNNING);
    EXPECT_FALSE(task.waitingToTerminate());
    EXPECT_TRUE(task.isThreadOfExecutionRunning());
    task.setState(Task::NOT_RUNNING);
}

TEST(Task, OutputWritesWhatThereIsToKnow)
{
    Task task("t", nullptr, 5);
    std::ostringstream os;
    task.output(os);
    EXPECT_EQ(os.str(),
              "Name                = 't'\n"
              "Event Queue         = 't-TaskEventQueue'\n"
              "State               = 0\n"
              "OS Task Pointer     = 0\n"
              "Exit Status         = 0\n");
}

TEST(Task, OutputFlushesEachLine)
{
    const Task task("t", nullptr, 5);
    test::FlushedPieces os;
    task.output(os.getStream());
    EXPECT_THAT(
        os.getPieces(),
        ElementsAre("Name                = 't'\n", "Event Queue         = 't-TaskEventQueue'\n",
                    "State               = 0\n", "OS Task Pointer     = 0\n",
                    "Exit Status         = 0\n"));
}

TEST(Task, OutputIgnoresAndKeepsTheFormatOfTheStream)
{
    class FailingTask : public Task
    {
      public:
        FailingTask() : Task("t", nullptr, 5) {}
        ~FailingTask() override { cleanUp(); }
        int run(void*) override { return 255; }
    };

    FailingTask task;
    task.start(nullptr, nullptr, false);
    osTaskJoin(task.getOsTaskPtr());
    task.cleanUp();
    std::ostringstream os;
    os << std::hex << std::setfill('*') << std::setw(40) << task;
    EXPECT_EQ(os.str(),
              "Name                = 't'\n"
              "Event Queue         = 't-TaskEventQueue'\n"
              "State               = 0\n"
              "OS Task Pointer     = 0\n"
              "Exit Status         = 255\n");
    EXPECT_EQ(os.width(), 40);
    EXPECT_EQ(os.fill(), '*');
    EXPECT_EQ(os.flags() & std::ios_base::basefield, std::ios_base::hex);
}

TEST(Task, StreamOperatorCallsTheVirtualOutput)
{
    class TalkativeTask : public Task
    {
      public:
        TalkativeTask() : Task("t", nullptr, 5) {}
        ~TalkativeTask() override { cleanUp(); }
        void output(std::ostream& os) const override { os << "something else"; }
    };
    const TalkativeTask task;
    std::ostringstream os;
    EXPECT_EQ(&(os << static_cast<const Task&>(task)), &os);
    EXPECT_EQ(os.str(), "something else");
}

TEST(Task, RefusesTerminationWhileItIsNotRunning)
{
    StepRecorder recorder;
    Task task("t", nullptr, 5);
    EXPECT_FALSE(task.terminate(true));
    EXPECT_FALSE(task.terminate(false));
    EXPECT_THAT(recorder.take(), ElementsAre("ERROR: WrongTaskState Task/terminate: Task 't' can "
                                             "not be terminated - task is not running.",
                                             "ERROR: WrongTaskState Task/terminate: Task 't' can "
                                             "not be terminated - task is not running."));
    EXPECT_EQ(task.getState(), Task::NOT_RUNNING);
    EXPECT_EQ(task.getEventQueuePtr()->size(), 0U);
}

TEST(Task, RefusesToBeJoinedWhileItIsNotRunning)
{
    StepRecorder recorder;
    Task task("t", nullptr, 5);
    int exitStatus = 77;
    EXPECT_FALSE(task.join(exitStatus));
    EXPECT_EQ(exitStatus, 77);
    EXPECT_THAT(recorder.take(), ElementsAre("ERROR: WrongTaskState Task/join: Can not join task "
                                             "'' to task 't' - task is not running."));
}

TEST(Task, RefusesPrioritiesWhileItIsNotRunning)
{
    StepRecorder recorder;
    Task task("t", nullptr, 5);
    int priority = 77;
    EXPECT_FALSE(task.setPriority(-3));
    EXPECT_FALSE(task.getPriority(priority));
    EXPECT_EQ(priority, 77);
    EXPECT_THAT(recorder.take(),
                ElementsAre("ERROR: WrongTaskState Task/setPriority: Can not set priority of task "
                            "'t' to -3 - task is not running.",
                            "ERROR: WrongTaskState Task/getPriority: Can not get priority of task "
                            "'t' - task is not running."));
}

TEST(Task, HasNoSchedulingPolicyBeforeItsFirstStart)
{
    Task task("t", nullptr, 5);
    EXPECT_FALSE(task.setSchedulingPolicy(OS_SCHED_NORMAL));
}

TEST(Task, MayBeCleanedUpAgain)
{
    StepRecorder recorder;
    Task task("t", nullptr, 5);
    task.cleanUp();
    task.cleanUp();
    EXPECT_THAT(recorder.take(), IsEmpty());
}

}  // namespace
