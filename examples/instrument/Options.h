#ifndef INSTRUMENT_OPTIONS_H
#define INSTRUMENT_OPTIONS_H

#include <cstdint>
#include <optional>
#include <string>

namespace instrument
{

/// The exit statuses of the program.
enum ExitStatus : int
{
    ENDED_IN_ORDER = 0,
    FAILED = 1,
    BAD_USAGE = 2  ///< of the options or in the configuration
};

/// What the command line asks for.
struct Options
{
    std::string listenAddress = "127.0.0.1";
    std::uint16_t port = 5025;  ///< 0: a free one
    std::string script;         ///< a file, or "-" for standard input; empty: serve clients
    std::string configuration;  ///< a file
    std::string flagsFolder;    ///< of the file generic_flags.txt
};

/// Reads the command line. Prints the help text when it is asked for, and a message when something
/// is wrong.
/// @return the exit status when there is nothing more to do
std::optional<int> readOptions(int argc, const char* const* argv, Options& options);

}  // namespace instrument

#endif
