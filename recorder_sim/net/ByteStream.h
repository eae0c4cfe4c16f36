#pragma once

#include <cstddef>
#include <memory>
#include <string>

namespace recorder_sim {

enum class IoStatus { Unknown, Done, WouldBlock, Closed };

struct IoResult
{
    IoStatus status = IoStatus::Unknown;
    std::size_t bytes = 0;
};

/// A connected, non-blocking byte stream: plain TCP or TLS. Used by the one thread that serves the connection and owned
/// by it. A failure of the network and the peer's end of stream are both Closed; nothing can be sent after either.
class ByteStream
{
public:
    enum Readiness : unsigned { Nothing = 0, Readable = 1, Writable = 2 };

    ByteStream() = default;
    ByteStream(const ByteStream&) = delete;
    ByteStream& operator=(const ByteStream&) = delete;
    virtual ~ByteStream() = default;

    virtual IoResult read(char* data, std::size_t size) = 0;
    virtual IoResult write(const char* data, std::size_t size) = 0;

    /// Waits until one of the wanted directions is ready or the time is over; returns what is ready.
    virtual unsigned wait(unsigned wanted, int timeoutMs) = 0;

    /// Waits until the peer's machine has taken everything that was written, at most that long.
    virtual void drain(int timeoutMs) = 0;
    virtual void finish() = 0; ///< ends our direction (FIN) and keeps reading possible
    virtual void reset() = 0;  ///< cuts the connection (RST)

    virtual bool isEncrypted() const = 0;
    virtual std::string localHost() const = 0; ///< the address the peer connected to, without port
    virtual std::string peer() const = 0;
};

using ByteStreamPtr = std::unique_ptr<ByteStream>;

} // namespace recorder_sim
