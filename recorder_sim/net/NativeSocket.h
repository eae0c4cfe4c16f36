#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "net/ByteStream.h"

namespace recorder_sim {

/// One non-blocking TCP socket of the operating system, listening or connected; moves, closes itself. IPv4.
class NativeSocket final
{
public:
    using Handle = std::intptr_t;

    NativeSocket() = default;
    NativeSocket(NativeSocket&& other) noexcept;
    NativeSocket& operator=(NativeSocket&& other) noexcept;
    NativeSocket(const NativeSocket&) = delete;
    NativeSocket& operator=(const NativeSocket&) = delete;
    ~NativeSocket();

    /// Listens on address and port (0: any free one). Empty socket and a sentence in `error` on failure.
    static NativeSocket listenOn(const std::string& address, std::uint16_t port, std::string& error);
    static NativeSocket connectTo(const std::string& address, std::uint16_t port, std::string& error);

    bool isValid() const { return m_handle != invalidHandle; }
    Handle handle() const { return m_handle; }
    std::uint16_t localPort() const;
    std::string localAddress() const;
    std::string peerAddress() const; ///< address:port

    NativeSocket accept(); ///< empty when nobody waits
    IoResult read(char* data, std::size_t size);
    IoResult write(const char* data, std::size_t size);
    unsigned wait(unsigned wanted, int timeoutMs) const;
    std::size_t unsentBytes() const; ///< written and not yet acknowledged by the peer; 0 where that can't be told
    void finish();
    void reset();
    void close();

private:
    static constexpr Handle invalidHandle = -1;

    explicit NativeSocket(Handle handle);

    Handle m_handle = invalidHandle;
};

} // namespace recorder_sim
