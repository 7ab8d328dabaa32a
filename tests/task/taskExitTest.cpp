// How a process ends while its tasks run. Each program tells by its exit status that it got
// through; a crash, a hang or a sanitizer's report gives another one.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>

#include "support/ConfigDirectory.h"

namespace
{

// Runs a program of the build folder, its standard error dropped. Returns its exit status, or -1
// when it did not exit.
int runProgram(const std::string& name)
{
    const std::string path = std::string(PROGRAM_FOLDER "/") + name;
    char* const arguments[] = {const_cast<char*>(path.c_str()), nullptr};

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t process = 0;
    const int error = posix_spawn(&process, path.c_str(), &actions, nullptr, arguments, environ);
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0)
    {
        return -1;
    }

    int status = 0;
    waitpid(process, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(TaskExit, ReturningFromMainWhileTasksRun)
{
    const test::ConfigDirectory configuration;
    for (int i = 0; i < 2; ++i)
    {
        EXPECT_EQ(runProgram("exitWithRunningTasks"), 5);
    }
}

TEST(TaskExit, StaticTasksAreDestroyedByExitWithTheirWorkDone)
{
    const test::ConfigDirectory configuration;
    EXPECT_EQ(runProgram("exitWithStaticTasks"), 6);
}

TEST(TaskExit, ExitFromATasksOwnThread)
{
    const test::ConfigDirectory configuration;
    EXPECT_EQ(runProgram("exitFromTask"), 8);
}

// The misuse decides on the status, although the process was about to end with another.
TEST(TaskExit, FatalMisuseByATaskWhileTheProcessEndsByItself)
{
    const test::ConfigDirectory configuration;
    EXPECT_EQ(runProgram("fatalMisuseDuringExit"), 1);
}

}  // namespace
