#include "net/TcpStream.h"

#include <chrono>
#include <thread>
#include <utility>

namespace recorder_sim {

void drainSocket(const NativeSocket& socket, int timeoutMs)
{
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeoutMs);
    while (socket.unsentBytes() > 0 && std::chrono::steady_clock::now() < deadline)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

TcpStream::TcpStream(NativeSocket socket)
    : m_socket(std::move(socket))
{}

IoResult TcpStream::read(char* data, std::size_t size)
{
    return m_socket.isValid() ? m_socket.read(data, size) : IoResult{IoStatus::Closed, 0};
}

IoResult TcpStream::write(const char* data, std::size_t size)
{
    return m_socket.isValid() ? m_socket.write(data, size) : IoResult{IoStatus::Closed, 0};
}

unsigned TcpStream::wait(unsigned wanted, int timeoutMs)
{
    return m_socket.isValid() ? m_socket.wait(wanted, timeoutMs) : wanted;
}

void TcpStream::drain(int timeoutMs)
{
    if (m_socket.isValid())
        drainSocket(m_socket, timeoutMs);
}

void TcpStream::finish()
{
    if (m_socket.isValid())
        m_socket.finish();
}

void TcpStream::reset()
{
    if (m_socket.isValid())
        m_socket.reset();
}

std::string TcpStream::localHost() const
{
    return m_socket.isValid() ? m_socket.localAddress() : std::string();
}

std::string TcpStream::peer() const
{
    return m_socket.isValid() ? m_socket.peerAddress() : std::string();
}

} // namespace recorder_sim
