#pragma once

#include <cstdint>

namespace vms_sdk::rtsp {

/// Judges the sequence numbers of one RTP source. RTP over TCP loses nothing between two healthy ends, yet recorders
/// drop packets when their own buffers are full, and a source may start anew.
class SequenceTracker
{
public:
    enum class Verdict : std::uint8_t {
        InOrder,
        Lost,    ///< packets are missing right before this one
        Restart, ///< another source, or a jump too far to be a loss
        Drop,    ///< a duplicate, or a packet that comes when its successors were counted already
    };

    Verdict update(std::uint16_t sequence, std::uint32_t ssrc);
    /// Others should have come before this packet.
    bool isAhead(std::uint16_t sequence, std::uint32_t ssrc) const;
    std::uint16_t highest() const { return m_highest; }
    /// The next packet starts a new count, as after PLAY.
    void reset() { m_started = false; }

    std::uint64_t lost() const { return m_lost; }
    std::uint64_t duplicates() const { return m_duplicates; }
    std::uint64_t reordered() const { return m_reordered; }

private:
    void start(std::uint16_t sequence, std::uint32_t ssrc);

    bool m_started = false;
    std::uint16_t m_highest = 0;
    std::uint32_t m_ssrc = 0;
    std::uint64_t m_seen = 0; ///< bit n: m_highest - n has come
    std::uint64_t m_lost = 0;
    std::uint64_t m_duplicates = 0;
    std::uint64_t m_reordered = 0;
};

} // namespace vms_sdk::rtsp
