#pragma once

#include <cstddef>
#include <cstdint>

namespace vms_sdk::rtsp {

/// The replay header extension (ONVIF Streaming clause 6.3, extension 0xABAC).
struct ReplayExtension
{
    bool present = false;
    bool cleanPoint = false;    ///< C: decoding can start here
    bool endOfSection = false;  ///< E: last access unit of a contiguous section
    bool discontinuity = false; ///< D: the footage before this access unit is missing
    bool terminal = false;      ///< T: last access unit of the track
    std::uint64_t ntpTime = 0;  ///< 32.32 fixed point seconds since 1900
};

/// One RTP packet as a view into the received bytes (RFC 3550 clause 5.1): CSRC list, extension and padding are taken
/// off.
struct RtpPacket
{
    std::uint8_t payloadType = 0;
    bool marker = false;
    std::uint16_t sequence = 0;
    std::uint32_t timestamp = 0;
    std::uint32_t ssrc = 0;
    const std::uint8_t* payload = nullptr;
    std::size_t payloadBytes = 0;
    ReplayExtension replay;
};

/// False when the bytes are no RTP packet or its lengths lie.
bool parseRtpPacket(const std::uint8_t* data, std::size_t size, RtpPacket& packet);

/// NTP time as nanoseconds since 1970, to the nearest. Times before 1968 are taken to be of the era that begins in 2036
/// (RFC 2030).
std::int64_t ntpToUnixNs(std::uint64_t ntpTime);

} // namespace vms_sdk::rtsp
