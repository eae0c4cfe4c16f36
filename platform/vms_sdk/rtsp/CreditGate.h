#pragma once

#include <algorithm>
#include <cstdint>

namespace vms_sdk::rtsp {

/// Counts what was signalled and not yet given back. While it is closed the socket is not read and TCP slows the peer
/// down.
class CreditGate
{
public:
    explicit CreditGate(std::int64_t limitBytes)
        : m_limitBytes(std::max<std::int64_t>(limitBytes, 1))
    {}

    bool isClosed() const { return m_outstandingBytes >= m_limitBytes; }
    bool isHalfOpen() const { return m_outstandingBytes <= m_limitBytes / 2; }
    void spend(std::int64_t bytes) { m_outstandingBytes += bytes; }
    /// More than was spent is not saved up.
    void giveBack(std::int64_t bytes)
    {
        m_outstandingBytes = std::max<std::int64_t>(m_outstandingBytes - std::max<std::int64_t>(bytes, 0), 0);
    }
    std::int64_t outstandingBytes() const { return m_outstandingBytes; }

private:
    std::int64_t m_limitBytes;
    std::int64_t m_outstandingBytes = 0;
};

} // namespace vms_sdk::rtsp
