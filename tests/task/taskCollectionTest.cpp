// The collection of tasks: look-up, also of the calling thread's own task, listing in the order of
// names, removal; names that are taken are fatal.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <latch>
#include <sstream>
#include <thread>

#include "support/Commands.h"
#include "support/FatalTest.h"
#include "support/StepRecorder.h"
#include "utils/task/Task.h"

namespace
{

using test::isReport;
using test::makeMacro;
using test::StepRecorder;
using testing::ExitedWithCode;
using testing::IsEmpty;
using utils::queue::Queue;
using utils::task::Task;

using TaskMap = std::map<std::string, Task*>;

// What a function of this type returns on the thread of a task.
template <typename Function>
auto callOn(Task& task, Function function)
{
    decltype(function()) result{};
    std::latch isDone{1};
    task.getEventQueuePtr()->write(makeMacro(
                                       [&]
                                       {
                                           result = function();
                                           isDone.count_down();
                                       }),
                                   -1);
    isDone.wait();
    return result;
}

TEST(TaskCollection, FindsATaskByItsName)
{
    StepRecorder recorder;
    Task first("first", nullptr, 1);
    Task second("second", nullptr, 1);
    EXPECT_EQ(Task::getTaskPtr("first"), &first);
    EXPECT_EQ(Task::getTaskPtr("second"), &second);
    EXPECT_THAT(recorder.take(), IsEmpty());
}

TEST(TaskCollection, ReportsNothingForAnUnknownName)
{
    StepRecorder recorder;
    EXPECT_EQ(Task::getTaskPtr("t"), nullptr);
    EXPECT_THAT(recorder.take(), IsEmpty());
}

TEST(TaskCollection, FindsTheCallingThreadsTaskByAnEmptyName)
{
    Task task("t", nullptr, 5);
    Task other("other", nullptr, 5);
    task.start(nullptr, nullptr, false);
    other.start(nullptr, nullptr, false);
    EXPECT_EQ(callOn(task, [] { return Task::getTaskPtr(""); }), &task);
    EXPECT_EQ(callOn(other, [] { return Task::getTaskPtr(""); }), &other);
    EXPECT_EQ(callOn(task, [] { return Task::getTaskPtr("other"); }), &other);
}

TEST(TaskCollection, FindsNothingByAnEmptyNameOnAnotherThread)
{
    StepRecorder recorder;
    Task task("t", nullptr, 5);
    EXPECT_EQ(Task::getTaskPtr(""), nullptr);
    std::thread([] { EXPECT_EQ(Task::getTaskPtr(""), nullptr); }).join();
    EXPECT_THAT(recorder.take(), IsEmpty());
}

TEST(TaskCollection, FindsNothingByAnEmptyNameOnAnotherThreadWhileAnUnnamedTaskExists)
{
    StepRecorder recorder;
    Task unnamed("", nullptr, 5);
    EXPECT_EQ(Task::getTaskPtr(""), nullptr);
    EXPECT_THAT(recorder.take(), IsEmpty());
}

TEST(TaskCollection, TellsTheCallingThreadsName)
{
    Task task("t", nullptr, 5);
    task.start(nullptr, nullptr, false);
    EXPECT_EQ(callOn(task, [] { return Task::getMyName(); }), "t");
    EXPECT_EQ(Task::getMyName(), "");
}

TEST(TaskCollection, LosesATaskThatIsCleanedUpOrDestroyed)
{
    Task task("t", nullptr, 1);
    task.cleanUp();
    EXPECT_EQ(Task::getTaskPtr("t"), nullptr);
    {
        Task other("other", nullptr, 1);
    }
    EXPECT_EQ(Task::getTaskPtr("other"), nullptr);
    Task successor("other", nullptr, 1);
    EXPECT_EQ(Task::getTaskPtr("other"), &successor);
}

TEST(TaskCollection, IsTheSingletonOfItsMap)
{
    Task task("t", nullptr, 1);
    const TaskMap& map = *utils::singleton::SingletonT<TaskMap>::getInstancePtr();
    ASSERT_EQ(map.size(), 1U);
    EXPECT_EQ(map.begin()->first, "t");
    EXPECT_EQ(map.begin()->second, &task);
}

TEST(TaskCollection, IsListedAsABannerWhileItIsEmpty)
{
    std::ostringstream os;
    EXPECT_EQ(&Task::outputTasks(os), &os);
    EXPECT_EQ(os.str(), "*** Current tasks are:\n");
}

TEST(TaskCollection, IsListedInTheByteWiseOrderOfNames)
{
    Task a("a", nullptr, 1);
    Task upperB("B", nullptr, 1);
    std::ostringstream os;
    Task::outputTasks(os);
    EXPECT_EQ(os.str(),
              "*** Current tasks are:\n"
              "Name                = 'B'\n"
              "Event Queue         = 'B-TaskEventQueue'\n"
              "State               = 0\n"
              "OS Task Pointer     = 0\n"
              "Exit Status         = 0\n"
              "\n"
              "Name                = 'a'\n"
              "Event Queue         = 'a-TaskEventQueue'\n"
              "State               = 0\n"
              "OS Task Pointer     = 0\n"
              "Exit Status         = 0\n"
              "\n");
}

using TaskFatal = test::FatalTest;

TEST_F(TaskFatal, ANameThatIsTakenIsCaughtByTheEventQueue)
{
    EXPECT_EXIT(
        {
            Task first("t", nullptr, 1);
            Task second("t", nullptr, 1);
        },
        ExitedWithCode(1),
        isReport("ERROR: AlreadyExists", "generic/utils/src/queue/src/Queue",
                 "Queue:\nQueue 't-TaskEventQueue' is already in the Queue Collection (i.e., name "
                 "is not unique)."));
}

TEST_F(TaskFatal, ANameThatIsTakenWhenTheFirstTasksEventQueueIsGone)
{
    EXPECT_EXIT(
        {
            Task first("t", nullptr, 1);
            first.getEventQueuePtr()->cleanUp();
            Task second("t", nullptr, 1);
        },
        ExitedWithCode(1),
        isReport("ERROR: AlreadyExists", "generic/utils/src/task/src/Task",
                 "Task:\nTask 't' is already in the Task Collection (i.e., name is not unique)."));
}

TEST_F(TaskFatal, AnEventQueuesNameThatIsTakenByAQueue)
{
    EXPECT_EXIT(
        {
            Queue queue("t-TaskEventQueue", 1);
            Task task("t", nullptr, 1);
        },
        ExitedWithCode(1),
        isReport("ERROR: AlreadyExists", "generic/utils/src/queue/src/Queue",
                 "Queue:\nQueue 't-TaskEventQueue' is already in the Queue Collection (i.e., name "
                 "is not unique)."));
}

TEST_F(TaskFatal, AddingANullQueue)
{
    Task task("t", nullptr, 1);
    EXPECT_EXIT(task.addQueue(nullptr), ExitedWithCode(1),
                isReport("ERROR: NullPtr", "generic/utils/src/task/src/Task",
                         "addQueue:\nNull pointer (queuePtr) passed to Task::addQueue for task "
                         "'t'."));
}

TEST_F(TaskFatal, RemovingANullQueue)
{
    Task task("t", nullptr, 1);
    EXPECT_EXIT(task.removeQueue(nullptr), ExitedWithCode(1),
                isReport("ERROR: NullPtr", "generic/utils/src/task/src/Task",
                         "removeQueue:\nNull pointer (queuePtr) passed to Task::removeQueue for "
                         "task 't'."));
}

}  // namespace
