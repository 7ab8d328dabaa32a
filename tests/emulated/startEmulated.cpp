// Lets a program that runs under qemu-user start others of its kind, when the kernel does not know
// what to do with them: they are started under the emulator too. Preloaded into every test program
// of a cross build; death tests and the tests of whole programs need it.

#include <dlfcn.h>
#include <elf.h>
#include <fcntl.h>
#include <spawn.h>
#include <unistd.h>

#include <cstring>
#include <string_view>
#include <vector>

namespace
{

using Texts = std::vector<char*>;

template <typename Function>
Function* findOriginal(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

// Whether a file is a program for the emulated machine. Names to be looked up in PATH are not: they
// are tools of the system.
bool isEmulated(const char* path)
{
    const int file = std::strchr(path, '/') != nullptr ? open(path, O_RDONLY | O_CLOEXEC) : -1;
    if (file < 0)
    {
        return false;
    }
    Elf64_Ehdr header{};
    const bool isWhole = read(file, &header, sizeof header) == sizeof header;
    close(file);
    return isWhole && std::memcmp(header.e_ident, ELFMAG, SELFMAG) == 0 &&
           header.e_machine == EM_AARCH64;
}

// EMULATOR is the emulator's whole command, each word followed by a NUL.
Texts commandOf(const char* path, char* const arguments[])
{
    Texts command;
    for (const char* word = EMULATOR; *word != '\0'; word += std::strlen(word) + 1)
    {
        command.push_back(const_cast<char*>(word));
    }
    command.push_back(const_cast<char*>(path));
    for (char* const* argument = arguments; *argument != nullptr; ++argument)
    {
        if (argument != arguments)
        {
            command.push_back(*argument);
        }
    }
    command.push_back(nullptr);
    return command;
}

// This library is not for the programs of the system.
Texts withoutPreload(char* const environment[])
{
    Texts result;
    for (char* const* entry = environment; *entry != nullptr; ++entry)
    {
        if (std::string_view(*entry).rfind("LD_PRELOAD=", 0) != 0)
        {
            result.push_back(*entry);
        }
    }
    result.push_back(nullptr);
    return result;
}

// Calls start(path, arguments, environment) with what is to be started in the end.
template <typename Start>
int startEither(const char* path, char* const arguments[], char* const environment[], Start start)
{
    if (!isEmulated(path))
    {
        return start(path, arguments, withoutPreload(environment).data());
    }
    const Texts command = commandOf(path, arguments);
    return start(command.front(), command.data(), environment);
}

template <typename Spawn>
int spawnEither(Spawn* spawn, pid_t* process, const char* path,
                const posix_spawn_file_actions_t* actions, const posix_spawnattr_t* attributes,
                char* const arguments[], char* const environment[])
{
    return startEither(path, arguments, environment,
                       [=](const char* file, char* const words[], char* const variables[])
                       { return spawn(process, file, actions, attributes, words, variables); });
}

}  // namespace

#define PRELOADED extern "C" __attribute__((visibility("default")))

PRELOADED int execve(const char* path, char* const arguments[], char* const environment[]) noexcept
{
    return startEither(path, arguments, environment, findOriginal<decltype(execve)>("execve"));
}

PRELOADED int execv(const char* path, char* const arguments[]) noexcept
{
    return execve(path, arguments, environ);
}

PRELOADED int posix_spawn(pid_t* process, const char* path,
                          const posix_spawn_file_actions_t* actions,
                          const posix_spawnattr_t* attributes, char* const arguments[],
                          char* const environment[])
{
    return spawnEither(findOriginal<decltype(posix_spawn)>("posix_spawn"), process, path, actions,
                       attributes, arguments, environment);
}

PRELOADED int posix_spawnp(pid_t* process, const char* path,
                           const posix_spawn_file_actions_t* actions,
                           const posix_spawnattr_t* attributes, char* const arguments[],
                           char* const environment[])
{
    return spawnEither(findOriginal<decltype(posix_spawnp)>("posix_spawnp"), process, path, actions,
                       attributes, arguments, environment);
}
