#ifndef TESTS_INSTRUMENT_SOCKET_H
#define TESTS_INSTRUMENT_SOCKET_H

#include <string>

namespace test
{

/// A TCP connection to a program on this host. What takes longer than a minute fails.
class Socket
{
  public:
    explicit Socket(int port);
    ~Socket();

    Socket(const Socket&) = delete;
    Socket& operator=(const Socket&) = delete;

    /// Sends all of it. @return false when the other end has gone
    bool send(const std::string& bytes) const;

    /// Sends what the other end takes in without reading, up to all of it.
    void sendSome(const std::string& bytes) const;

    /// Reads up to a line feed. @return the line without it; what has come when the other end closes
    std::string readLine() const;

    /// Reads until the other end closes.
    std::string readAll() const;

    /// Sends a line and reads one.
    std::string ask(const std::string& line) const;

    /// Sends no more.
    void endInput() const;

  private:
    int m_descriptor;
};

}  // namespace test

#endif
