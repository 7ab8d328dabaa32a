#ifndef TESTS_GS_ACTORS_H
#define TESTS_GS_ACTORS_H

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include <utils/gsObserver.h>
#include <utils/gsSubject.h>

namespace test
{

/// An observer with a name of its own that does what the test says when it is updated.
class Observer : public utils::Gs_Observer
{
  public:
    using Action = std::function<void()>;

    explicit Observer(std::string name, Action action = {})
        : m_name(std::move(name)), m_action(std::move(action))
    {
    }

    void update() override
    {
        ++m_numUpdates;
        act();
    }

    /// Another function to be attached.
    void react()
    {
        ++m_numReactions;
        act();
    }

    const std::string& getName() const override { return m_name; }

    int m_numUpdates = 0;
    int m_numReactions = 0;

  private:
    void act() const
    {
        // A copy, since the action may destroy this observer.
        if (const Action action = m_action)
        {
            action();
        }
    }

    std::string m_name;
    Action m_action;
};

/// A subject with a name of its own.
class Subject : public utils::Gs_Subject
{
  public:
    explicit Subject(std::string name) : m_name(std::move(name)) {}

    const std::string& getName() const override { return m_name; }

  private:
    std::string m_name;
};

}  // namespace test

#endif
