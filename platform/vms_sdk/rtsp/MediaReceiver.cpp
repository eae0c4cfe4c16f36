#include "MediaReceiver.h"

#include "ReorderQueue.h"
#include "RtcpParser.h"

#include <algorithm>
#include <utility>

namespace vms_sdk::rtsp {

struct MediaReceiver::Track
{
    Track(const MediaFormat& format, std::uint32_t rtpClockRate, std::uint8_t number, StreamBatcher& batcher,
          StreamDescription& description)
        : isVideo(format.isVideo())
        , timeline(rtpClockRate)
        , output(number, batcher)
        , depacketizer(makeDepacketizer(format, output, description))
    {}

    bool isVideo;
    std::uint8_t payloadType = 0;
    std::uint8_t channel = 0;
    bool bye = false;
    SequenceTracker sequence;
    ReorderQueue early;
    std::uint64_t reordered = 0;
    ReplayTimeline timeline;
    TrackOutput output;
    std::unique_ptr<Depacketizer> depacketizer;
};

MediaReceiver::MediaReceiver(StreamBatcher::Emit emit, const vav::StreamInfo& names)
    : m_batcher(std::move(emit))
    , m_description(m_batcher, names)
{}

MediaReceiver::~MediaReceiver() = default;

void MediaReceiver::addTrack(const MediaFormat& format, std::uint8_t payloadType, std::uint8_t channel)
{
    MediaFormat numbered = format;
    numbered.track.track = static_cast<std::uint8_t>(m_tracks.size());
    const std::uint32_t rtpClockRate =
        format.track.codec == vav::Codec::Aac ? format.aac.clockRate : format.track.clockRate;
    auto track = std::make_unique<Track>(numbered, rtpClockRate, numbered.track.track, m_batcher, m_description);
    track->payloadType = payloadType;
    track->channel = channel;
    if (m_arrivalClock)
        track->timeline.setLive();
    m_tracks.push_back(std::move(track));
    m_description.setTrack(numbered.track, numbered.isComplete());
}

void MediaReceiver::setRangeBegin(std::int64_t beginNs, std::int64_t believableNs)
{
    for (const auto& track : m_tracks)
        track->timeline.setRangeBegin(beginNs, believableNs);
}

void MediaReceiver::setRtpInfo(std::size_t track, std::uint32_t rtpTime)
{
    if (track < m_tracks.size())
        m_tracks[track]->timeline.setRtpInfo(rtpTime);
}

void MediaReceiver::resumed(bool fromLastTime)
{
    for (const auto& track : m_tracks) {
        track->sequence.reset();
        track->early.clear();
        track->bye = false;
        track->output.resumed(fromLastTime);
        if (fromLastTime) {
            track->depacketizer->interrupt();
            track->timeline.restart(m_newestNs);
        }
    }
}

void MediaReceiver::seek(std::int64_t beginNs)
{
    for (const auto& track : m_tracks) {
        track->sequence.reset();
        track->early.clear();
        track->bye = false;
        track->depacketizer->interrupt();
        track->output.sought(track->isVideo);
        track->timeline.restart(beginNs);
    }
    m_newestNs = 0;
    m_batcher.discard();
}

void MediaReceiver::setArrivalClock(ArrivalClock clock)
{
    m_arrivalClock = std::move(clock);
}

void MediaReceiver::setKeyFramesOnly(bool keyFramesOnly)
{
    for (const auto& track : m_tracks)
        track->output.setKeyFramesOnly(keyFramesOnly, track->isVideo);
}

void MediaReceiver::setDropping(bool dropping)
{
    for (const auto& track : m_tracks)
        track->output.setDropping(dropping, track->isVideo);
}

MediaLimit MediaReceiver::packet(std::uint8_t channel, const std::uint8_t* data, std::size_t bytes)
{
    for (const auto& track : m_tracks) {
        if (channel == track->channel)
            return rtp(*track, data, bytes);
        if (channel == track->channel + 1) {
            rtcp(*track, data, bytes);
            return MediaLimit::None;
        }
    }
    return MediaLimit::None;
}

MediaLimit MediaReceiver::rtp(Track& track, const std::uint8_t* data, std::size_t bytes)
{
    RtpPacket packet;
    if (!parseRtpPacket(data, bytes, packet) || packet.payloadType != track.payloadType)
        return MediaLimit::None;
    ++m_packets;
    if (track.sequence.isAhead(packet.sequence, packet.ssrc)) {
        track.early.add(packet.sequence, data, bytes);
        return track.early.isFull() ? takeQueued(track, false) : MediaLimit::None;
    }
    const MediaLimit limit = takeOrdered(track, packet);
    if (track.early.isEmpty() || limit != MediaLimit::None)
        return limit;
    return takeQueued(track, true);
}

MediaLimit MediaReceiver::takeOrdered(Track& track, const RtpPacket& packet)
{
    bool loss = false;
    switch (track.sequence.update(packet.sequence, packet.ssrc)) {
    case SequenceTracker::Verdict::InOrder:
        break;
    case SequenceTracker::Verdict::Lost:
        loss = true;
        break;
    case SequenceTracker::Verdict::Restart:
        track.early.clear();
        track.depacketizer->interrupt();
        break;
    case SequenceTracker::Verdict::Drop:
        return MediaLimit::None;
    }
    const bool isByArrival = m_arrivalClock && !track.timeline.isAnchored();
    const std::int64_t timeNs = track.timeline.packetTime(packet, isByArrival ? m_arrivalClock() : m_newestNs);
    const MediaLimit limit = track.depacketizer->push({packet, timeNs, loss});
    m_newestNs = std::max(m_newestNs, track.output.lastTimeNs());
    return limit;
}

/// Takes what is next in order; without waiting for the missing ones, all that there is.
MediaLimit MediaReceiver::takeQueued(Track& track, bool waitForMissing)
{
    MediaLimit limit = MediaLimit::None;
    std::vector<std::uint8_t> bytes;
    while (!track.early.isEmpty() && limit == MediaLimit::None) {
        const std::uint16_t highest = track.sequence.highest();
        if (track.early.take(static_cast<std::uint16_t>(highest + 1), bytes))
            ++track.reordered;
        else if (waitForMissing)
            break;
        else
            bytes = track.early.takeFirstAfter(highest);
        RtpPacket packet;
        if (parseRtpPacket(bytes.data(), bytes.size(), packet))
            limit = takeOrdered(track, packet);
    }
    return limit;
}

MediaLimit MediaReceiver::giveUpWaiting()
{
    for (const auto& track : m_tracks) {
        const MediaLimit limit = takeQueued(*track, false);
        if (limit != MediaLimit::None)
            return limit;
    }
    return MediaLimit::None;
}

void MediaReceiver::rtcp(Track& track, const std::uint8_t* data, std::size_t bytes)
{
    RtcpReport report;
    parseRtcp(data, bytes, report);
    if (report.hasSenderReport)
        track.timeline.senderReport(report.ntpTime, report.rtpTime);
    track.bye = track.bye || report.bye;
}

void MediaReceiver::finish()
{
    giveUpWaiting();
    for (const auto& track : m_tracks)
        track->depacketizer->finish();
    m_description.settle();
    m_batcher.flush();
}

std::uint64_t MediaReceiver::frames() const
{
    std::uint64_t count = 0;
    for (const auto& track : m_tracks)
        count += track->output.frames();
    return count;
}

std::uint64_t MediaReceiver::lostUnits() const
{
    std::uint64_t count = 0;
    for (const auto& track : m_tracks)
        count += track->output.lostUnits();
    return count;
}

std::uint64_t MediaReceiver::lostPackets() const
{
    std::uint64_t count = 0;
    for (const auto& track : m_tracks)
        count += track->sequence.lost();
    return count;
}

std::uint64_t MediaReceiver::reorderedPackets() const
{
    std::uint64_t count = 0;
    for (const auto& track : m_tracks)
        count += track->reordered + track->sequence.reordered();
    return count;
}

MediaReceiver::Track* MediaReceiver::lead() const
{
    for (const auto& track : m_tracks)
        if (track->isVideo)
            return track.get();
    return m_tracks.empty() ? nullptr : m_tracks.front().get();
}

std::int64_t MediaReceiver::lastTimeNs() const
{
    const Track* track = lead();
    return track ? track->output.lastTimeNs() : 0;
}

std::int64_t MediaReceiver::widestStepNs() const
{
    const Track* track = lead();
    return track ? track->output.widestStepNs() : 0;
}

std::int64_t MediaReceiver::intervalNs() const
{
    const Track* track = lead();
    return track ? track->output.intervalNs() : 0;
}

bool MediaReceiver::allBye() const
{
    return hasTracks() && std::all_of(m_tracks.begin(), m_tracks.end(), [](const auto& track) { return track->bye; });
}

bool MediaReceiver::allTerminal() const
{
    return hasTracks() &&
           std::all_of(m_tracks.begin(), m_tracks.end(), [](const auto& track) { return track->output.isTerminal(); });
}

bool MediaReceiver::leadTerminal() const
{
    const Track* track = lead();
    return track && track->output.isTerminal();
}

bool MediaReceiver::reached(const Track& track, std::int64_t endNs)
{
    return track.output.frames() > 0 && track.output.lastTimeNs() - track.output.reorderNs() >= endNs;
}

bool MediaReceiver::allReached(std::int64_t endNs) const
{
    return hasTracks() &&
           std::all_of(m_tracks.begin(), m_tracks.end(), [endNs](const auto& track) { return reached(*track, endNs); });
}

bool MediaReceiver::leadReached(std::int64_t endNs) const
{
    const Track* track = lead();
    return track && reached(*track, endNs);
}

} // namespace vms_sdk::rtsp
