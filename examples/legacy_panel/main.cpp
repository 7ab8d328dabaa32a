// The front panel of a small receiver, built with the older classes of the library: subjects and
// observers, their aspects and priorities, the older flags, traces and errors. Begin to read here,
// then in StateMachine.cpp; docs/older-generation.md says what to use instead in new programs.
//
//     source --frequency, level--> mixer --frequency, level--> detector --level--> state machine
//        \                                                          \                  |
//         `--frequency-------------> panel <----------------- level -'<------ state ----'
//
// Usage: legacy_panel [on | off | tick | tune=KHZ | level=DBM]...
//
// The panel is printed on standard output, traces and errors on standard error: the flags file that
// comes with the example switches the traces on, unless GENERIC_CONFIG_DIR names another folder.

#include <stdlib.h>

#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "Aspects.h"
#include "Controls.h"
#include "Detector.h"
#include "Mixer.h"
#include "Panel.h"
#include "Source.h"
#include "StateMachine.h"

namespace
{

// To be called before the first flag is made, which reads the file.
void useShippedFlags()
{
    const std::filesystem::path besideTheSource = LEGACY_PANEL_SOURCE_FOLDER;
    const bool isBuiltHere = std::filesystem::exists(besideTheSource / "generic_flags.txt");
    const char* const folder =
        isBuiltHere ? LEGACY_PANEL_SOURCE_FOLDER : LEGACY_PANEL_INSTALLED_FOLDER;
    constexpr int keep = 0;  // what the user has set
    setenv("GENERIC_CONFIG_DIR", folder, keep);
}

std::vector<std::string> readCommands(int argc, char** argv)
{
    if (argc > 1)
    {
        return {argv + 1, argv + argc};
    }
    return {"on", "tune=10300", "tune=10450", "level=20", "tick", "tick", "tick", "off"};
}

}  // namespace

int main(int argc, char** argv)
{
    using namespace legacy_panel;

    useShippedFlags();
    Aspects aspects;
    Source source(aspects);
    Mixer mixer(source, aspects);
    Detector detector(mixer, aspects);
    StateMachine machine(source, detector, aspects);
    Panel panel(source, detector, machine, aspects);

    Controls controls(source, machine);
    bool isEveryCommandKnown = true;
    for (const std::string& command : readCommands(argc, argv))
    {
        std::cout << "> " << command << std::endl;
        isEveryCommandKnown = controls.execute(command) && isEveryCommandKnown;
        std::cout << panel.getText() << std::endl;
    }
    return isEveryCommandKnown ? EXIT_SUCCESS : EXIT_FAILURE;
}
