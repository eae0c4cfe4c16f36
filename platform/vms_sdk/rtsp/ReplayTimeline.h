#pragma once

#include "RtpClock.h"
#include "RtpPacket.h"

#include <cstdint>

namespace vms_sdk::rtsp {

/// Gives each packet of one track its time in the footage. Sources, best first:
///
/// 1. the NTP time of the replay extension, on every packet, on the first of an access unit, or on the very first only;
/// 2. an RTCP sender report that is near enough to what was asked for to be on the recording's clock;
/// 3. the `RTP-Info` of PLAY: its RTP time is the begin of the answered range;
/// 4. the begin of the range, or the other track's time, for the first packet.
///
/// Between two anchors times follow RTP time exactly, so that the spacing of frames has no jitter; a new anchor is
/// taken when the recorder's own time is more than maxDriftNs away.
class ReplayTimeline
{
public:
    static constexpr std::int64_t maxDriftNs = 15'000'000;

    explicit ReplayTimeline(std::uint32_t clockRate);

    /// Begin of what PLAY answered or was asked for, ns since 1970. Reports farther than `believableNs` off it are a
    /// server's wall clock and are not believed.
    void setRangeBegin(std::int64_t beginNs, std::int64_t believableNs);
    /// A live stream: times are those of arrival until a report tells the device's own. Corrections are then spread
    /// over the frames that follow, so that no frame is timed before one that was captured earlier.
    void setLive() { m_isLive = true; }
    void setRtpInfo(std::uint32_t rtpTime);
    /// A new PLAY: RTP time may start anywhere. `resumeNs` is where the footage goes on when the packets don't tell.
    void restart(std::int64_t resumeNs);

    void senderReport(std::uint64_t ntpTime, std::uint32_t rtpTime);

    bool isAnchored() const { return m_source != Source::None; }
    /// Time of a packet, ns since 1970. `arrivalHintNs` is used when nothing else tells: the time at which other tracks
    /// are.
    std::int64_t packetTime(const RtpPacket& packet, std::int64_t arrivalHintNs);

private:
    enum class Source : std::uint8_t { None, FirstPacket, RtpInfo, SenderReport, Extension };

    void anchor(Source source, std::int64_t rtp, std::int64_t timeNs);
    std::int64_t predicted(std::int64_t rtp) const;
    std::int64_t slewNs(std::int64_t sinceAnchorNs) const;
    bool isFarFromAnchor(std::int64_t rtp) const;
    bool isBelievable(std::int64_t timeNs) const;

    std::uint32_t m_clockRate;
    RtpClock m_clock;
    Source m_source = Source::None;
    std::int64_t m_anchorRtp = 0;
    std::int64_t m_anchorNs = 0;
    bool m_isLive = false;
    std::int64_t m_slewNs = 0; ///< what the anchor was corrected by, live

    std::int64_t m_rangeBeginNs = 0;
    std::int64_t m_believableNs = 0;
    bool m_hasRtpInfo = false;
    std::uint32_t m_rtpInfoTime = 0;
    bool m_hasReport = false;
    std::uint64_t m_reportNtp = 0;
    std::uint32_t m_reportRtp = 0;

    bool m_cached = false;
    std::uint32_t m_cachedTimestamp = 0;
    std::int64_t m_cachedNs = 0;
};

} // namespace vms_sdk::rtsp
