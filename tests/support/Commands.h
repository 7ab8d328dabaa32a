#ifndef TESTS_SUPPORT_COMMANDS_H
#define TESTS_SUPPORT_COMMANDS_H

#include <atomic>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include <utils/command/Macro.h>

namespace test
{

/// What commands did, in order: "run a", "reset a", "delete a".
using Journal = std::vector<std::string>;

/// A command that writes what happens to it into a journal.
class JournalCommand : public utils::command::Command
{
  public:
    JournalCommand(const std::string& name, Journal& journal, int status = 0, bool stops = false)
        : Command(name), m_journal(journal), m_status(status), m_stops(stops)
    {
    }
    ~JournalCommand() override { m_journal.push_back("delete " + getName()); }

    bool stopMacro() const override { return m_stops; }
    int myExecute() override
    {
        m_journal.push_back("run " + getName());
        return m_status;
    }
    void myReset() override { m_journal.push_back("reset " + getName()); }

  private:
    Journal& m_journal;
    int m_status;
    bool m_stops;
};

/// A command that does what a function says.
class FunctionCommand : public utils::command::Command
{
  public:
    FunctionCommand(const std::string& name, std::function<int()> function)
        : Command(name), m_function(std::move(function))
    {
    }
    int myExecute() override { return m_function(); }

  private:
    std::function<int()> m_function;
};

/// A macro whose destructions are counted.
class CountedMacro : public utils::command::Macro
{
  public:
    CountedMacro(const std::string& name, std::atomic<int>& numDeleted, bool autoDelete)
        : Macro(name, false, autoDelete), m_numDeleted(numDeleted)
    {
    }
    ~CountedMacro() override { ++m_numDeleted; }

  private:
    std::atomic<int>& m_numDeleted;
};

/// An auto-delete macro of one command that does what a function says.
inline utils::command::Macro* makeMacro(std::function<void()> function)
{
    auto* const macro = new utils::command::Macro("macro", false, true);
    macro->add(new FunctionCommand("function",
                                   [function = std::move(function)]
                                   {
                                       function();
                                       return 0;
                                   }));
    return macro;
}

}  // namespace test

#endif
