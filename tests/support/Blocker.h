#ifndef TESTS_SUPPORT_BLOCKER_H
#define TESTS_SUPPORT_BLOCKER_H

#include <latch>

#include "support/Commands.h"

namespace test
{

/// Keeps a task busy until it is opened.
class Blocker
{
  public:
    /// An auto-delete macro that holds the thread that executes it. Made once.
    utils::command::Macro* makeMacro()
    {
        return test::makeMacro(
            [this]
            {
                m_entered.count_down();
                m_open.wait();
            });
    }

    /// Returns when a thread is held.
    void waitUntilEntered() { m_entered.wait(); }

    /// Lets the thread go on. Called once.
    void open() { m_open.count_down(); }

  private:
    std::latch m_entered{1};
    std::latch m_open{1};
};

}  // namespace test

#endif
