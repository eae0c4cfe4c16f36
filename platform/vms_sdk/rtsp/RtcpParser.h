#pragma once

#include <cstddef>
#include <cstdint>

namespace vms_sdk::rtsp {

/// What a compound RTCP packet (RFC 3550 clause 6.4) tells a receiver of a recording.
struct RtcpReport
{
    bool hasSenderReport = false;
    std::uint32_t senderSsrc = 0;
    std::uint64_t ntpTime = 0; ///< 32.32 fixed point seconds since 1900
    std::uint32_t rtpTime = 0; ///< the same instant in RTP time
    bool bye = false;
};

/// False when a length lies; `report` then holds what stood before.
bool parseRtcp(const std::uint8_t* data, std::size_t size, RtcpReport& report);

} // namespace vms_sdk::rtsp
