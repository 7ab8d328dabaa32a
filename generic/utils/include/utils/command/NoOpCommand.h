#ifndef GENERIC_UTILS_COMMAND_NOOPCOMMAND_H
#define GENERIC_UTILS_COMMAND_NOOPCOMMAND_H

#include <utils/command/Command.h>
#include <utils/export.h>

namespace utils::command
{

/// A command, named "NoOpCommand", that does nothing and succeeds.
class GENERIC_UTILS_EXPORT NoOpCommand : public Command
{
  public:
    NoOpCommand();
    ~NoOpCommand() override;

    /// @return 0
    int myExecute() override;
};

}  // namespace utils::command

#endif
