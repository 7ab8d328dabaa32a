#ifndef TESTS_SUPPORT_SELFDELETINGTASK_H
#define TESTS_SUPPORT_SELFDELETINGTASK_H

#include <latch>
#include <string>

#include <utils/task/Task.h>

namespace test
{

/// Counts a latch down when it is destroyed. As the first base of a task it tells that nothing of
/// the task is left.
class DestructionSignal
{
  public:
    explicit DestructionSignal(std::latch& isDestroyed) : m_isDestroyed(isDestroyed) {}
    ~DestructionSignal() { m_isDestroyed.count_down(); }

    DestructionSignal(const DestructionSignal&) = delete;
    DestructionSignal& operator=(const DestructionSignal&) = delete;

  private:
    std::latch& m_isDestroyed;
};

/// A task as it stands, to be started with deleteWhenFinished.
class SelfDeletingTask : private DestructionSignal, public utils::task::Task
{
  public:
    SelfDeletingTask(const std::string& name, std::latch& isDestroyed,
                     unsigned long maxEventQueueSize = 5)
        : DestructionSignal(isDestroyed), Task(name, nullptr, maxEventQueueSize)
    {
    }
    ~SelfDeletingTask() override { cleanUp(); }
};

/// The same with a run that returns at once.
class FleetingTask : public SelfDeletingTask
{
  public:
    using SelfDeletingTask::SelfDeletingTask;
    ~FleetingTask() override { cleanUp(); }
    int run(void*) override { return 0; }
};

}  // namespace test

#endif
