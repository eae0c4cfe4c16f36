#pragma once

#include "net/ByteStream.h"
#include "net/NativeSocket.h"
#include "net/TlsContext.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <string>
#include <thread>

namespace recorder_sim {

/// Listens on one port and serves each connection on a thread of its own (at most 256 at a time, further ones are
/// reset). The handler owns the stream and returns soon (100 ms) after `stopping` became true. Life: listen() once,
/// then stop() or the destructor, which both wait for every thread.
class ConnectionServer final
{
public:
    using Handler = std::function<void(ByteStreamPtr stream, const std::atomic<bool>& stopping)>;

    explicit ConnectionServer(Handler handler, std::shared_ptr<TlsContext> tls = nullptr);
    ~ConnectionServer();
    ConnectionServer(const ConnectionServer&) = delete;
    ConnectionServer& operator=(const ConnectionServer&) = delete;

    bool listen(const std::string& address, std::uint16_t port, std::string& error);
    std::uint16_t port() const { return m_port; }
    std::uint64_t acceptedConnections() const { return m_accepted; }

    /// Refuses connections for that long and ends those that stand, as a device that starts anew does.
    void goOffline(int durationMs);
    void stop();

private:
    struct Connection
    {
        std::thread thread;
        std::atomic<bool> stopping{false};
        std::atomic<bool> finished{false};
    };

    void run();
    void serve(NativeSocket socket);
    void reap(bool all);

    const Handler m_handler;
    const std::shared_ptr<TlsContext> m_tls;
    std::string m_address;
    std::uint16_t m_port = 0;
    std::atomic<bool> m_stopping{false};
    std::atomic<std::uint64_t> m_accepted{0};
    std::atomic<std::int64_t> m_offlineUntilMs{0}; ///< steady clock
    std::thread m_thread;

    // The accepting thread's own.
    NativeSocket m_listener;
    std::list<Connection> m_connections;
};

} // namespace recorder_sim
