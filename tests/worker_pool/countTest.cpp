// The worker pool counts as wc does in the C locale:
// - lines are newline bytes, bytes are bytes; a file may be empty or end without a newline
// - words are runs of printable characters between white space (blank, tab, newline, vertical tab,
//   form feed, carriage return); other bytes neither begin nor end a word
// - files of several blocks are counted across the blocks' borders, in little memory
// - names with blanks and newlines, hidden files and folders in folders are no exception
// - the totals of a real tree are those of wc, for any number of workers and size of queues

#include <gtest/gtest.h>
#include <unistd.h>

#include <random>
#include <sstream>

#include "Table.h"
#include "WorkerPoolProgram.h"
#include "support/TemporaryFolder.h"

using test::Counts;
using test::runWorkerPool;
using test::Table;
using test::TemporaryFolder;

namespace
{

Counts count(const std::string& contents)
{
    const TemporaryFolder folder;
    const auto result = runWorkerPool({"--quiet", folder.write("file", contents)});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "");
    return Table(result.output).total;
}

// What wc says of all regular files in some folders, or of single files.
Counts countByWc(const std::string& paths)
{
    const std::string command =
        "find " + paths + " -type f -print0 | wc --files0-from=- | tail -n 1";
    const auto result = test::run({"/bin/sh", "-c", command}, {.environment = {{"LC_ALL", "C"}}});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "");
    Counts counts;
    std::istringstream(result.output) >> counts.lines >> counts.words >> counts.bytes;
    return counts;
}

// Reproducible; every kind of byte, white space often.
std::string makeNoise(std::size_t size, unsigned seed)
{
    static const std::string OFTEN = " \t\n\v\f\rabcxyz";
    std::mt19937 random(seed);
    std::string noise;
    noise.reserve(size);
    while (noise.size() < size)
    {
        const auto number = random();
        noise +=
            number % 4 == 0 ? static_cast<char>(number >> 8) : OFTEN[(number >> 8) % OFTEN.size()];
    }
    return noise;
}

}  // namespace

TEST(WorkerPoolCount, CountsLinesWordsAndBytes)
{
    EXPECT_EQ(count("one two\nthree\n"), (Counts{2, 3, 14}));
}

TEST(WorkerPoolCount, CountsAnEmptyFile)
{
    EXPECT_EQ(count(""), (Counts{0, 0, 0}));
}

TEST(WorkerPoolCount, CountsTheWordsButNotTheLineOfAnEndWithoutNewline)
{
    EXPECT_EQ(count("one\ntwo three"), (Counts{1, 3, 13}));
}

TEST(WorkerPoolCount, CountsLineFeedsOfCrLf)
{
    EXPECT_EQ(count("one\r\ntwo\r\n"), (Counts{2, 2, 10}));
}

TEST(WorkerPoolCount, CountsACarriageReturnAloneAsWhiteSpace)
{
    EXPECT_EQ(count("one\rtwo"), (Counts{0, 2, 7}));
}

TEST(WorkerPoolCount, SeparatesWordsByAnyWhiteSpace)
{
    EXPECT_EQ(count("a b\tc\vd\fe\rf\ng"), (Counts{1, 7, 13}));
}

TEST(WorkerPoolCount, CountsNoWordsInWhiteSpace)
{
    EXPECT_EQ(count(" \t\v\f\r\n"), (Counts{1, 0, 6}));
}

TEST(WorkerPoolCount, DoesNotTakeUnprintableBytesForWords)
{
    EXPECT_EQ(count(std::string("\x01 \xff \x7f \0 ", 8)), (Counts{0, 0, 8}));
}

TEST(WorkerPoolCount, DoesNotEndAWordAtAnUnprintableByte)
{
    EXPECT_EQ(count(std::string("one\0more \x80two", 13)), (Counts{0, 2, 13}));
}

TEST(WorkerPoolCount, CountsTheFirstAndLastPrintableCharacter)
{
    EXPECT_EQ(count("! ~"), (Counts{0, 2, 3}));
}

TEST(WorkerPoolCount, CountsAWordAcrossBlocksOnce)
{
    EXPECT_EQ(count(std::string(200'000, 'x')), (Counts{0, 1, 200'000}));
}

TEST(WorkerPoolCount, CountsAsWcDoesInFilesOfManyBlocks)
{
    const TemporaryFolder folder;
    folder.write("noise", makeNoise(5'000'000, 1));
    folder.write("more noise", makeNoise(4'194'304, 2));

    const auto result = runWorkerPool({folder.getPath()});

    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(Table(result.output).total, countByWc(folder.getPath()));
}

TEST(WorkerPoolCount, CountsABigFileInLittleMemory)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("zeros", "");
    constexpr long SIZE = 96L * 1024 * 1024;
    ASSERT_EQ(truncate(path.c_str(), SIZE), 0);

    const auto result = runWorkerPool({"--quiet", path});

    EXPECT_EQ(Table(result.output).total, (Counts{0, 0, SIZE}));
    EXPECT_LT(result.maxResidentKilobytes, 64 * 1024);
}

TEST(WorkerPoolCount, CountsFilesWithUnusualNamesInFolders)
{
    const TemporaryFolder folder;
    folder.write("with blanks", "a\n");
    folder.write("with\nnewline", "b c\n");
    folder.write("-x", "d\n");
    folder.write(".hidden/.file", "e\n");
    folder.write("\xff\xfe", "f\n");
    folder.write("quoted'\"$`", "g\n");

    const auto result = runWorkerPool({folder.getPath()});

    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(Table(result.output).total, (Counts{6, 7, 14}));
}

TEST(WorkerPoolCount, CountsFilesWithUnusualNamesOnTheCommandLine)
{
    const TemporaryFolder folder;
    const auto result =
        runWorkerPool({folder.write("[a,b]", "a\n"), folder.write("{}", "b\n"),
                       folder.write("with\nnewline", "c\n"), folder.write("with blanks", "d\n")});

    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(Table(result.output).total, (Counts{4, 4, 8}));
}

TEST(WorkerPoolCount, CountsAFileAsOftenAsItIsNamed)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("file", "a b\n");
    const auto result = runWorkerPool({path, path, path});
    EXPECT_EQ(Table(result.output).total, (Counts{3, 6, 12}));
}

class WorkerPoolRealTree : public testing::TestWithParam<std::vector<std::string>>
{
};

TEST_P(WorkerPoolRealTree, HasTheTotalsOfWc)
{
    const std::string sources = PROJECT_FOLDER "/generic";
    const std::string docs = PROJECT_FOLDER "/docs";
    const std::string program = WORKER_POOL_PROGRAM;

    std::vector<std::string> arguments = GetParam();
    arguments.insert(arguments.end(), {sources, docs, program});
    const auto result = runWorkerPool(arguments);

    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(Table(result.output).total,
              countByWc("'" + sources + "' '" + docs + "' '" + program + "'"));
}

INSTANTIATE_TEST_SUITE_P(
    AnyNumberOfWorkersAndSizeOfQueues, WorkerPoolRealTree,
    testing::Values(std::vector<std::string>{}, std::vector<std::string>{"--workers", "1"},
                    std::vector<std::string>{"--workers", "1", "--queue-size", "1"},
                    std::vector<std::string>{"--workers", "64", "--queue-size", "1"},
                    std::vector<std::string>{"--workers", "3", "--queue-size", "1000000"}));
