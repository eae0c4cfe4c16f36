#include "net/ConnectionServer.h"

#include "net/TcpStream.h"

#include <chrono>
#include <utility>

namespace recorder_sim {
namespace {

constexpr std::size_t maxConnections = 256;

std::int64_t steadyMs()
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

} // namespace

ConnectionServer::ConnectionServer(Handler handler, std::shared_ptr<TlsContext> tls)
    : m_handler(std::move(handler))
    , m_tls(std::move(tls))
{}

ConnectionServer::~ConnectionServer()
{
    stop();
}

bool ConnectionServer::listen(const std::string& address, std::uint16_t port, std::string& error)
{
    m_listener = NativeSocket::listenOn(address, port, error);
    if (!m_listener.isValid())
        return false;
    m_address = address;
    m_port = m_listener.localPort();
    m_thread = std::thread([this] { run(); });
    return true;
}

void ConnectionServer::goOffline(int durationMs)
{
    m_offlineUntilMs = steadyMs() + durationMs;
}

void ConnectionServer::stop()
{
    m_stopping = true;
    if (m_thread.joinable())
        m_thread.join();
}

void ConnectionServer::run()
{
    while (!m_stopping) {
        if (steadyMs() < m_offlineUntilMs) {
            m_listener.close();
            reap(true);
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
            continue;
        }
        if (!m_listener.isValid()) {
            std::string error;
            m_listener = NativeSocket::listenOn(m_address, m_port, error);
            if (!m_listener.isValid()) {
                std::this_thread::sleep_for(std::chrono::milliseconds(20));
                continue;
            }
        }
        if (m_listener.wait(ByteStream::Readable, 50) & ByteStream::Readable) {
            NativeSocket socket = m_listener.accept();
            if (socket.isValid())
                serve(std::move(socket));
        }
        reap(false);
    }
    m_listener.close();
    reap(true);
}

void ConnectionServer::serve(NativeSocket socket)
{
    ++m_accepted;
    if (m_connections.size() >= maxConnections) {
        socket.reset();
        return;
    }
    Connection& connection = m_connections.emplace_back();
    connection.thread = std::thread([this, &connection, moved = std::move(socket)]() mutable {
        ByteStreamPtr stream = m_tls ? m_tls->accept(std::move(moved), connection.stopping)
                                     : std::make_unique<TcpStream>(std::move(moved));
        if (stream)
            m_handler(std::move(stream), connection.stopping);
        connection.finished = true;
    });
}

void ConnectionServer::reap(bool all)
{
    if (all) {
        for (Connection& connection : m_connections)
            connection.stopping = true;
    }
    for (auto at = m_connections.begin(); at != m_connections.end();) {
        if (all || at->finished) {
            at->thread.join();
            at = m_connections.erase(at);
        } else {
            ++at;
        }
    }
}

} // namespace recorder_sim
