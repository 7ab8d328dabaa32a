#ifndef GENERIC_UTILS_COMMAND_MACRO_H
#define GENERIC_UTILS_COMMAND_MACRO_H

#include <string>
#include <vector>

#include <utils/command/Command.h>
#include <utils/export.h>

namespace utils::command
{

/// An ordered list of commands, executed one after the other.
///
/// An execution begins where the last one stopped. It stops when the list ends, when a command
/// fails (unless the macro continues on error), or after a command that asks for it
/// (Command::stopMacro()). After such a request, unless it came from the last command, the macro
/// is suspended: it keeps its position, is not deleted, and may be resumed by any thread. This is
/// how a macro that writes itself to a queue moves on to another task.
///
/// The macro owns its commands. An auto-delete macro deletes itself at the end of every execution
/// that is not suspended; whoever executes it must not use the pointer afterwards.
///
/// Thread safety: as Command.
class GENERIC_UTILS_EXPORT Macro : public Command
{
  public:
    /// @param name for traces; need not be unique
    /// @param continueOnError whether a failing command lets the execution go on
    /// @param autoDelete whether the macro, made with new, deletes itself at its end
    explicit Macro(const std::string& name, bool continueOnError = false, bool autoDelete = false);

    /// Deletes the commands.
    ~Macro() override;

    /// Writes the name, the settings, the position and every command.
    std::ostream& output(std::ostream& os) const override;

    /// Executes commands from the current position on.
    /// @return the status of the last command executed; 0 when there was none
    int myExecute() override;

    /// Resets every command, then begins at the first one again.
    void myReset() override;

    /// Appends a command and takes ownership. Null is reported as error NULL_PTR, and nothing is
    /// added.
    void add(Command* commandPtr);

    /// The number of commands.
    unsigned long size() const { return m_commands.size(); }

    /// The command at an index from 0 on; it stays the macro's. A bad index is reported as error
    /// INVALID_ARGUMENT and yields null.
    Command* getCommandPtr(unsigned long index) const;

    /// Whether the macro deletes itself at its end.
    bool isAutoDelete() const { return m_autoDelete; }

  private:
    bool m_continueOnError;
    bool m_autoDelete;
    std::vector<Command*> m_commands;
    unsigned long m_currentIndex = 0;
};

}  // namespace utils::command

#endif
