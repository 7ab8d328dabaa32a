// What the worker pool prints of its work:
// - a heading, a line for each file, the total, a line for each worker, the speed
// - the lines of the files and those of the workers each add up to the total
// - file names take one line, whatever is in them
// - with --quiet only the sums
// - a line of progress only when standard error is a terminal, and never beside traces

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
using testing::MatchesRegex;
using testing::Not;
using testing::StartsWith;

namespace
{

void fill(const TemporaryFolder& folder, int numFiles)
{
    for (int i = 0; i < numFiles; ++i)
    {
        folder.write(std::to_string(i), std::string(static_cast<std::size_t>(i), '\n') + "word");
    }
}

}  // namespace

TEST(WorkerPoolTable, HasAHeadingFilesTotalsWorkersAndSpeed)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("file", "one two\n");

    const auto result = runWorkerPool({"--workers", "1", path});

    std::string padded = path;
    padded.resize(std::max<std::size_t>(padded.size(), 48), ' ');
    EXPECT_THAT(result.output, StartsWith("     lines      words      bytes  file"
                                          "                                              worker\n"
                                          "         1          2          8  " +
                                          padded +
                                          "  worker-01\n"
                                          "         1          2          8  total of 1 file\n"
                                          "         1          2          8  worker-01, 1 file\n"));
    const std::string speed =
        result.output.substr(result.output.rfind('\n', result.output.size() - 2) + 1);
    EXPECT_THAT(speed, MatchesRegex("[0-9]+\\.[0-9]+ s: [0-9]+\\.[0-9] MB/s, [0-9]+ files/s\n"));
    EXPECT_EQ(result.errors, "");
}

TEST(WorkerPoolTable, AddsUp)
{
    const TemporaryFolder folder;
    fill(folder, 100);

    const Table table(runWorkerPool({folder.getPath()}).output);

    Counts ofFiles;
    for (const auto& [file, counts] : table.files)
    {
        ofFiles += counts;
    }
    Counts ofWorkers;
    std::uint64_t filesOfWorkers = 0;
    for (const auto& [worker, counts] : table.workers)
    {
        ofWorkers += counts;
        filesOfWorkers += table.filesOfWorkers.at(worker);
    }
    EXPECT_EQ(table.files.size(), 100u);
    EXPECT_EQ(table.numFiles, 100u);
    EXPECT_EQ(filesOfWorkers, 100u);
    EXPECT_EQ(table.total, (Counts{4950, 100, 5350}));
    EXPECT_EQ(ofFiles, table.total);
    EXPECT_EQ(ofWorkers, table.total);
}

TEST(WorkerPoolTable, ListsWorkersThatHadNothingToDo)
{
    const TemporaryFolder folder;
    const Table table(runWorkerPool({"--workers", "64", folder.write("file", "")}).output);
    EXPECT_EQ(table.workers.size(), 64u);
    EXPECT_EQ(table.workers.begin()->first, "worker-01");
    EXPECT_EQ(table.workers.rbegin()->first, "worker-64");
}

TEST(WorkerPoolTable, PrintsEachNameOnOneLine)
{
    const TemporaryFolder folder;
    folder.write("new\nline tab\tescape\x1b[2J\x7f back\\slash", "");

    const auto result = runWorkerPool({folder.getPath()});

    EXPECT_THAT(result.output, HasSubstr("new\\nline tab\\tescape\\033[2J\\177 back\\\\slash"));
}

TEST(WorkerPoolTable, IsOnlySumsWhenQuiet)
{
    const TemporaryFolder folder;
    const auto result = runWorkerPool({"--quiet", "--workers", "1", folder.write("file", "a\n")});
    EXPECT_THAT(result.output, StartsWith("         1          1          2  total of 1 file\n"
                                          "         1          1          2  worker-01, 1 file\n"));
}

TEST(WorkerPoolProgress, IsShownOnATerminal)
{
    const TemporaryFolder folder;
    fill(folder, 3);
    const auto result = runWorkerPool({folder.getPath()}, {.hasTerminal = true});
    EXPECT_THAT(result.errors, HasSubstr("\r\033[K3 files, 0.0 MB"));
    EXPECT_THAT(result.errors, testing::EndsWith("\r\033[K"));
}

TEST(WorkerPoolProgress, IsNotShownWithoutATerminal)
{
    const TemporaryFolder folder;
    fill(folder, 3);
    EXPECT_EQ(runWorkerPool({folder.getPath()}).errors, "");
}

TEST(WorkerPoolProgress, IsNotShownBesideTraces)
{
    const TemporaryFolder folder;
    const auto result =
        runWorkerPool({"--trace", "task=1", folder.write("file", "")}, {.hasTerminal = true});
    EXPECT_THAT(result.errors, HasSubstr("Creating task 'reporter'."));
    EXPECT_THAT(result.errors, Not(HasSubstr("\033[K")));
}
