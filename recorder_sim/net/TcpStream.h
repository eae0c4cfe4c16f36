#pragma once

#include "net/ByteStream.h"
#include "net/NativeSocket.h"

namespace recorder_sim {

/// A plain TCP connection.
class TcpStream final : public ByteStream
{
public:
    explicit TcpStream(NativeSocket socket);

    IoResult read(char* data, std::size_t size) override;
    IoResult write(const char* data, std::size_t size) override;
    unsigned wait(unsigned wanted, int timeoutMs) override;
    void drain(int timeoutMs) override;
    void finish() override;
    void reset() override;
    bool isEncrypted() const override { return false; }
    std::string localHost() const override;
    std::string peer() const override;

private:
    NativeSocket m_socket;
};

/// Waits until a socket's send queue is empty, at most that long.
void drainSocket(const NativeSocket& socket, int timeoutMs);

} // namespace recorder_sim
