#include "Options.h"

#include <stdlib.h>

#include <filesystem>

#include <CLI/CLI.hpp>

#include "core/flagsFile.h"

namespace fs = std::filesystem;

namespace instrument
{

namespace
{

constexpr const char* DESCRIPTION =
    R"(A virtual measuring instrument: simulated channels, an output with interlocks, and SCPI to
control them, for several clients at once.)";

constexpr const char* NOTES = R"(Flags:
  Without --flags, the library's and this program's flags start from the file generic_flags.txt in
  the folder that the environment variable GENERIC_CONFIG_DIR names, else from the one that comes
  with this example.

Signals:
  After SIGINT (Ctrl-C) or SIGTERM no client and no more input is accepted. What has been received
  is executed and answered, within 5 seconds. A second signal ends the program at once.

Exit status:
  0  ended in order: stopped by a signal, or the script is at its end without errors
  1  failed: the port is not to be had, the script cannot be read, the output cannot be written; or
     the script has left errors, which are told on standard error
  2  bad usage, or a bad configuration)";

constexpr const char* CONFIGURATION_NAME = "instrument.xml";

// The folder of the files that come with the example.
fs::path dataFolder()
{
    const fs::path besideTheSource = INSTRUMENT_SOURCE_FOLDER;
    const bool isBuiltHere = fs::exists(besideTheSource / CONFIGURATION_NAME);
    return isBuiltHere ? besideTheSource : fs::path(INSTRUMENT_INSTALLED_FOLDER);
}

std::string defaultFlagsFolder()
{
    const char* const folder = getenv("GENERIC_CONFIG_DIR");
    return folder != nullptr ? folder : dataFolder().string();
}

// The library looks for the file by its name.
std::string folderOf(const fs::path& flagsFile)
{
    if (flagsFile.filename() != FLAGS_FILE_NAME)
    {
        throw CLI::ValidationError("--flags",
                                   std::string("the file must be named ") + FLAGS_FILE_NAME);
    }
    const fs::path folder = flagsFile.parent_path();
    return folder.empty() ? "." : folder.string();
}

void declare(CLI::App& app, Options& options)
{
    app.footer(NOTES);
    app.add_option(
           "--config", options.configuration,
           "The configuration; without it, the instrument.xml\nthat comes with this example")
        ->type_name("FILE");
    app.add_option_function<std::string>(
           "--flags", [&options](const std::string& file) { options.flagsFolder = folderOf(file); },
           "Flags to start from, and to read again when a\nclient asks for it; named "
           "generic_flags.txt")
        ->type_name("FILE")
        ->check(CLI::ExistingFile.description(""));
    auto* const port = app.add_option("--port", options.port,
                                      "The TCP port to listen on; 0: a free one, which\nis printed")
                           ->type_name("NUMBER")
                           ->capture_default_str();
    auto* const listen =
        app.add_option(
               "--listen", options.listenAddress,
               "The address to listen on. There are no passwords:\nwho can connect can control")
            ->type_name("ADDRESS")
            ->capture_default_str();
    app.add_option("--script", options.script,
                   "Executes the lines of a file (-: standard input)\ninstead of serving clients")
        ->type_name("FILE")
        ->excludes(port)
        ->excludes(listen);
}

}  // namespace

std::optional<int> readOptions(int argc, const char* const* argv, Options& options)
{
    CLI::App app(DESCRIPTION, "instrument");
    declare(app, options);
    try
    {
        app.parse(argc, argv);
    }
    catch (const CLI::ParseError& result)
    {
        return app.exit(result) == 0 ? ENDED_IN_ORDER : BAD_USAGE;
    }
    if (options.configuration.empty())
    {
        options.configuration = dataFolder() / CONFIGURATION_NAME;
    }
    if (options.flagsFolder.empty())
    {
        options.flagsFolder = defaultFlagsFolder();
    }
    return std::nullopt;
}

}  // namespace instrument
