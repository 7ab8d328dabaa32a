// What is reported, and what goes on, when the platform fails:
// - making queues, writing, reading, making threads and joining them fail at each of their calls in
//   one life of queues and tasks; the results, what ran, and the reports are given whole;
// - the same when one of them fails for good, or for some calls in a row;
// - nothing leaks: all handles are given back, and all macros deleted but those that the failure
//   leaves to their owner ("left").

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "FaultyPlatform.h"
#include "Scenario.h"
#include "support/StepRecorder.h"

namespace
{

using faulty_platform::countCalls;
using faulty_platform::countHandles;
using faulty_platform::failAt;
using faulty_platform::Operation;
using test::Scenario;
using test::StepRecorder;
using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::Values;

// The life without any failure.
const char* const ALL_WELL =
    "start+ start+ one-half other-half feed+ put+ put+ take+ end+ join0+ start+ end+";

const char* const FIRST_NOT_WRITTEN =
    "ERROR: QueueWriteError Queue/write: Could not write macro 'first' to queue 'store'.";
const char* const SECOND_NOT_WRITTEN =
    "ERROR: QueueWriteError Queue/write: Could not write macro 'second' to queue 'store'.";
const char* const JOB_NOT_FED =
    "ERROR: QueueWriteError Queue/write: Could not write macro 'job' to queue 'input'.";
const char* const JOB_NOT_WRITTEN_TO_WORKER =
    "ERROR: QueueWriteError Queue/write: Could not write macro 'job' to queue "
    "'worker-TaskEventQueue'.";
const char* const JOB_NOT_WRITTEN_TO_HELPER =
    "ERROR: QueueWriteError Queue/write: Could not write macro 'job' to queue "
    "'helper-TaskEventQueue'.";
const char* const END_NOT_WRITTEN_TO_WORKER =
    "ERROR: QueueWriteError Queue/write: Could not write macro 'TerminateTaskMacro' to queue "
    "'worker-TaskEventQueue'.";
const char* const END_NOT_WRITTEN_TO_HELPER =
    "ERROR: QueueWriteError Queue/write: Could not write macro 'TerminateTaskMacro' to queue "
    "'helper-TaskEventQueue'.";
const char* const WORKER_NOT_ENDED =
    "ERROR: TaskError Task/terminate: Could not terminate task 'worker' - unknown error.";
const char* const HELPER_NOT_ENDED =
    "ERROR: TaskError Task/terminate: Could not terminate task 'helper' - unknown error.";
const char* const WORKER_CAN_NOT_READ =
    "ERROR: TaskError Task/run: Could not read from internal Event Queue 'worker-TaskEventQueue' "
    "for task 'worker' - terminating task.";
const char* const HELPER_CAN_NOT_READ =
    "ERROR: TaskError Task/run: Could not read from internal Event Queue 'helper-TaskEventQueue' "
    "for task 'helper' - terminating task.";
const char* const WORKER_NOT_RUNNING_TO_END =
    "ERROR: WrongTaskState Task/terminate: Task 'worker' can not be terminated - task is not "
    "running.";
const char* const HELPER_NOT_RUNNING_TO_END =
    "ERROR: WrongTaskState Task/terminate: Task 'helper' can not be terminated - task is not "
    "running.";
const char* const WORKER_NOT_RUNNING_TO_JOIN =
    "ERROR: WrongTaskState Task/join: Can not join task '' to task 'worker' - task is not running.";
const char* const WORKER_RUNNING_ALREADY =
    "ERROR: WrongTaskState Task/start: Task 'worker' can not be started - task is already running.";

constexpr unsigned FOR_GOOD = 1'000'000;

struct Failure
{
    Operation operation;
    unsigned firstCall;
    std::string story;
    std::vector<std::string> reports;
    unsigned numCalls = 1;
};

void PrintTo(const Failure& failure, std::ostream* os)
{
    *os << "operation " << static_cast<int>(failure.operation) << ", call " << failure.firstCall;
}

// "Call3", "Call3To5" or "Call3On".
std::string nameOf(const testing::TestParamInfo<Failure>& info)
{
    const Failure& failure = info.param;
    const std::string name = "Call" + std::to_string(failure.firstCall);
    if (failure.numCalls == FOR_GOOD)
    {
        return name + "On";
    }
    const unsigned lastCall = failure.firstCall + failure.numCalls - 1;
    return failure.numCalls == 1 ? name : name + "To" + std::to_string(lastCall);
}

class PlatformFailure : public testing::TestWithParam<Failure>
{
};

TEST_P(PlatformFailure, IsReportedAndNothingLeaks)
{
    const Failure& failure = GetParam();
    StepRecorder recorder;
    failAt(failure.operation, failure.firstCall, failure.numCalls);
    Scenario scenario;
    scenario.run();
    EXPECT_EQ(scenario.getStory(), failure.story);
    EXPECT_THAT(recorder.take(), ElementsAreArray(failure.reports));
    EXPECT_EQ(countHandles(), 0U);
}

// The queues in the order in which they are made: the one that forwards never stores anything, the
// store, the event queues of worker and helper.
INSTANTIATE_TEST_SUITE_P(
    OfQueueCreation, PlatformFailure,
    Values(Failure{Operation::QUEUE_CREATE, 1, ALL_WELL, {}},
           Failure{Operation::QUEUE_CREATE,
                   2,
                   "start+ start+ one-half other-half feed+ put- put- take- end+ join0+ start+ "
                   "end+",
                   {FIRST_NOT_WRITTEN, SECOND_NOT_WRITTEN}},
           Failure{Operation::QUEUE_CREATE,
                   3,
                   "start+ start+ feed- put+ put+ take+ end- join99- start+ end+",
                   {WORKER_CAN_NOT_READ, JOB_NOT_WRITTEN_TO_WORKER, JOB_NOT_FED,
                    WORKER_NOT_RUNNING_TO_END, WORKER_NOT_RUNNING_TO_JOIN, WORKER_CAN_NOT_READ}},
           Failure{Operation::QUEUE_CREATE,
                   4,
                   "start+ start+ one-half feed+ put+ put+ take+ end+ join0+ start+ end- left:job",
                   {HELPER_CAN_NOT_READ, JOB_NOT_WRITTEN_TO_HELPER, HELPER_NOT_RUNNING_TO_END}},
           Failure{Operation::QUEUE_CREATE,
                   1,
                   "start+ start+ feed- put- put- take- end- join99- start+ end-",
                   {WORKER_CAN_NOT_READ, HELPER_CAN_NOT_READ, JOB_NOT_WRITTEN_TO_WORKER,
                    JOB_NOT_FED, FIRST_NOT_WRITTEN, SECOND_NOT_WRITTEN, WORKER_NOT_RUNNING_TO_END,
                    WORKER_NOT_RUNNING_TO_JOIN, WORKER_CAN_NOT_READ, HELPER_NOT_RUNNING_TO_END},
                   FOR_GOOD}),
    nameOf);

// The job to the worker and from there to the helper, two macros to the store, the ends of worker
// and helper, and that of the worker's second run. A task that could not be told to end is told
// again when it is destroyed.
INSTANTIATE_TEST_SUITE_P(
    OfWrites, PlatformFailure,
    Values(Failure{Operation::QUEUE_WRITE,
                   1,
                   "start+ start+ feed- put+ put+ take+ end+ join0+ start+ end+",
                   {JOB_NOT_WRITTEN_TO_WORKER, JOB_NOT_FED}},
           Failure{Operation::QUEUE_WRITE,
                   2,
                   "start+ start+ one-half feed+ put+ put+ take+ end+ join0+ start+ end+ left:job",
                   {JOB_NOT_WRITTEN_TO_HELPER}},
           Failure{Operation::QUEUE_WRITE,
                   3,
                   "start+ start+ one-half other-half feed+ put- put+ take+ end+ join0+ start+ "
                   "end+",
                   {FIRST_NOT_WRITTEN}},
           Failure{Operation::QUEUE_WRITE,
                   4,
                   "start+ start+ one-half other-half feed+ put+ put- take+ end+ join0+ start+ "
                   "end+",
                   {SECOND_NOT_WRITTEN}},
           Failure{Operation::QUEUE_WRITE,
                   5,
                   "start+ start+ one-half other-half feed+ put+ put+ take+ end- start- end+",
                   {END_NOT_WRITTEN_TO_WORKER, WORKER_NOT_ENDED, WORKER_RUNNING_ALREADY}},
           Failure{Operation::QUEUE_WRITE,
                   6,
                   "start+ start+ one-half other-half feed+ put+ put+ take+ end+ join0+ start+ "
                   "end-",
                   {END_NOT_WRITTEN_TO_HELPER, HELPER_NOT_ENDED}},
           Failure{
               Operation::QUEUE_WRITE, 7, ALL_WELL, {END_NOT_WRITTEN_TO_WORKER, WORKER_NOT_ENDED}},
           // The helper's destructor is refused three times, and reports once.
           Failure{Operation::QUEUE_WRITE,
                   6,
                   "start+ start+ one-half other-half feed+ put+ put+ take+ end+ join0+ start+ "
                   "end-",
                   {END_NOT_WRITTEN_TO_HELPER, HELPER_NOT_ENDED, END_NOT_WRITTEN_TO_HELPER,
                    HELPER_NOT_ENDED},
                   4}),
    nameOf);

// Worker and helper wait for the job, then for more; one macro is taken from the store; the worker
// waits in its second run. The rest empties queues that are destroyed: there only the ninth would
// have found a macro, and a failed read ends the emptying.
INSTANTIATE_TEST_SUITE_P(
    OfReads, PlatformFailure,
    Values(Failure{Operation::QUEUE_READ,
                   1,
                   "start+ start+ feed+ put+ put+ take+ end- join99- one-half other-half start+ "
                   "end+",
                   {WORKER_CAN_NOT_READ, WORKER_NOT_RUNNING_TO_END, WORKER_NOT_RUNNING_TO_JOIN}},
           Failure{Operation::QUEUE_READ,
                   2,
                   "start+ start+ one-half feed+ put+ put+ take+ end+ join0+ start+ end-",
                   {HELPER_CAN_NOT_READ, HELPER_NOT_RUNNING_TO_END}},
           Failure{Operation::QUEUE_READ,
                   3,
                   "start+ start+ one-half other-half feed+ put+ put+ take+ end- join99- start+ "
                   "end+",
                   {WORKER_CAN_NOT_READ, WORKER_NOT_RUNNING_TO_END, WORKER_NOT_RUNNING_TO_JOIN}},
           Failure{Operation::QUEUE_READ,
                   4,
                   "start+ start+ one-half other-half feed+ put+ put+ take+ end+ join0+ start+ "
                   "end-",
                   {HELPER_CAN_NOT_READ, HELPER_NOT_RUNNING_TO_END}},
           Failure{Operation::QUEUE_READ,
                   5,
                   "start+ start+ one-half other-half feed+ put+ put+ take- end+ join0+ start+ "
                   "end+",
                   {}},
           Failure{Operation::QUEUE_READ, 6, ALL_WELL, {WORKER_CAN_NOT_READ}},
           Failure{Operation::QUEUE_READ, 7, ALL_WELL, {}},
           Failure{Operation::QUEUE_READ, 8, ALL_WELL, {}},
           Failure{Operation::QUEUE_READ,
                   9,
                   "start+ start+ one-half other-half feed+ put+ put+ take+ end+ join0+ start+ "
                   "end+ left:second",
                   {}},
           Failure{Operation::QUEUE_READ, 10, ALL_WELL, {}},
           Failure{Operation::QUEUE_READ, 11, ALL_WELL, {}},
           Failure{Operation::QUEUE_READ,
                   1,
                   "start+ start+ feed+ put+ put+ take- end- join99- start+ end- left:job "
                   "left:first left:second",
                   {WORKER_CAN_NOT_READ, HELPER_CAN_NOT_READ, WORKER_NOT_RUNNING_TO_END,
                    WORKER_NOT_RUNNING_TO_JOIN, WORKER_CAN_NOT_READ, HELPER_NOT_RUNNING_TO_END},
                   FOR_GOOD}),
    nameOf);

// Worker, helper, worker again. A task without a thread counts as running until it is destroyed.
INSTANTIATE_TEST_SUITE_P(
    OfTaskCreation, PlatformFailure,
    Values(Failure{Operation::TASK_CREATE,
                   1,
                   "start+ start+ feed+ put+ put+ take+ end+ join-1+ start- end+",
                   {WORKER_RUNNING_ALREADY}},
           Failure{Operation::TASK_CREATE,
                   2,
                   "start+ start+ one-half feed+ put+ put+ take+ end+ join0+ start+ end+",
                   {}},
           Failure{Operation::TASK_CREATE, 3, ALL_WELL, {}},
           Failure{Operation::TASK_CREATE,
                   1,
                   "start+ start+ feed+ put+ put+ take+ end+ join-1+ start- end+",
                   {WORKER_RUNNING_ALREADY},
                   FOR_GOOD}),
    nameOf);

// The worker is joined by hand, the helper by its end, the worker's second run by its destructor.
INSTANTIATE_TEST_SUITE_P(
    OfJoins, PlatformFailure,
    Values(Failure{Operation::TASK_JOIN,
                   1,
                   "start+ start+ one-half other-half feed+ put+ put+ take+ end+ join-1+ start+ "
                   "end+",
                   {}},
           Failure{Operation::TASK_JOIN, 2, ALL_WELL, {}},
           Failure{Operation::TASK_JOIN, 3, ALL_WELL, {}},
           Failure{Operation::TASK_JOIN,
                   1,
                   "start+ start+ one-half other-half feed+ put+ put+ take+ end+ join-1+ start+ "
                   "end+",
                   {},
                   FOR_GOOD}),
    nameOf);

TEST(PlatformWithoutFailure, IsCalledAsOftenAsThereAreCasesOfFailure)
{
    StepRecorder recorder;
    Scenario scenario;
    scenario.run();
    EXPECT_EQ(scenario.getStory(), ALL_WELL);
    EXPECT_THAT(recorder.take(), IsEmpty());
    EXPECT_EQ(countCalls(Operation::QUEUE_CREATE), 4U);
    EXPECT_EQ(countCalls(Operation::QUEUE_WRITE), 7U);
    EXPECT_EQ(countCalls(Operation::QUEUE_READ), 11U);
    EXPECT_EQ(countCalls(Operation::TASK_CREATE), 3U);
    EXPECT_EQ(countCalls(Operation::TASK_JOIN), 3U);
    EXPECT_EQ(countHandles(), 0U);
}

}  // namespace
