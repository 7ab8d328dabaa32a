#ifndef TESTS_OBSERVER_NOTIFIERS_H
#define TESTS_OBSERVER_NOTIFIERS_H

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include <utils/observer/Notifier.h>

namespace test
{

/// A notifier that writes its name into a journal.
class JournalNotifier : public utils::observer::Notifier
{
  public:
    JournalNotifier(std::string name, std::vector<std::string>& journal)
        : m_name(std::move(name)), m_journal(journal)
    {
    }
    void notify(void*) override { m_journal.push_back(m_name); }

  private:
    std::string m_name;
    std::vector<std::string>& m_journal;
};

/// A notifier that does what a function says.
class FunctionNotifier : public utils::observer::Notifier
{
  public:
    explicit FunctionNotifier(std::function<void(void*)> function) : m_function(std::move(function))
    {
    }
    void notify(void* data) override { m_function(data); }

  private:
    std::function<void(void*)> m_function;
};

}  // namespace test

#endif
