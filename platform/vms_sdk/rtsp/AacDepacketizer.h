#pragma once

#include "Depacketizer.h"
#include "TrackOutput.h"

#include <vector>

namespace vms_sdk::rtsp {

/// RFC 3640 for AAC (modes AAC-hbr and AAC-lbr, not interleaved): any number of access units a packet, or one access
/// unit in fragments.
class AacDepacketizer final : public Depacketizer
{
public:
    struct Format
    {
        unsigned sizeLength = 13; ///< bits
        unsigned indexLength = 3;
        unsigned indexDeltaLength = 3;
        std::uint32_t clockRate = 0;
        std::uint32_t ticksPerUnit = 1024; ///< in RTP time
    };

    static constexpr std::size_t maxUnitBytes = 64 * 1024;

    AacDepacketizer(const Format& format, TrackOutput& output);

    MediaLimit push(const TimedPacket& packet) override;
    void finish() override { interrupt(); }
    void interrupt() override { m_fragment.clear(); }

private:
    struct Unit
    {
        std::size_t bytes;
        unsigned delta; ///< units of another packet that stand between
    };

    bool readHeaders(const std::uint8_t* data, std::size_t headerBits, std::vector<Unit>& units) const;
    void pushFragment(const TimedPacket& packet, const std::uint8_t* data, std::size_t bytes, std::size_t unitBytes);
    std::uint32_t durationUs() const;

    Format m_format;
    TrackOutput& m_output;
    std::vector<Unit> m_units; ///< of the present packet
    std::vector<std::uint8_t> m_fragment;
    std::size_t m_fragmentUnitBytes = 0;
    std::uint32_t m_fragmentTimestamp = 0;
    std::int64_t m_fragmentTimeNs = 0;
};

} // namespace vms_sdk::rtsp
