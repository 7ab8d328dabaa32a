#include "Socket.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

#include <stdexcept>

namespace test
{

namespace
{

constexpr int TIMEOUT_S = 60;

}  // namespace

Socket::Socket(int port) : m_descriptor(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    const timeval timeout = {TIMEOUT_S, 0};
    setsockopt(m_descriptor, SOL_SOCKET, SO_RCVTIMEO, &timeout, sizeof(timeout));
    setsockopt(m_descriptor, SOL_SOCKET, SO_SNDTIMEO, &timeout, sizeof(timeout));
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (connect(m_descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) != 0)
    {
        close(m_descriptor);
        throw std::runtime_error("connect");
    }
}

Socket::~Socket()
{
    close(m_descriptor);
}

bool Socket::send(const std::string& bytes) const
{
    for (std::size_t sent = 0; sent < bytes.size();)
    {
        const ssize_t size =
            ::send(m_descriptor, bytes.data() + sent, bytes.size() - sent, MSG_NOSIGNAL);
        if (size <= 0)
        {
            return false;
        }
        sent += static_cast<std::size_t>(size);
    }
    return true;
}

void Socket::sendSome(const std::string& bytes) const
{
    for (std::size_t sent = 0; sent < bytes.size();)
    {
        const ssize_t size = ::send(m_descriptor, bytes.data() + sent, bytes.size() - sent,
                                    MSG_NOSIGNAL | MSG_DONTWAIT);
        if (size <= 0)
        {
            return;
        }
        sent += static_cast<std::size_t>(size);
    }
}

std::string Socket::readLine() const
{
    std::string line;
    for (char byte = 0; recv(m_descriptor, &byte, 1, 0) == 1 && byte != '\n';)
    {
        line += byte;
    }
    return line;
}

std::string Socket::readAll() const
{
    std::string text;
    char block[65536];
    for (ssize_t size = 0; (size = recv(m_descriptor, block, sizeof(block), 0)) > 0;)
    {
        text.append(block, static_cast<std::size_t>(size));
    }
    return text;
}

std::string Socket::ask(const std::string& line) const
{
    return send(line + "\n") ? readLine() : "(gone)";
}

void Socket::endInput() const
{
    shutdown(m_descriptor, SHUT_WR);
}

}  // namespace test
