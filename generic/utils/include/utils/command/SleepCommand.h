#ifndef GENERIC_UTILS_COMMAND_SLEEPCOMMAND_H
#define GENERIC_UTILS_COMMAND_SLEEPCOMMAND_H

#include <utils/command/Command.h>
#include <utils/export.h>

namespace utils::command
{

/// A command, named "Sleep", that sends the executing thread to sleep.
class GENERIC_UTILS_EXPORT SleepCommand : public Command
{
  public:
    /// @param microseconds handed to the system as it stands (a negative time converted to
    ///        unsigned)
    explicit SleepCommand(int microseconds);
    ~SleepCommand() override;

    /// @return 0, whatever the system reports
    int myExecute() override;

  private:
    int m_microseconds;
};

}  // namespace utils::command

#endif
