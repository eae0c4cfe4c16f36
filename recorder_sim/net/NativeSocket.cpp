// platform file: sockets of POSIX and of Windows, both branches.
#include "net/NativeSocket.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#ifdef _WIN32
#include <winsock2.h>
#include <ws2tcpip.h>
#else
#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>
#ifdef __linux__
#include <linux/sockios.h>
#endif
#endif

namespace recorder_sim {
namespace {

#ifdef _WIN32
using SystemSocket = SOCKET;
using Length = int;
constexpr int sendFlags = 0;

void startSockets()
{
    static const int started = [] {
        WSADATA data;
        return WSAStartup(MAKEWORD(2, 2), &data);
    }();
    static_cast<void>(started);
}
void closeSystemSocket(SystemSocket socket)
{
    ::closesocket(socket);
}
bool makeNonBlocking(SystemSocket socket)
{
    u_long on = 1;
    return ::ioctlsocket(socket, FIONBIO, &on) == 0;
}
bool wouldBlock()
{
    return ::WSAGetLastError() == WSAEWOULDBLOCK;
}
bool interrupted()
{
    return false;
}
int pollOne(WSAPOLLFD& entry, int timeoutMs)
{
    return ::WSAPoll(&entry, 1, timeoutMs);
}
using PollEntry = WSAPOLLFD;
std::string lastErrorText()
{
    return "socket error " + std::to_string(::WSAGetLastError());
}
#else
using SystemSocket = int;
using Length = std::size_t;
constexpr int sendFlags = MSG_NOSIGNAL;

void startSockets() {}
void closeSystemSocket(SystemSocket socket)
{
    ::close(socket);
}
bool makeNonBlocking(SystemSocket socket)
{
    const int flags = ::fcntl(socket, F_GETFL, 0);
    return ::fcntl(socket, F_SETFL, flags | O_NONBLOCK) == 0 && ::fcntl(socket, F_SETFD, FD_CLOEXEC) == 0;
}
bool wouldBlock()
{
    return errno == EAGAIN || errno == EWOULDBLOCK;
}
bool interrupted()
{
    return errno == EINTR;
}
using PollEntry = pollfd;
int pollOne(PollEntry& entry, int timeoutMs)
{
    return ::poll(&entry, 1, timeoutMs);
}
std::string lastErrorText()
{
    return std::strerror(errno);
}
#endif

SystemSocket system(NativeSocket::Handle handle)
{
    return static_cast<SystemSocket>(handle);
}

bool parseAddress(const std::string& address, std::uint16_t port, sockaddr_in& out)
{
    out = {};
    out.sin_family = AF_INET;
    out.sin_port = htons(port);
    return ::inet_pton(AF_INET, address.c_str(), &out.sin_addr) == 1;
}

std::string addressText(const sockaddr_in& address)
{
    char text[INET_ADDRSTRLEN] = {};
    ::inet_ntop(AF_INET, &address.sin_addr, text, sizeof text);
    return text;
}

void setFlag(SystemSocket socket, int level, int option, int value)
{
    ::setsockopt(socket, level, option, reinterpret_cast<const char*>(&value), sizeof value);
}

} // namespace

NativeSocket::NativeSocket(Handle handle)
    : m_handle(handle)
{}

NativeSocket::NativeSocket(NativeSocket&& other) noexcept
    : m_handle(std::exchange(other.m_handle, invalidHandle))
{}

NativeSocket& NativeSocket::operator=(NativeSocket&& other) noexcept
{
    if (this != &other) {
        close();
        m_handle = std::exchange(other.m_handle, invalidHandle);
    }
    return *this;
}

NativeSocket::~NativeSocket()
{
    close();
}

void NativeSocket::close()
{
    if (isValid())
        closeSystemSocket(system(std::exchange(m_handle, invalidHandle)));
}

NativeSocket NativeSocket::listenOn(const std::string& address, std::uint16_t port, std::string& error)
{
    startSockets();
    sockaddr_in where;
    if (!parseAddress(address, port, where)) {
        error = "not an IPv4 address: " + address;
        return {};
    }
    NativeSocket made(static_cast<Handle>(::socket(AF_INET, SOCK_STREAM, 0)));
    if (!made.isValid()) {
        error = lastErrorText();
        return {};
    }
#ifndef _WIN32
    setFlag(system(made.m_handle), SOL_SOCKET, SO_REUSEADDR, 1);
#endif
    if (::bind(system(made.m_handle), reinterpret_cast<const sockaddr*>(&where), sizeof where) != 0 ||
        ::listen(system(made.m_handle), 128) != 0 || !makeNonBlocking(system(made.m_handle))) {
        error = lastErrorText();
        return {};
    }
    return made;
}

NativeSocket NativeSocket::connectTo(const std::string& address, std::uint16_t port, std::string& error)
{
    startSockets();
    sockaddr_in where;
    if (!parseAddress(address, port, where)) {
        error = "not an IPv4 address: " + address;
        return {};
    }
    NativeSocket made(static_cast<Handle>(::socket(AF_INET, SOCK_STREAM, 0)));
    if (!made.isValid() ||
        ::connect(system(made.m_handle), reinterpret_cast<const sockaddr*>(&where), sizeof where) != 0 ||
        !makeNonBlocking(system(made.m_handle))) {
        error = lastErrorText();
        return {};
    }
    return made;
}

NativeSocket NativeSocket::accept()
{
    NativeSocket made(static_cast<Handle>(::accept(system(m_handle), nullptr, nullptr)));
    if (!made.isValid() || !makeNonBlocking(system(made.m_handle)))
        return {};
    setFlag(system(made.m_handle), IPPROTO_TCP, TCP_NODELAY, 1);
    return made;
}

std::uint16_t NativeSocket::localPort() const
{
    sockaddr_in name{};
    socklen_t length = sizeof name;
    ::getsockname(system(m_handle), reinterpret_cast<sockaddr*>(&name), &length);
    return ntohs(name.sin_port);
}

std::string NativeSocket::localAddress() const
{
    sockaddr_in name{};
    socklen_t length = sizeof name;
    ::getsockname(system(m_handle), reinterpret_cast<sockaddr*>(&name), &length);
    return addressText(name);
}

std::string NativeSocket::peerAddress() const
{
    sockaddr_in name{};
    socklen_t length = sizeof name;
    ::getpeername(system(m_handle), reinterpret_cast<sockaddr*>(&name), &length);
    return addressText(name) + ":" + std::to_string(ntohs(name.sin_port));
}

IoResult NativeSocket::read(char* data, std::size_t size)
{
    for (;;) {
        const auto got = ::recv(system(m_handle), data, static_cast<Length>(size), 0);
        if (got > 0)
            return {IoStatus::Done, static_cast<std::size_t>(got)};
        if (got < 0 && interrupted())
            continue;
        return {got < 0 && wouldBlock() ? IoStatus::WouldBlock : IoStatus::Closed, 0};
    }
}

IoResult NativeSocket::write(const char* data, std::size_t size)
{
    for (;;) {
        const auto sent = ::send(system(m_handle), data, static_cast<Length>(size), sendFlags);
        if (sent >= 0)
            return {IoStatus::Done, static_cast<std::size_t>(sent)};
        if (interrupted())
            continue;
        return {wouldBlock() ? IoStatus::WouldBlock : IoStatus::Closed, 0};
    }
}

unsigned NativeSocket::wait(unsigned wanted, int timeoutMs) const
{
    PollEntry entry{};
    entry.fd = system(m_handle);
    if (wanted & ByteStream::Readable)
        entry.events |= POLLIN;
    if (wanted & ByteStream::Writable)
        entry.events |= POLLOUT;
    if (pollOne(entry, timeoutMs) <= 0)
        return ByteStream::Nothing;
    unsigned ready = ByteStream::Nothing;
    if (entry.revents & (POLLIN | POLLHUP | POLLERR))
        ready |= ByteStream::Readable;
    if (entry.revents & (POLLOUT | POLLERR))
        ready |= ByteStream::Writable;
    return ready & (wanted | ByteStream::Readable);
}

std::size_t NativeSocket::unsentBytes() const
{
#ifdef __linux__
    int unsent = 0;
    if (::ioctl(system(m_handle), SIOCOUTQ, &unsent) == 0)
        return static_cast<std::size_t>(std::max(unsent, 0));
#endif
    return 0;
}

void NativeSocket::finish()
{
#ifdef _WIN32
    ::shutdown(system(m_handle), SD_SEND);
#else
    ::shutdown(system(m_handle), SHUT_WR);
#endif
}

void NativeSocket::reset()
{
    linger hard{};
    hard.l_onoff = 1;
    hard.l_linger = 0;
    ::setsockopt(system(m_handle), SOL_SOCKET, SO_LINGER, reinterpret_cast<const char*>(&hard), sizeof hard);
    close();
}

} // namespace recorder_sim
