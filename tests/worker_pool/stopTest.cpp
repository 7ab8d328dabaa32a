// Ctrl-C (SIGINT) and SIGTERM:
// - end the worker pool in order, with the sums of what was counted so far and a message that says
//   how many files were not, while all queues are full and everybody waits
// - give the exit status 128 + the signal's number
// - end it at once the second time
// - do nothing when the program was started to ignore them

#include <gtest/gtest.h>
#include <signal.h>

#include <algorithm>
#include <sstream>

#include "Table.h"
#include "WorkerPoolProgram.h"
#include "support/TemporaryFolder.h"

using test::Counts;
using test::Program;
using test::Table;
using test::TemporaryFolder;

namespace
{

// More than what fits into the queues and the pipe of the output: the program waits for the test.
constexpr std::uint64_t NUM_FILES = 1500;

// Makes files that the program prints equally long rows for.
// @return the length of a row
std::size_t fill(const TemporaryFolder& folder)
{
    std::string path;
    for (std::uint64_t i = 0; i < NUM_FILES; ++i)
    {
        path = folder.write(std::to_string(10'000 + i), "one line\n");
    }
    constexpr std::size_t NUMBERS = 34;
    constexpr std::size_t NAME = 48;
    return NUMBERS + std::max(NAME, path.size()) + std::string("  worker-01\n").size();
}

// How many files the message says were not counted; the test fails when it says anything else.
std::uint64_t numNotCounted(const std::string& errors, const std::string& beginning)
{
    std::uint64_t number = 0;
    if (errors.compare(0, beginning.size(), beginning) == 0)
    {
        std::istringstream(errors.substr(beginning.size())) >> number;
    }
    EXPECT_EQ(errors, beginning + std::to_string(number) +
                          " of the files found so far were not counted.\n");
    return number;
}

// Stops the program in the middle of its work.
void expectOrderlyEnd(int signal, int status, const std::string& message)
{
    const TemporaryFolder folder;
    const std::size_t rowSize = fill(folder);
    Program program(test::workerPool({folder.getPath()}));
    program.waitUntilOutputIsFull(rowSize);

    program.sendSignal(signal);
    program.waitUntilNoLongerCaught(signal);
    const Program::Result result = program.finish();

    EXPECT_EQ(result.status, status);
    const Table table(result.output);
    EXPECT_GE(table.numFiles, 1u);
    EXPECT_LT(table.numFiles, NUM_FILES);
    EXPECT_EQ(table.files.size(), table.numFiles);
    EXPECT_EQ(table.total, (Counts{table.numFiles, 2 * table.numFiles, 9 * table.numFiles}));
    const std::uint64_t lost = numNotCounted(result.errors, message);
    EXPECT_GE(lost, 1u);
    EXPECT_LE(table.numFiles + lost, NUM_FILES);
}

}  // namespace

TEST(WorkerPoolStop, CtrlCEndsInOrder)
{
    expectOrderlyEnd(SIGINT, 130, "worker_pool: stopped by signal 2 (Interrupt); ");
}

TEST(WorkerPoolStop, SigtermEndsInOrder)
{
    expectOrderlyEnd(SIGTERM, 143, "worker_pool: stopped by signal 15 (Terminated); ");
}

TEST(WorkerPoolStop, ASecondCtrlCEndsAtOnce)
{
    const TemporaryFolder folder;
    const std::size_t rowSize = fill(folder);
    Program program(test::workerPool({folder.getPath()}));
    program.waitUntilOutputIsFull(rowSize);

    program.sendSignal(SIGINT);
    program.waitUntilNoLongerCaught(SIGINT);
    program.sendSignal(SIGINT);

    const Program::Result result = program.finish();
    EXPECT_EQ(result.signal, SIGINT);
    EXPECT_EQ(result.errors, "");
}

TEST(WorkerPoolStop, AnIgnoredCtrlCStaysIgnored)
{
    const TemporaryFolder folder;
    const std::size_t rowSize = fill(folder);
    Program program(test::workerPool({folder.getPath()}), {.ignoresInterrupts = true});
    program.waitUntilOutputIsFull(rowSize);

    program.sendSignal(SIGINT);

    const Program::Result result = program.finish();
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(Table(result.output).numFiles, NUM_FILES);
}
