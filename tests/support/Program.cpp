#include "support/Program.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <spawn.h>
#include <stdlib.h>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <stdexcept>
#include <thread>
#include <utility>

namespace test
{

namespace
{

// Asked for; the system rounds up to a page.
constexpr int PIPE_SIZE = 4096;

int require(int result, const char* what)
{
    if (result < 0)
    {
        throw std::runtime_error(what);
    }
    return result;
}

// The test's own environment, changed; without what would turn the library's flags.
std::vector<std::string> makeEnvironment(const std::map<std::string, std::string>& changes)
{
    std::vector<std::string> environment;
    for (char** entry = environ; *entry != nullptr; ++entry)
    {
        const std::string text = *entry;
        const std::string name = text.substr(0, text.find('='));
        if (name != "GENERIC_CONFIG_DIR" && changes.count(name) == 0)
        {
            environment.push_back(text);
        }
    }
    for (const auto& [name, value] : changes)
    {
        environment.push_back(name + "=" + value);
    }
    return environment;
}

std::vector<char*> toPointers(std::vector<std::string>& texts)
{
    std::vector<char*> pointers;
    for (std::string& text : texts)
    {
        pointers.push_back(text.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

int openTerminal()
{
    const int terminal = require(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC), "posix_openpt");
    require(grantpt(terminal), "grantpt");
    require(unlockpt(terminal), "unlockpt");
    return terminal;
}

class SpawnSettings
{
  public:
    SpawnSettings()
    {
        posix_spawn_file_actions_init(&m_files);
        posix_spawnattr_init(&m_attributes);
    }
    ~SpawnSettings()
    {
        posix_spawn_file_actions_destroy(&m_files);
        posix_spawnattr_destroy(&m_attributes);
    }

    SpawnSettings(const SpawnSettings&) = delete;
    SpawnSettings& operator=(const SpawnSettings&) = delete;

    // Whoever started the tests may ignore interrupts, as shells do for what runs behind them.
    void useDefaultSignals()
    {
        sigset_t signals;
        sigemptyset(&signals);
        sigaddset(&signals, SIGINT);
        sigaddset(&signals, SIGTERM);
        posix_spawnattr_setsigdefault(&m_attributes, &signals);
        posix_spawnattr_setflags(&m_attributes, POSIX_SPAWN_SETSIGDEF);
    }

    void redirect(int from, int to) { posix_spawn_file_actions_adddup2(&m_files, from, to); }
    void redirectToFile(const char* path, int to)
    {
        posix_spawn_file_actions_addopen(&m_files, to, path, O_RDWR | O_NOCTTY, 0);
    }

    pid_t spawn(std::vector<std::string> command, std::vector<std::string> environment)
    {
        pid_t process = -1;
        const std::vector<char*> arguments = toPointers(command);
        const std::vector<char*> variables = toPointers(environment);
        const int error = posix_spawnp(&process, arguments[0], &m_files, &m_attributes,
                                       arguments.data(), variables.data());
        require(-error, arguments[0]);
        return process;
    }

  private:
    posix_spawn_file_actions_t m_files;
    posix_spawnattr_t m_attributes;
};

// What comes until the end; a terminal ends with an error instead.
std::string readAll(int descriptor)
{
    std::string text;
    char block[4096];
    for (ssize_t size = 0; (size = read(descriptor, block, sizeof(block))) > 0;)
    {
        text.append(block, static_cast<std::size_t>(size));
    }
    return text;
}

}  // namespace

Program::Program(std::vector<std::string> command) : Program(std::move(command), Setting()) {}

Program::Program(std::vector<std::string> command, const Setting& setting)
    : m_process(-1), m_output(-1), m_errors(-1), m_hasTerminal(setting.hasTerminal)
{
    int ends[2] = {};
    require(pipe2(ends, O_CLOEXEC), "pipe2");
    require(fcntl(ends[1], F_SETPIPE_SZ, PIPE_SIZE), "F_SETPIPE_SZ");
    m_output = ends[0];
    m_errors = m_hasTerminal ? openTerminal() : require(memfd_create("errors", MFD_CLOEXEC), "");

    SpawnSettings settings;
    settings.redirect(ends[1], STDOUT_FILENO);
    if (m_hasTerminal)
    {
        settings.redirectToFile(ptsname(m_errors), STDERR_FILENO);
    }
    else
    {
        settings.redirect(m_errors, STDERR_FILENO);
    }
    if (setting.ignoresInterrupts)
    {
        signal(SIGINT, SIG_IGN);
    }
    else
    {
        settings.useDefaultSignals();
    }
    m_process = settings.spawn(std::move(command), makeEnvironment(setting.environment));
    close(ends[1]);
}

Program::~Program()
{
    if (m_process > 0)
    {
        kill(m_process, SIGKILL);
        waitpid(m_process, nullptr, 0);
    }
    close(m_output);
    close(m_errors);
}

std::string Program::readLine() const
{
    std::string line;
    for (char byte = 0; read(m_output, &byte, 1) == 1 && byte != '\n';)
    {
        line += byte;
    }
    return line;
}

void Program::waitUntilOutputIsFull(std::size_t size) const
{
    const auto capacity = static_cast<std::size_t>(fcntl(m_output, F_GETPIPE_SZ));
    for (int used = 0; static_cast<std::size_t>(used) + size <= capacity; std::this_thread::yield())
    {
        ASSERT_EQ(ioctl(m_output, FIONREAD, &used), 0);
    }
}

void Program::sendSignal(int signal) const
{
    ASSERT_EQ(kill(m_process, signal), 0);
}

void Program::waitUntilNoLongerCaught(int signal) const
{
    static const std::string CAUGHT = "SigCgt:";
    const std::string path = "/proc/" + std::to_string(m_process) + "/status";
    for (;;)
    {
        std::ifstream file(path);
        std::string line;
        while (std::getline(file, line) && line.compare(0, CAUGHT.size(), CAUGHT) != 0)
        {
        }
        ASSERT_FALSE(line.empty());
        const auto caught = std::stoull(line.substr(CAUGHT.size()), nullptr, 16);
        if ((caught >> (signal - 1) & 1) == 0)
        {
            return;
        }
        std::this_thread::yield();
    }
}

Program::Result Program::finish()
{
    Result result;
    result.output = readAll(m_output);

    int status = 0;
    rusage usage = {};
    require(wait4(m_process, &status, 0, &usage), "wait4");
    m_process = -1;
    result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    result.signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    result.maxResidentKilobytes = usage.ru_maxrss;

    if (!m_hasTerminal)
    {
        lseek(m_errors, 0, SEEK_SET);
    }
    result.errors = readAll(m_errors);
    return result;
}

Program::Result run(std::vector<std::string> command, const Program::Setting& setting)
{
    return Program(std::move(command), setting).finish();
}

}  // namespace test
