#ifndef TESTS_INSTRUMENT_INSTRUMENTPROGRAM_H
#define TESTS_INSTRUMENT_INSTRUMENTPROGRAM_H

#include <string>
#include <vector>

#include "support/Program.h"

namespace test
{

/// The command that starts the instrument.
inline std::vector<std::string> instrumentCommand(const std::vector<std::string>& arguments)
{
    std::vector<std::string> command = {INSTRUMENT_PROGRAM};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return command;
}

/// Runs the instrument to its end.
inline Program::Result runInstrument(const std::vector<std::string>& arguments)
{
    return run(instrumentCommand(arguments));
}

}  // namespace test

#endif
