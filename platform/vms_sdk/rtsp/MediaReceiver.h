#pragma once

#include "MediaFormat.h"
#include "ReplayTimeline.h"
#include "SequenceTracker.h"
#include "StreamBatcher.h"
#include "StreamDescription.h"
#include "TrackOutput.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace vms_sdk::rtsp {

/// From interleaved packets to batches: RTP and RTCP of up to one video and one audio track. No socket and no clock in
/// it. Owned by the session; batches come out of packet(), flush() and finish() through the batcher's function.
class MediaReceiver
{
public:
    MediaReceiver(StreamBatcher::Emit emit, const vav::StreamInfo& names);
    ~MediaReceiver();
    MediaReceiver(const MediaReceiver&) = delete;
    MediaReceiver& operator=(const MediaReceiver&) = delete;

    /// Before the first packet. `channel` carries RTP, the next one RTCP.
    void addTrack(const MediaFormat& format, std::uint8_t payloadType, std::uint8_t channel);
    bool hasTracks() const { return !m_tracks.empty(); }

    /// Begin of the range as it was asked for or answered, and how far off it a sender report may be.
    void setRangeBegin(std::int64_t beginNs, std::int64_t believableNs);
    /// From RTP-Info, in the order of addTrack().
    void setRtpInfo(std::size_t track, std::uint32_t rtpTime);
    /// PLAY was sent again. With `fromLastTime` the recorder was asked to begin at the last frame, else to go on.
    void resumed(bool fromLastTime);

    /// The stream goes on at another place, from which packets come next: what was gathered of the old one is gone.
    void seek(std::int64_t beginNs);
    /// Of a live stream: what its frames are timed by until the device has told its time.
    using ArrivalClock = std::function<std::int64_t()>;
    void setArrivalClock(ArrivalClock clock);
    void setKeyFramesOnly(bool keyFramesOnly);
    /// While dropping nothing is delivered; afterwards it goes on with a key frame, marked as a discontinuity.
    void setDropping(bool dropping);

    MediaLimit packet(std::uint8_t channel, const std::uint8_t* data, std::size_t bytes);
    /// Packets that came too early wait no longer for those that are missing.
    MediaLimit giveUpWaiting();
    /// Emits what is complete.
    void flush() { m_batcher.flush(); }
    bool hasFrames() const { return m_batcher.hasFrames(); }
    /// The stream is over: delivers the last access units when they are whole.
    void finish();

    std::uint64_t frames() const;
    std::uint64_t packets() const { return m_packets; }
    std::uint64_t lostUnits() const;
    std::uint64_t lostPackets() const;
    std::uint64_t reorderedPackets() const;
    /// Presentation time of the newest frame of the leading track (video when there is one), 0 before it.
    std::int64_t lastTimeNs() const;
    /// Usual distance of its frames.
    std::int64_t intervalNs() const;
    std::int64_t widestStepNs() const; ///< as TrackOutput::widestStepNs(), of the leading track
    bool allBye() const;
    bool allTerminal() const;
    bool leadTerminal() const;
    /// No frame before `endNs` can follow: in all tracks, or in the leading one alone.
    bool allReached(std::int64_t endNs) const;
    bool leadReached(std::int64_t endNs) const;

private:
    struct Track;

    Track* lead() const;
    static bool reached(const Track& track, std::int64_t endNs);
    MediaLimit rtp(Track& track, const std::uint8_t* data, std::size_t bytes);
    MediaLimit takeOrdered(Track& track, const RtpPacket& packet);
    MediaLimit takeQueued(Track& track, bool waitForMissing);
    void rtcp(Track& track, const std::uint8_t* data, std::size_t bytes);

    StreamBatcher m_batcher;
    StreamDescription m_description;
    std::vector<std::unique_ptr<Track>> m_tracks;
    ArrivalClock m_arrivalClock;
    std::int64_t m_newestNs = 0; ///< over all tracks
    std::uint64_t m_packets = 0;
};

} // namespace vms_sdk::rtsp
