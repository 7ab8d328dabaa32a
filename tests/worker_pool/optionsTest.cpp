// The options of the worker pool:
// - --help explains all of them and the exit statuses, on standard output
// - what is typed wrongly is told on standard error, with exit status 2 and without any work
// - --workers takes 1 to 64, --queue-size 1 to 1000000
// - --exclude takes one name at a time and holds inside folders only
// - after -- everything is a path
// - without paths, the project's own source is counted

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Table.h"
#include "WorkerPoolProgram.h"
#include "support/TemporaryFolder.h"

using test::Counts;
using test::runWorkerPool;
using test::Table;
using test::TemporaryFolder;
using testing::HasSubstr;
using testing::Not;

TEST(WorkerPoolOptions, HelpExplainsOptionsAndExitStatuses)
{
    const auto result = runWorkerPool({"--help"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "");
    for (const char* const word :
         {"--workers", "--queue-size", "--trace", "--quiet", "--exclude", "--help",
          "Exit status:\n", "  0    ", "  1    ", "  2    ", "  130  "})
    {
        EXPECT_THAT(result.output, HasSubstr(word));
    }
}

class WorkerPoolBadUsage : public testing::TestWithParam<std::vector<std::string>>
{
};

TEST_P(WorkerPoolBadUsage, IsToldAndEndsWithStatus2)
{
    const auto result = runWorkerPool(GetParam());
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.output, "");
    EXPECT_THAT(result.errors, HasSubstr(GetParam().front()));
    EXPECT_THAT(result.errors, HasSubstr("Run with --help for more information.\n"));
}

INSTANTIATE_TEST_SUITE_P(
    Any, WorkerPoolBadUsage,
    testing::Values(
        std::vector<std::string>{"--bogus"}, std::vector<std::string>{"--workers"},
        std::vector<std::string>{"--workers", "0"}, std::vector<std::string>{"--workers", "65"},
        std::vector<std::string>{"--workers", "-1"}, std::vector<std::string>{"--workers", "many"},
        std::vector<std::string>{"--workers", "2.5"}, std::vector<std::string>{"--workers", ""},
        std::vector<std::string>{"--queue-size", "0"},
        std::vector<std::string>{"--queue-size", "1000001"}, std::vector<std::string>{"--exclude"},
        std::vector<std::string>{"--trace"}, std::vector<std::string>{"--trace", ""},
        std::vector<std::string>{"--trace", "queue"}, std::vector<std::string>{"--trace", "queue="},
        std::vector<std::string>{"--trace", "queue=high"},
        std::vector<std::string>{"--trace", "bogus=1"},
        std::vector<std::string>{"--trace", "queue=1,,task=1"}));

TEST(WorkerPoolOptions, WorkersTakesItsBounds)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("file", "");
    EXPECT_EQ(Table(runWorkerPool({"--workers", "1", path}).output).workers.size(), 1u);
    EXPECT_EQ(Table(runWorkerPool({"--workers", "64", path}).output).workers.size(), 64u);
}

TEST(WorkerPoolOptions, WorkersAre4ByDefault)
{
    const TemporaryFolder folder;
    EXPECT_EQ(Table(runWorkerPool({folder.write("file", "")}).output).workers.size(), 4u);
}

TEST(WorkerPoolOptions, OptionsMayFollowPaths)
{
    const TemporaryFolder folder;
    const auto result = runWorkerPool({folder.write("file", ""), "--workers", "2"});
    EXPECT_EQ(Table(result.output).workers.size(), 2u);
}

TEST(WorkerPoolOptions, ExcludePassesOverNamesInsideFolders)
{
    const TemporaryFolder folder;
    folder.write("counted", "a\n");
    folder.write("build/file", "b\n");
    folder.write("deep/build", "c\n");
    folder.write("[x]", "d\n");

    const auto result = runWorkerPool({"--exclude", "build", "--exclude", "[x]", folder.getPath()});

    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(Table(result.output).total, (Counts{1, 1, 2}));
}

TEST(WorkerPoolOptions, ExcludeDoesNotHoldForWhatIsNamed)
{
    const TemporaryFolder folder;
    const auto result = runWorkerPool({"--exclude", "file", folder.write("file", "a\n")});
    EXPECT_EQ(Table(result.output).total, (Counts{1, 1, 2}));
}

TEST(WorkerPoolOptions, AfterTwoDashesEverythingIsAPath)
{
    const auto result = runWorkerPool({"--quiet", "--", "--bogus"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.errors, "worker_pool: --bogus: No such file or directory\n");
}

TEST(WorkerPoolOptions, WithoutPathsTheSourceOfTheProjectIsCounted)
{
    const auto result = runWorkerPool({});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.output, HasSubstr(PROJECT_FOLDER "/CMakeLists.txt "));
    EXPECT_THAT(result.output, HasSubstr(PROJECT_FOLDER "/generic/utils/CMakeLists.txt "));
    EXPECT_THAT(result.output, Not(HasSubstr("/.git/")));
}
