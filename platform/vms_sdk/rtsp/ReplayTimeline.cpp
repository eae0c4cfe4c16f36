#include "ReplayTimeline.h"

#include <algorithm>
#include <cstdlib>

namespace vms_sdk::rtsp {
namespace {

/// A sender report that moves the timeline by more than this can only be another clock.
constexpr std::int64_t maxReportCorrectionNs = 10'000'000'000;
/// Clocks drift by less than a hundredth. Reports that go slower or faster than RTP time are a server's wall clock,
/// while it sends the recording at a pace of its own.
constexpr std::int64_t maxDriftShare = 100;
/// A mapping that is farther off the range that PLAY answered is of the time before the pause.
constexpr std::int64_t maxResumeErrorNs = 2'000'000'000;
/// Keeps sums of hostile times inside 64 bits: anchors within 146 years of 1970, and ten years from an anchor at most.
constexpr std::int64_t maxAnchorNs = std::int64_t{1} << 62;
constexpr std::int64_t maxSpanSeconds = 10LL * 366 * 86'400;

} // namespace

ReplayTimeline::ReplayTimeline(std::uint32_t clockRate)
    : m_clockRate(clockRate > 0 ? clockRate : 90'000)
{}

void ReplayTimeline::setRangeBegin(std::int64_t beginNs, std::int64_t believableNs)
{
    m_rangeBeginNs = beginNs;
    m_believableNs = believableNs;
}

void ReplayTimeline::setRtpInfo(std::uint32_t rtpTime)
{
    m_hasRtpInfo = true;
    m_rtpInfoTime = rtpTime;
    if (m_source == Source::None || m_source == Source::Extension || m_rangeBeginNs == 0)
        return;
    // PLAY after a pause: the mapping in use stays as long as it agrees, because it is exact.
    const std::int64_t rtp = m_clock.peek(rtpTime);
    if (isFarFromAnchor(rtp) || std::llabs(predicted(rtp) - m_rangeBeginNs) > maxResumeErrorNs)
        anchor(Source::RtpInfo, rtp, m_rangeBeginNs);
}

void ReplayTimeline::restart(std::int64_t resumeNs)
{
    m_clock = RtpClock();
    m_source = Source::None;
    m_rangeBeginNs = resumeNs;
    m_hasRtpInfo = false;
    m_hasReport = false;
    m_cached = false;
}

void ReplayTimeline::senderReport(std::uint64_t ntpTime, std::uint32_t rtpTime)
{
    if (m_source == Source::Extension)
        return;
    const std::int64_t reportNs = ntpToUnixNs(ntpTime);
    if (m_source == Source::None) {
        if (isBelievable(reportNs)) {
            m_hasReport = true;
            m_reportNtp = ntpTime;
            m_reportRtp = rtpTime;
        }
        return;
    }
    const std::int64_t rtp = m_clock.peek(rtpTime);
    if (isFarFromAnchor(rtp))
        return;
    const std::int64_t offset = reportNs - predicted(rtp);
    if (m_isLive) {
        if (std::llabs(offset) > maxDriftNs && std::llabs(offset) <= maxReportCorrectionNs) {
            anchor(Source::SenderReport, rtp, reportNs);
            m_slewNs = -offset;
        }
        return;
    }
    if (m_source == Source::FirstPacket && std::llabs(offset) <= maxReportCorrectionNs) {
        // The first report puts the tracks in step.
        anchor(Source::SenderReport, rtp, reportNs);
    } else if (m_source == Source::SenderReport && std::llabs(offset) > maxDriftNs &&
               std::llabs(offset) <= std::llabs(reportNs - m_anchorNs) / maxDriftShare) {
        anchor(Source::SenderReport, rtp, reportNs);
    }
}

std::int64_t ReplayTimeline::packetTime(const RtpPacket& packet, std::int64_t arrivalHintNs)
{
    if (m_cached && packet.timestamp == m_cachedTimestamp && (!packet.replay.present || m_source == Source::Extension))
        return m_cachedNs;

    const std::int64_t rtp = m_clock.unwrap(packet.timestamp);
    if (m_source != Source::None && isFarFromAnchor(rtp))
        m_source = Source::None;
    if (packet.replay.present && packet.replay.ntpTime != 0) {
        const std::int64_t ntpNs = ntpToUnixNs(packet.replay.ntpTime);
        if (m_source != Source::Extension || std::llabs(ntpNs - predicted(rtp)) > maxDriftNs)
            anchor(Source::Extension, rtp, ntpNs);
    } else if (m_source == Source::None) {
        if (m_hasReport) {
            anchor(Source::SenderReport, m_clock.peek(m_reportRtp), ntpToUnixNs(m_reportNtp));
        } else if (m_hasRtpInfo && m_rangeBeginNs != 0) {
            anchor(Source::RtpInfo, m_clock.peek(m_rtpInfoTime), m_rangeBeginNs);
        } else {
            anchor(Source::FirstPacket, rtp, arrivalHintNs != 0 ? arrivalHintNs : m_rangeBeginNs);
        }
    }
    m_cached = true;
    m_cachedTimestamp = packet.timestamp;
    m_cachedNs = predicted(rtp);
    return m_cachedNs;
}

void ReplayTimeline::anchor(Source source, std::int64_t rtp, std::int64_t timeNs)
{
    m_source = source;
    m_anchorRtp = rtp;
    m_anchorNs = std::clamp<std::int64_t>(timeNs, 0, maxAnchorNs);
    m_slewNs = 0;
    m_cached = false;
}

std::int64_t ReplayTimeline::predicted(std::int64_t rtp) const
{
    const std::int64_t sinceAnchorNs = ticksToNs(rtp - m_anchorRtp, m_clockRate);
    return m_anchorNs + sinceAnchorNs + slewNs(sinceAnchorNs);
}

/// What is left of the correction: it shrinks by a quarter of the time that passes, which keeps the frames' order.
std::int64_t ReplayTimeline::slewNs(std::int64_t sinceAnchorNs) const
{
    const std::int64_t restNs =
        std::max<std::int64_t>(std::llabs(m_slewNs) - std::max<std::int64_t>(sinceAnchorNs, 0) / 4, 0);
    return m_slewNs < 0 ? -restNs : restNs;
}

bool ReplayTimeline::isFarFromAnchor(std::int64_t rtp) const
{
    return std::llabs(rtp - m_anchorRtp) > maxSpanSeconds * static_cast<std::int64_t>(m_clockRate);
}

bool ReplayTimeline::isBelievable(std::int64_t timeNs) const
{
    return m_rangeBeginNs == 0 || std::llabs(timeNs - m_rangeBeginNs) <= m_believableNs;
}

} // namespace vms_sdk::rtsp
