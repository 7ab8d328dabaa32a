// The front panel example:
//
// - the session that it runs without arguments: the panel, and the traces of the shipped flags file
// - commands of one's own; what is no command is reported and fails
// - other flags files: nothing traced, ticks traced, updates printed
// - every name in the shipped file is that of a flag

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <regex>
#include <string>
#include <vector>

#include <utils/flagFlags.h>
#include <utils/gsFlags.h>
#include <utils/stdSingleton.h>

#include "support/ConfigDirectory.h"
#include "support/Program.h"

using namespace std::string_literals;
using test::Program;

namespace
{

// Runs the panel with a flags file of its own.
Program::Result runPanel(std::vector<std::string> commands, const test::ConfigDirectory& config)
{
    commands.insert(commands.begin(), LEGACY_PANEL_PROGRAM);
    return test::run(std::move(commands), {.environment = {{"GENERIC_CONFIG_DIR", config.getPath()},
                                                           {"USER", "marie"}}});
}

// Runs the panel with the flags file that comes with it.
Program::Result runShippedPanel(std::vector<std::string> commands)
{
    commands.insert(commands.begin(), LEGACY_PANEL_PROGRAM);
    return test::run(std::move(commands), {.environment = {{"USER", "marie"}}});
}

std::string withoutTimes(const std::string& text)
{
    static const std::regex time(
        "[A-Z][a-z]{2} [A-Z][a-z]{2} [ 0-9][0-9] [0-9]{2}:[0-9]{2}:[0-9]{2} [0-9]{4}");
    return std::regex_replace(text, time, "TIME");
}

}  // namespace

TEST(LegacyPanel, RunsASession)
{
    const Program::Result result = runShippedPanel({});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output,
              "> on\n"
              "[ 10000 kHz |  -81 dBm | searching  ]\n"
              "> tune=10300\n"
              "[ 10300 kHz |  -51 dBm | measuring  ]\n"
              "> tune=10450\n"
              "[ 10450 kHz |  -36 dBm | measuring  ]\n"
              "> level=20\n"
              "[ 10450 kHz |   14 dBm | overloaded ]\n"
              "> tick\n"
              "[ 10450 kHz |   14 dBm | overloaded ]\n"
              "> tick\n"
              "[ 10450 kHz |   14 dBm | overloaded ]\n"
              "> tick\n"
              "[ 10450 kHz |   -6 dBm | measuring  ]\n"
              "> off\n"
              "[ 10450 kHz |  --- dBm | off        ]\n");
}

TEST(LegacyPanel, TracesTheSession)
{
    const Program::Result result = runShippedPanel({});
    EXPECT_EQ(
        withoutTimes(result.errors),
        "TIME: Attaching Subject (source) Observer (mixer) Priority (0) Aspect (Frequency)\n\n"
        "TIME: Attaching Subject (source) Observer (mixer) Priority (0) Aspect (Level)\n\n"
        "TIME: Attaching Subject (mixer) Observer (detector) Priority (0) Aspect (Frequency)\n\n"
        "TIME: Attaching Subject (mixer) Observer (detector) Priority (0) Aspect (Level)\n\n"
        "TIME: Attaching Subject (detector) Observer (state machine) Priority (1) Aspect (Level)"
        "\n\n"
        "TIME: Attaching Subject (source) Observer (panel) Priority (2) Aspect (Frequency)\n\n"
        "TIME: Attaching Subject (detector) Observer (panel) Priority (2) Aspect (Level)\n\n"
        "TIME: Attaching Subject (state machine) Observer (panel) Priority (2) Aspect "
        "(Gs_ChangeAspect)\n\n"
        "TIME: Leaving state 'off' for 'searching'.\n\n"
        "TIME: Leaving state 'searching' for 'measuring'.\n\n"
        "TIME: Leaving state 'measuring' for 'overloaded'.\n\n"
        "TIME: Leaving state 'overloaded' for 'measuring'.\n\n"
        "TIME: Leaving state 'measuring' for 'off'.\n\n"
        "TIME: Detaching Subject (state machine) Observer (panel) Priority (2) Aspect "
        "(Gs_ChangeAspect)\n\n"
        "TIME: Detaching Subject (detector) Observer (panel) Priority (2) Aspect (Level)\n\n"
        "TIME: Detaching Subject (source) Observer (panel) Priority (2) Aspect (Frequency)\n\n"
        "TIME: Detaching Subject (detector) Observer (state machine) Priority (1) Aspect (Level)"
        "\n\n"
        "TIME: Detaching Subject (mixer) Observer (detector) Priority (0) Aspect (Frequency)\n\n"
        "TIME: Detaching Subject (mixer) Observer (detector) Priority (0) Aspect (Level)\n\n"
        "TIME: Detaching Subject (source) Observer (mixer) Priority (0) Aspect (Frequency)\n\n"
        "TIME: Detaching Subject (source) Observer (mixer) Priority (0) Aspect (Level)\n\n");
}

TEST(LegacyPanel, ReportsWhatIsNoCommand)
{
    const test::ConfigDirectory config;
    const Program::Result result = runPanel({"tune=loud", "on"}, config);
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.output,
              "> tune=loud\n"
              "[ 10000 kHz |  --- dBm | off        ]\n"
              "> on\n"
              "[ 10000 kHz |  -81 dBm | searching  ]\n");
    const std::regex line("Controls.cpp/[0-9]+/");
    EXPECT_EQ(std::regex_replace(withoutTimes(result.errors), line, "Controls.cpp/LINE/"),
              "!([1.0.0.14]Error/Err_ObjectDoesNotExistError) by marie on TIME.\n"
              "        Generated from examples/legacy_panel/Controls.cpp/LINE/execute:\n"
              "        Object 'tune=loud' does not exist.\0\n"s);
}

TEST(LegacyPanel, RefusesOtherCommands)
{
    const test::ConfigDirectory config;
    for (const char* const command :
         {"dance", "", "=", "tune=", "tune=1x", "volume=3", "on=1", "tune=99999999999"})
    {
        EXPECT_EQ(runPanel({command}, config).status, 1) << command;
    }
}

TEST(LegacyPanel, TracesNothingByDefault)
{
    const test::ConfigDirectory config;
    const Program::Result result = runPanel({"on", "tick", "off"}, config);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "");
}

TEST(LegacyPanel, TracesTicksAtLevelTwo)
{
    const test::ConfigDirectory config("Gs_Flags::m_traceStateMachineSteps\n2\n");
    EXPECT_EQ(withoutTimes(runPanel({"tick", "on", "tick"}, config).errors),
              "TIME: Tick 1 in state 'off'.\n\n"
              "TIME: Leaving state 'off' for 'searching'.\n\n"
              "TIME: Tick 2 in state 'searching'.\n\n");
}

TEST(LegacyPanel, StaysOverloadedForTheTimeOfItsFlags)
{
    const test::ConfigDirectory config(
        "Gs_Flags::m_defaultStateMachineTickInMs\n100\n"
        "Gs_Flags::m_defaultStateMachineTimeInStateInMs\n200\n");
    EXPECT_EQ(runPanel({"on", "tune=10450", "level=20", "tick", "tick"}, config).output,
              "> on\n"
              "[ 10000 kHz |  -81 dBm | searching  ]\n"
              "> tune=10450\n"
              "[ 10450 kHz |  -36 dBm | measuring  ]\n"
              "> level=20\n"
              "[ 10450 kHz |   14 dBm | overloaded ]\n"
              "> tick\n"
              "[ 10450 kHz |   14 dBm | overloaded ]\n"
              "> tick\n"
              "[ 10450 kHz |   -6 dBm | measuring  ]\n");
}

TEST(LegacyPanel, PrintsUpdatesInTheOrderOfPriorities)
{
    const test::ConfigDirectory config(
        "Gs_Flags::m_enableSubjectName\n1\nGs_Flags::m_traceSubjectName\nsource\n");
    EXPECT_EQ(
        runPanel({"on", "tune=10300"}, config).output,
        "> on\n"
        "***** Calling update Subject (source) Observer (mixer) Priority (0) Aspect (Level)\n"
        "***** Calling update Subject (mixer) Observer (detector) Priority (0) Aspect (Level)\n"
        "***** Calling update Subject (detector) Observer (state machine) Priority (1) Aspect "
        "(Level)\n"
        "***** Calling update Subject (state machine) Observer (panel) Priority (2) Aspect "
        "(Gs_ChangeAspect)\n"
        "***** Calling update Subject (detector) Observer (panel) Priority (2) Aspect (Level)\n"
        "[ 10000 kHz |  -81 dBm | searching  ]\n"
        "> tune=10300\n"
        "***** Calling update Subject (source) Observer (mixer) Priority (0) Aspect (Frequency)\n"
        "***** Calling update Subject (mixer) Observer (detector) Priority (0) Aspect "
        "(Frequency)\n"
        "***** Calling update Subject (detector) Observer (state machine) Priority (1) Aspect "
        "(Level)\n"
        "***** Calling update Subject (state machine) Observer (panel) Priority (2) Aspect "
        "(Gs_ChangeAspect)\n"
        "***** Calling update Subject (detector) Observer (panel) Priority (2) Aspect (Level)\n"
        "***** Calling update Subject (source) Observer (panel) Priority (2) Aspect (Frequency)\n"
        "[ 10300 kHz |  -51 dBm | measuring  ]\n");
}

TEST(LegacyPanelFlags, AreFlagsOfTheLibrary)
{
    using utils::Std_Singleton;
    const test::ConfigDirectory config;
    Std_Singleton<utils::flag::Flag_Flags>::getInstancePtr();
    Std_Singleton<utils::flag::Gs_Flags>::getInstancePtr();
    const auto& registry =
        *Std_Singleton<std::map<std::string, utils::flag::Flag_FlagBase*>>::getInstancePtr();

    std::ifstream file(PROJECT_FOLDER "/examples/legacy_panel/generic_flags.txt");
    int numNames = 0;
    for (std::string line; std::getline(file, line);)
    {
        if (line.find("_Flags::") != std::string::npos)
        {
            ++numNames;
            EXPECT_EQ(registry.count(line), 1U) << line;
        }
    }
    EXPECT_EQ(numNames, 7);
}
