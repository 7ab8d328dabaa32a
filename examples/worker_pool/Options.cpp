#include "Options.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <utility>

#include <CLI/CLI.hpp>

namespace worker_pool
{

namespace
{

constexpr const char* DESCRIPTION =
    R"(Counts the lines, words and bytes of files, like wc in the C locale, with a pool of tasks.

A table grows as the results come in; sums, the share of each worker and the speed follow.
Problems are told on standard error.)";

constexpr const char* NOTES = R"(In folders:
  Everything in them is counted, except symbolic links. These are followed only when they are
  named on the command line. Devices, pipes and sockets are never opened.

Flags:
  The library's flags start from the file generic_flags.txt in the folder that the environment
  variable GENERIC_CONFIG_DIR names, else from the one that comes with this example.

Exit status:
  0    everything was counted
  1    something was not: a file that cannot be read, a path that does not exist or is not a
       file, a folder without files; or the table could not be written
  2    bad usage
  130  stopped by Ctrl-C (143: by SIGTERM); the sums are those of what was counted so far.
       A second Ctrl-C ends the program at once.)";

const std::map<std::string, std::string> TRACE_FLAGS = {
    {"command", "utils::command::m_traceSteps"},
    {"queue", "utils::queue::m_traceSteps"},
    {"task", "utils::task::m_traceSteps"},
    {"headers", "utils::flag::m_enableTraceMsgHeaders"},
};

// What is counted when no path is given.
void useDefaultPaths(Options& options)
{
    const bool isSourceThere = std::filesystem::is_directory(WORKER_POOL_PROJECT_FOLDER);
    options.paths = {isSourceThere ? WORKER_POOL_PROJECT_FOLDER : "."};
    options.excludedNames.insert({".git", "build"});
}

// Reads one of the comma-separated parts of "queue=1,task=2".
void addTraceLevel(const std::string& part, TraceLevels& levels)
{
    const std::size_t equals = part.find('=');
    const auto flag = TRACE_FLAGS.find(part.substr(0, equals));
    int level = 0;
    if (equals == std::string::npos || flag == TRACE_FLAGS.end() ||
        !CLI::detail::lexical_cast(part.substr(equals + 1), level))
    {
        throw CLI::ValidationError(
            "--trace", "'" + part + "' is not command, queue, task or headers, then =LEVEL");
    }
    levels[flag->second] = level;
}

void addTraceLevels(const std::string& text, TraceLevels& levels)
{
    for (const std::string& part : CLI::detail::split(text, ','))
    {
        addTraceLevel(part, levels);
    }
}

// CLI11 takes a positional argument in brackets for a list of several; a file may be named so.
std::vector<std::string> protectBrackets(int argc, const char* const* argv)
{
    std::vector<std::string> arguments(argv + 1, argv + argc);
    std::string previous;
    for (std::string& argument : arguments)
    {
        const bool isInBrackets =
            !argument.empty() && argument.front() == '[' && argument.back() == ']';
        if (isInBrackets && previous != "--exclude")
        {
            argument.insert(0, "./");
        }
        previous = argument;
    }
    return arguments;
}

void declare(CLI::App& app, Options& options)
{
    app.footer(NOTES);
    app.add_option("PATH", options.paths,
                   "Files and folders to count; without one, the source of\n"
                   "this project (without .git and build), or the current\n"
                   "folder when that is gone")
        ->type_name("");
    app.add_option("--workers", options.numWorkers, "How many tasks count: 1 to 64")
        ->type_name("N")
        ->check(CLI::Range(1, 64).description(""))
        ->capture_default_str();
    app.add_option("--queue-size", options.queueSize,
                   "How many files wait for each task at most:\n1 to 1000000")
        ->type_name("N")
        ->check(CLI::Range(1, 1000000).description(""))
        ->capture_default_str();
    app.add_option("--exclude", options.excludedNames,
                   "Passes over files and folders of this name inside\n"
                   "folders; may be given several times")
        ->type_name("NAME")
        ->expected(1)
        ->allow_extra_args(false)  // what follows the name is a path
        ->take_all();
    app.add_option_function<std::string>(
           "--trace",
           [&options](const std::string& text) { addTraceLevels(text, options.traceLevels); },
           "Traces what the library does, on standard error: a\n"
           "level (0: off, 1, 2) for each of command, queue, task,\n"
           "as in queue=1,task=2; and headers=0 for full headers")
        ->type_name("NAME=LEVEL,...");
    app.add_flag("--quiet", options.quiet, "Prints the sums only, no line for each file");
}

}  // namespace

std::optional<int> readOptions(int argc, const char* const* argv, Options& options)
{
    CLI::App app(DESCRIPTION, "worker_pool");
    declare(app, options);
    try
    {
        std::vector<std::string> arguments = protectBrackets(argc, argv);
        std::reverse(arguments.begin(), arguments.end());  // as CLI11 wants them
        app.parse(std::move(arguments));
    }
    catch (const CLI::ParseError& result)
    {
        return app.exit(result) == 0 ? ALL_COUNTED : BAD_USAGE;
    }
    if (options.paths.empty())
    {
        useDefaultPaths(options);
    }
    return std::nullopt;
}

}  // namespace worker_pool
