#ifndef TESTS_SUPPORT_PROGRAM_H
#define TESTS_SUPPORT_PROGRAM_H

#include <sys/types.h>

#include <map>
#include <string>
#include <vector>

namespace test
{

/// A program that runs beside the test. Its standard output is a small pipe, so that a program that
/// prints more waits for the test to read.
class Program
{
  public:
    struct Result
    {
        int status = -1;  ///< exit status; -1 when a signal has ended the program
        int signal = 0;   ///< the signal that has ended the program; 0 when it has exited
        std::string output;
        std::string errors;
        long maxResidentKilobytes = 0;
    };

    struct Setting
    {
        std::map<std::string, std::string> environment{};  ///< beside what the test itself has
        bool ignoresInterrupts = false;
        bool hasTerminal = false;  ///< whether standard error is a terminal
    };

    /// Starts the program.
    /// @param command its path and its arguments
    explicit Program(std::vector<std::string> command);
    Program(std::vector<std::string> command, const Setting& setting);
    ~Program();

    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    /// Reads a line of the output. @return the line without its line feed; what is left at the end
    std::string readLine() const;

    /// Waits until a program that prints texts of one size waits for the pipe to be read.
    void waitUntilOutputIsFull(std::size_t size) const;

    void sendSignal(int signal) const;

    /// Waits until a signal handler that is used once has run.
    void waitUntilNoLongerCaught(int signal) const;

    /// Reads what is left of the output and waits for the end.
    Result finish();

  private:
    pid_t m_process;
    int m_output;
    int m_errors;
    bool m_hasTerminal;
};

/// Runs a program to its end.
Program::Result run(std::vector<std::string> command, const Program::Setting& setting = {});

}  // namespace test

#endif
