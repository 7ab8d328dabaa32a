// What cannot be counted is told on standard error; the rest is counted, and the exit status is 1:
// - paths that do not exist, or lead through files
// - files that cannot be opened or read, folders that cannot be listed
// - pipes, sockets and devices, named or met, which are never opened
// - links that lead nowhere or in circles
// - folders without files
// Links inside folders are not followed; how many there were is told, and is no problem.
// A standard output that cannot be written is a problem, too.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <linux/capability.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <filesystem>

#include "Table.h"
#include "WorkerPoolProgram.h"
#include "support/TemporaryFolder.h"

namespace fs = std::filesystem;
using test::Counts;
using test::runWorkerPool;
using test::Table;
using test::TemporaryFolder;
using testing::HasSubstr;

namespace
{

// Counts one good file beside what is to fail with a message.
void expectProblem(const std::string& path, const std::string& message)
{
    const TemporaryFolder folder;
    const auto result = runWorkerPool({folder.write("good", "a b\n"), path});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.errors, "worker_pool: " + path + ": " + message + "\n");
    EXPECT_EQ(Table(result.output).total, (Counts{1, 2, 4}));
}

// Programs started from here on are refused what file modes refuse, even when root starts them.
void giveUpPrivileges()
{
    prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE, 0, 0, 0);
    prctl(PR_CAPBSET_DROP, CAP_DAC_READ_SEARCH, 0, 0, 0);
}

void makeSocket(const std::string& path)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    ASSERT_LT(path.size(), sizeof(address.sun_path));
    path.copy(address.sun_path, path.size());
    const int descriptor = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    ASSERT_EQ(bind(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
    close(descriptor);
}

}  // namespace

TEST(WorkerPoolProblem, APathThatDoesNotExist)
{
    expectProblem("/nonexistent/file", "No such file or directory");
}

TEST(WorkerPoolProblem, AnEmptyPath)
{
    expectProblem("", "No such file or directory");
}

TEST(WorkerPoolProblem, APathThroughAFile)
{
    const TemporaryFolder folder;
    expectProblem(folder.write("file", "") + "/inside", "Not a directory");
}

TEST(WorkerPoolProblem, ANameThatIsTooLong)
{
    expectProblem("/" + std::string(300, 'x'), "File name too long");
}

TEST(WorkerPoolProblem, AFileThatMustNotBeRead)
{
    giveUpPrivileges();
    const TemporaryFolder folder;
    const std::string path = folder.write("secret", "a\n");
    ASSERT_EQ(chmod(path.c_str(), 0), 0);
    expectProblem(path, "Permission denied");
}

TEST(WorkerPoolProblem, AFileWhoseReadingFails)
{
    expectProblem("/proc/self/mem", "Input/output error");
}

TEST(WorkerPoolProblem, AFolderThatMustNotBeListed)
{
    giveUpPrivileges();
    const TemporaryFolder folder;
    folder.write("closed/file", "a\n");
    folder.write("open/file", "a b\n");
    const std::string closed = folder / "closed";
    ASSERT_EQ(chmod(closed.c_str(), 0), 0);

    const auto result = runWorkerPool({folder.getPath()});

    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.errors, "worker_pool: " + closed + ": Permission denied\n");
    EXPECT_EQ(Table(result.output).total, (Counts{1, 2, 4}));
    chmod(closed.c_str(), 0700);
}

TEST(WorkerPoolProblem, ANamedPipe)
{
    const TemporaryFolder folder;
    const std::string path = folder / "pipe";
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    expectProblem(path, "not a regular file (a named pipe)");
}

TEST(WorkerPoolProblem, APipeInAFolder)
{
    const TemporaryFolder folder;
    const std::string path = folder / "pipe";
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    folder.write("good", "a b\n");

    const auto result = runWorkerPool({folder.getPath()});

    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.errors, "worker_pool: " + path + ": not a regular file (a named pipe)\n");
    EXPECT_EQ(Table(result.output).total, (Counts{1, 2, 4}));
}

TEST(WorkerPoolProblem, ASocket)
{
    const TemporaryFolder folder;
    const std::string path = folder / "socket";
    makeSocket(path);
    expectProblem(path, "not a regular file (a socket)");
}

TEST(WorkerPoolProblem, ADevice)
{
    expectProblem("/dev/zero", "not a regular file (a device)");
}

TEST(WorkerPoolProblem, ALinkThatLeadsNowhere)
{
    const TemporaryFolder folder;
    fs::create_symlink("missing", folder / "link");
    expectProblem(folder / "link", "No such file or directory");
}

TEST(WorkerPoolProblem, ALinkToItself)
{
    const TemporaryFolder folder;
    fs::create_symlink("loop", folder / "loop");
    expectProblem(folder / "loop", "Too many levels of symbolic links");
}

TEST(WorkerPoolProblem, AnEmptyFolder)
{
    const TemporaryFolder folder;
    fs::create_directories(folder / "in/side");
    expectProblem(folder.getPath(), "no files in this folder");
}

TEST(WorkerPoolProblem, NamesInMessagesTakeOneLine)
{
    const auto result = runWorkerPool({"--quiet", "/no\nsuch"});
    EXPECT_EQ(result.errors, "worker_pool: /no\\nsuch: No such file or directory\n");
}

TEST(WorkerPoolProblem, ManyProblemsFitThroughSmallQueues)
{
    const TemporaryFolder folder;
    for (int i = 0; i < 200; ++i)
    {
        fs::create_directory(folder / ("folder" + std::to_string(i)));
        ASSERT_EQ(mkfifo((folder / std::to_string(i)).c_str(), 0600), 0);
    }
    const auto result = runWorkerPool({"--queue-size", "1", folder.getPath()});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(std::count(result.errors.begin(), result.errors.end(), '\n'), 200);
    EXPECT_THAT(result.errors, testing::Not(HasSubstr("ERROR")));
}

TEST(WorkerPoolProblem, AnOutputThatCannotBeWritten)
{
    const TemporaryFolder folder;
    const auto result = test::run({"/bin/sh", "-c", "exec \"$0\" \"$1\" > /dev/full",
                                   WORKER_POOL_PROGRAM, folder.write("file", "a\n")});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.errors, "worker_pool: standard output could not be written.\n");
}

TEST(WorkerPoolLinks, AreFollowedWhenNamed)
{
    const TemporaryFolder folder;
    folder.write("folder/file", "a\n");
    fs::create_symlink("folder", folder / "link");

    const auto result = runWorkerPool({folder / "link", folder / "link/file"});

    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(Table(result.output).total, (Counts{2, 2, 4}));
}

TEST(WorkerPoolLinks, AreNotFollowedInsideFolders)
{
    const TemporaryFolder folder;
    folder.write("in/file", "a\n");
    fs::create_symlink("..", folder / "in/circle");
    fs::create_symlink("file", folder / "in/link");
    fs::create_symlink("missing", folder / "in/nowhere");

    const auto result = runWorkerPool({folder.getPath()});

    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "worker_pool: symbolic links inside folders, not followed: 3\n");
    EXPECT_EQ(Table(result.output).total, (Counts{1, 1, 2}));
}
