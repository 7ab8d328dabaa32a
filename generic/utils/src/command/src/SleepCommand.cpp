#include <utils/command/SleepCommand.h>

#include <unistd.h>

namespace utils::command
{

SleepCommand::SleepCommand(int microseconds) : Command("Sleep"), m_microseconds(microseconds) {}

SleepCommand::~SleepCommand() = default;

int SleepCommand::myExecute()
{
    usleep(static_cast<useconds_t>(m_microseconds));
    return 0;
}

}  // namespace utils::command
