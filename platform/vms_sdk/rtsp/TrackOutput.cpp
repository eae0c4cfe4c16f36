#include "TrackOutput.h"

#include <algorithm>
#include <cstdlib>

namespace vms_sdk::rtsp {
namespace {

/// Without a word of the recorder, a jump is a gap when it is longer than this and than several frames.
constexpr std::int64_t minSilentGapNs = 1'500'000'000;
constexpr std::int64_t silentGapFrames = 5;
/// The distance of frames is learned anew over so many of them, so that it follows a recorder that slows down.
constexpr int intervalWindowFrames = 32;

} // namespace

TrackOutput::TrackOutput(std::uint8_t track, StreamBatcher& batcher)
    : m_track(track)
    , m_batcher(batcher)
{}

void TrackOutput::beginUnit()
{
    m_flags = Flags();
    m_reopened = false;
    m_batcher.beginUnit();
}

void TrackOutput::closeUnit(std::int64_t timeNs, bool key, std::uint32_t durationUs)
{
    if (m_reopened) {
        m_lastHeader.flags = static_cast<std::uint8_t>(m_lastHeader.flags | (key ? vav::KeyFrame : 0) |
                                                       (m_flags.terminal ? vav::EndOfRecording : 0));
        m_terminal = m_terminal || m_flags.terminal;
        m_batcher.closeUnit(m_lastHeader);
        return;
    }
    if (!m_batcher.hasStreamInfo() || skips(timeNs) || !isWanted(key)) {
        keepFlags();
        m_batcher.dropUnit();
        return;
    }
    m_lastHeader = makeHeader(timeNs, key, durationUs);
    m_batcher.closeUnit(m_lastHeader);
}

void TrackOutput::dropUnit()
{
    keepFlags();
    m_batcher.dropUnit();
    noteLost(1);
}

/// What the recorder said with an access unit that is not delivered holds for the next one, or for the track.
void TrackOutput::keepFlags()
{
    m_pendingDiscontinuity = m_pendingDiscontinuity || m_flags.discontinuity;
    m_sectionEnded = m_sectionEnded || m_flags.endOfSection;
    m_terminal = m_terminal || m_flags.terminal;
}

bool TrackOutput::reopenUnit()
{
    m_reopened = m_batcher.reopenUnit();
    return m_reopened;
}

void TrackOutput::frame(std::int64_t timeNs, std::uint32_t durationUs, const std::uint8_t* data, std::size_t bytes)
{
    if (!skips(timeNs) && isWanted(true)) {
        vav::FrameHeader header = makeHeader(timeNs, true, durationUs);
        header.payloadBytes = static_cast<std::uint32_t>(bytes);
        m_batcher.appendFrame(header, data);
    } else {
        keepFlags();
    }
    m_flags = Flags();
}

void TrackOutput::resumed(bool fromLastTime)
{
    m_firstAfterPlay = true;
    m_skipping = fromLastTime && m_frames > 0;
}

void TrackOutput::sought(bool isVideo)
{
    m_flags = Flags();
    m_newestNs = 0;
    m_recentCount = 0;
    m_lost = 0;
    m_pendingDiscontinuity = false;
    m_sectionEnded = false;
    m_terminal = false;
    m_firstAfterPlay = true;
    m_skipping = false;
    m_startsAnew = true;
    m_awaitsKey = isVideo;
}

void TrackOutput::setDropping(bool dropping, bool isVideo)
{
    m_awaitsKey = isVideo && (m_awaitsKey || m_dropping) && !dropping;
    m_dropping = dropping;
}

bool TrackOutput::isWanted(bool key)
{
    if (m_keyFramesOnly && !(m_isVideo && key))
        return false;
    if (!m_dropping && (!m_awaitsKey || key)) {
        m_awaitsKey = false;
        return true;
    }
    if (!m_startsAnew) {
        noteLost(1);
        m_flags.discontinuity = true;
        m_firstAfterPlay = false;
    }
    return false;
}

/// After a resume the recorder begins at the key frame before the asked time. The frames come in the same order as
/// before: new is what follows the frame that was delivered last.
bool TrackOutput::skips(std::int64_t timeNs)
{
    if (!m_skipping)
        return false;
    const std::int64_t toleranceNs = m_intervalNs / 2;
    if (timeNs > m_newestNs + toleranceNs) {
        m_skipping = false;
        return false;
    }
    if (std::llabs(timeNs - m_lastDecodedNs) <= toleranceNs)
        m_skipping = false;
    return true;
}

vav::FrameHeader TrackOutput::makeHeader(std::int64_t timeNs, bool key, std::uint32_t durationUs)
{
    vav::FrameHeader header;
    header.track = m_track;
    header.timeNs = timeNs;
    header.durationUs = durationUs;
    header.flags = key ? vav::KeyFrame : 0;
    if (m_lost > 0) {
        header.flags |= vav::LossBefore;
        header.lostBefore = m_lost;
        m_totalLost += m_lost;
        m_lost = 0;
    }
    if (!m_startsAnew)
        judgeGap(header);
    else if (m_frames > 0)
        header.flags |= vav::Discontinuity;
    else
        m_firstTimeNs = timeNs;
    if (m_flags.terminal) {
        header.flags |= vav::EndOfRecording;
        m_terminal = true;
    }
    m_sectionEnded = m_flags.endOfSection;
    m_pendingDiscontinuity = false;
    m_firstAfterPlay = false;
    learnInterval(timeNs);
    m_startsAnew = false;
    m_recentNs[m_recentCount++ % m_recentNs.size()] = timeNs;
    m_lastDecodedNs = timeNs;
    ++m_frames;
    return header;
}

void TrackOutput::judgeGap(vav::FrameHeader& header)
{
    if (m_keyFramesOnly)
        return;
    const std::int64_t jumpNs = header.timeNs - m_newestNs;
    const std::int64_t told = m_intervalNs * 2;
    const bool silentGap = jumpNs > std::max(minSilentGapNs, m_intervalNs * silentGapFrames) && m_intervalNs > 0;
    const bool discontinuity = m_flags.discontinuity || m_pendingDiscontinuity;
    const bool toldGap = (discontinuity && !m_firstAfterPlay) || (m_sectionEnded && jumpNs > told);
    if (!silentGap && !toldGap)
        return;
    header.flags |= vav::Discontinuity;
    m_recentCount = 0;
    if (jumpNs > told)
        header.gapBeginNs = m_newestNs + m_intervalNs;
}

std::int64_t TrackOutput::widestStepNs() const
{
    std::array<std::int64_t, 8> times = m_recentNs;
    const auto end = times.begin() + static_cast<std::ptrdiff_t>(std::min(m_recentCount, times.size()));
    std::sort(times.begin(), end);
    std::int64_t widest = 0;
    for (auto time = times.begin(); time != end && time + 1 != end; ++time)
        widest = std::max(widest, time[1] - time[0]);
    return widest;
}

void TrackOutput::learnInterval(std::int64_t timeNs)
{
    if (m_startsAnew) {
        m_newestNs = timeNs;
        return;
    }
    // In decode order, pictures that lean on later ones jump to and fro: their least distance is that of the frames.
    const std::int64_t distance = std::llabs(timeNs - m_lastDecodedNs);
    if (distance > 0 && (m_intervalNs == 0 || distance < std::max(m_intervalNs * silentGapFrames, minSilentGapNs))) {
        m_leastDistanceNs = m_leastDistanceNs == 0 ? distance : std::min(m_leastDistanceNs, distance);
        m_intervalNs = m_intervalNs == 0 ? distance : std::min(m_intervalNs, distance);
        if (++m_distances == intervalWindowFrames) {
            m_intervalNs = m_leastDistanceNs;
            m_leastDistanceNs = 0;
            m_distances = 0;
        }
    }
    const std::int64_t step = timeNs - m_newestNs;
    if (step >= 0) {
        m_newestNs = timeNs;
        return;
    }
    // A step back of seconds is a recorder that jumped, no picture order.
    if (-step < 2'000'000'000)
        m_reorderNs = std::max(m_reorderNs, -step);
    else
        m_newestNs = timeNs;
}

} // namespace vms_sdk::rtsp
