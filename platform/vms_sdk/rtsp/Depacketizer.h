#pragma once

#include "RtpPacket.h"

#include <cstddef>
#include <cstdint>

namespace vms_sdk::rtsp {

/// One RTP packet on its way to a depacketizer.
struct TimedPacket
{
    const RtpPacket& rtp;
    std::int64_t timeNs;
    bool lossBefore; ///< packets are missing right before this one
};

/// Limits that a peer must not pass; the connection ends when it does.
enum class MediaLimit : std::uint8_t {
    None,
    UnitTooLarge,    ///< access unit beyond vav::maxPayloadBytes
    TooManyNalUnits, ///< more than AccessUnitAssembler::maxNalUnits in one access unit
};

/// Makes access units of the RTP packets of one track and hands them to its TrackOutput. Packets that lie about their
/// lengths are dropped and break the access unit to which they belong.
class Depacketizer
{
public:
    virtual ~Depacketizer() = default;

    virtual MediaLimit push(const TimedPacket& packet) = 0;
    /// The stream is over: the access unit under construction is delivered when it is whole.
    virtual void finish() = 0;
    /// The stream was interrupted: the access unit under construction is dropped.
    virtual void interrupt() = 0;
};

} // namespace vms_sdk::rtsp
