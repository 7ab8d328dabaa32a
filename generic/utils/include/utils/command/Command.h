#ifndef GENERIC_UTILS_COMMAND_COMMAND_H
#define GENERIC_UTILS_COMMAND_COMMAND_H

#include <iosfwd>
#include <string>

#include <utils/export.h>

namespace utils::command
{

/// A named unit of work with a status.
///
/// Derive from it and fill in myExecute(); commands are grouped into macros, and macros travel
/// through queues to tasks, which execute them.
///
///     class Beep : public utils::command::Command
///     {
///       public:
///         Beep() : Command("Beep") {}
///         int myExecute() override { return beep() ? 0 : 1; }
///     };
///
/// Thread safety: a command is used by one thread at a time; handing it over through a queue is
/// enough.
class GENERIC_UTILS_EXPORT Command
{
  public:
    /// @param name for traces; need not be unique
    explicit Command(const std::string& name);

    virtual ~Command() = 0;

    /// Whether the macro that runs this command stops after it, to be resumed later. Asked before
    /// the command is executed. The base answers false.
    virtual bool stopMacro() const;

    /// Writes what there is to know, a line each; the base writes the name.
    /// @return `os`
    virtual std::ostream& output(std::ostream& os) const;

    /// The work itself, called by execute(). May destroy the command.
    /// @return 0 on success, anything else on failure
    virtual int myExecute() = 0;

    /// Returns the command to its initial state, called by reset(). The base does nothing.
    virtual void myReset();

    Command(const Command&) = delete;
    Command& operator=(const Command&) = delete;

    /// The name, as given to the constructor.
    const std::string& getName() const { return m_name; }

    /// Does the work. The command may be gone afterwards, if it destroys itself.
    /// @return the status of myExecute()
    int execute();

    /// Returns the command to its initial state.
    void reset();

  private:
    std::string m_name;
};

/// Writes the command through its virtual output().
GENERIC_UTILS_EXPORT std::ostream& operator<<(std::ostream& os, const Command& command);

}  // namespace utils::command

#endif
