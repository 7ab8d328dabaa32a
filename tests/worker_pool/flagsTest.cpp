// The flags file of the worker pool, and its option --trace:
// - the shipped file gives every flag of the library its default
// - without --trace the shipped file is used, and nothing is traced or missing
// - the folder that GENERIC_CONFIG_DIR names goes before the shipped file
// - --trace sets levels on top of either, and leaves nothing behind
// - a temporary folder that cannot be made is told

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdlib.h>

#include <map>

#include <utils/command/Flags.h>
#include <utils/flag/Flag.h>
#include <utils/flag/Flags.h>
#include <utils/flag/InitialValues.h>
#include <utils/flagFlagBase.h>
#include <utils/flagFlags.h>
#include <utils/gsFlags.h>
#include <utils/logexp/Flags.h>
#include <utils/observer/Flags.h>
#include <utils/queue/Flags.h>
#include <utils/scpi/Flags.h>
#include <utils/singleton/SingletonT.h>
#include <utils/stdSingleton.h>
#include <utils/task/Flags.h>
#include <utils/xml/Flags.h>

#include "WorkerPoolProgram.h"
#include "support/TemporaryFolder.h"

using test::runWorkerPool;
using test::TemporaryFolder;
using testing::HasSubstr;
using testing::Not;
using utils::singleton::SingletonT;

namespace
{

constexpr const char* SHIPPED_FOLDER = PROJECT_FOLDER "/examples/worker_pool";

template <typename Registry>
void collect(const Registry& registry, std::map<std::string, std::string>& values)
{
    for (const auto& [name, flag] : registry)
    {
        values[name] = flag->getValueStr();
    }
}

// All flags of the library by name, with their values.
std::map<std::string, std::string> allFlags()
{
    namespace flag = utils::flag;

    SingletonT<flag::Flags>::getInstancePtr();
    SingletonT<utils::command::Flags>::getInstancePtr();
    SingletonT<utils::logexp::Flags>::getInstancePtr();
    SingletonT<utils::observer::Flags>::getInstancePtr();
    SingletonT<utils::queue::Flags>::getInstancePtr();
    SingletonT<utils::scpi::Flags>::getInstancePtr();
    SingletonT<utils::task::Flags>::getInstancePtr();
    SingletonT<utils::xml::Flags>::getInstancePtr();
    utils::Std_Singleton<flag::Flag_Flags>::getInstancePtr();
    utils::Std_Singleton<flag::Gs_Flags>::getInstancePtr();

    std::map<std::string, std::string> values;
    collect(*SingletonT<std::map<std::string, flag::Flag*>>::getInstancePtr(), values);
    collect(*utils::Std_Singleton<std::map<std::string, flag::Flag_FlagBase*>>::getInstancePtr(),
            values);
    return values;
}

}  // namespace

TEST(WorkerPoolFlagsFile, HoldsTheDefaultOfEveryFlag)
{
    const TemporaryFolder folder;
    folder.write("generic_flags.txt", "# nothing\n");
    setenv("GENERIC_CONFIG_DIR", folder.getPath().c_str(), 1);
    const std::map<std::string, std::string> defaults = allFlags();
    ASSERT_GE(defaults.size(), 40u);

    setenv("GENERIC_CONFIG_DIR", SHIPPED_FOLDER, 1);
    auto* const shipped = SingletonT<utils::flag::InitialValues>::getInstancePtr();
    shipped->redoInitialValuesCollection();

    for (const auto& [name, value] : defaults)
    {
        std::string inFile;
        EXPECT_TRUE(shipped->getInitialValue(name, inFile)) << name;
        EXPECT_EQ(inFile, value) << name;
    }
}

TEST(WorkerPoolFlags, AreQuietWithTheShippedFile)
{
    const TemporaryFolder folder;
    const auto result = runWorkerPool({folder.write("file", "")});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "");
}

TEST(WorkerPoolFlags, StartFromTheFolderInTheEnvironment)
{
    const TemporaryFolder folder;
    folder.write("generic_flags.txt", "utils::task::m_traceSteps\n1\n");

    const auto result = runWorkerPool({folder.write("file", "")},
                                      {.environment = {{"GENERIC_CONFIG_DIR", folder.getPath()}}});

    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.errors, HasSubstr(": Creating task 'worker-01'.\n"));
    EXPECT_THAT(result.errors, Not(HasSubstr("queue 'jobs'.\n")));
}

TEST(WorkerPoolTrace, ShowsTheWayOfAMacro)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("file", "");

    const auto result = runWorkerPool({"--workers", "1", "--trace", "queue=1,command=2", path});

    EXPECT_EQ(result.status, 0);
    const std::string macro = "'count " + path + "'";
    std::size_t position = 0;
    for (const std::string& step :
         {"Writing macro " + macro + " to queue 'jobs'.",
          "Forwarding macro " + macro +
              " written to queue 'jobs' to queue 'worker-01-TaskEventQueue'.",
          std::string("Executing command 'CountFile'."),
          "Writing macro " + macro + " to queue 'reporter-TaskEventQueue' - wait = -1.",
          std::string("Executing command 'PrintCount'."), "Destroying command " + macro + "."})
    {
        position = result.errors.find(step, position);
        ASSERT_NE(position, std::string::npos) << step << "\nin\n" << result.errors;
    }
    EXPECT_THAT(result.errors, HasSubstr("Stopping execution of macro command " + macro +
                                         " as specified by command 'WriteCommand'."));
    EXPECT_THAT(result.errors, Not(HasSubstr("Creating task")));
}

TEST(WorkerPoolTrace, ShowsFullHeadersWhenAsked)
{
    const TemporaryFolder folder;
    const auto result = runWorkerPool({"--trace", "task=1,headers=0", folder.write("file", "")});
    EXPECT_THAT(result.errors,
                HasSubstr("!TRACE (utils::task::m_traceSteps = 1; trace level = 1) by "));
}

TEST(WorkerPoolTrace, GoesOnTopOfTheFolderInTheEnvironment)
{
    const TemporaryFolder folder;
    // No line end after the last value.
    folder.write("generic_flags.txt",
                 "utils::queue::m_traceSteps\n1\nutils::task::m_traceSteps\n1");

    const auto result = runWorkerPool({"--trace", "task=0", folder.write("file", "")},
                                      {.environment = {{"GENERIC_CONFIG_DIR", folder.getPath()}}});

    EXPECT_THAT(result.errors, HasSubstr("Creating queue 'jobs'"));
    EXPECT_THAT(result.errors, Not(HasSubstr("Creating task")));
}

TEST(WorkerPoolTrace, LeavesNothingBehind)
{
    const TemporaryFolder folder;
    const TemporaryFolder temporary;

    const auto result = runWorkerPool({"--trace", "task=1", folder.write("file", "")},
                                      {.environment = {{"TMPDIR", temporary.getPath()}}});

    EXPECT_THAT(result.errors, HasSubstr("Creating task 'reporter'."));
    EXPECT_TRUE(temporary.isEmpty());
}

TEST(WorkerPoolTrace, TellsThatItsFileCannotBeWritten)
{
    const auto result = runWorkerPool({"--trace", "task=1", "/dev/null"},
                                      {.environment = {{"TMPDIR", "/proc/self"}}});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.errors, testing::StartsWith("worker_pool: /proc/self/worker_pool."));
    EXPECT_EQ(result.output, "");
}
