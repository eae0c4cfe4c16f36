#pragma once

#include "RtpPacket.h"
#include "StreamBatcher.h"

#include <array>
#include <cstdint>

namespace vms_sdk::rtsp {

/// The way of one track's access units into the batches. Puts into their headers what is known across access units:
/// lost ones, gaps of the footage, the end of the recording; and drops what comes twice after the stream was resumed.
class TrackOutput
{
public:
    TrackOutput(std::uint8_t track, StreamBatcher& batcher);

    // One access unit built in place.
    void beginUnit();
    void closeUnit(std::int64_t timeNs, bool key, std::uint32_t durationUs);
    /// The unit is broken: dropped and counted as lost.
    void dropUnit();
    /// The unit closed last goes on; false when it cannot be had back.
    bool reopenUnit();
    StreamBatcher& batcher() { return m_batcher; }

    /// A whole small access unit; always a key frame.
    void frame(std::int64_t timeNs, std::uint32_t durationUs, const std::uint8_t* data, std::size_t bytes);

    /// Flags of a packet that belongs to the access unit being received.
    void noteExtension(const ReplayExtension& extension)
    {
        if (extension.present) {
            m_flags.discontinuity = m_flags.discontinuity || extension.discontinuity;
            m_flags.endOfSection = m_flags.endOfSection || extension.endOfSection;
            m_flags.terminal = m_flags.terminal || extension.terminal;
        }
    }
    void noteLost(std::uint32_t units) { m_lost += units; }
    /// The stream was asked for again from lastTimeNs() on: frames that were delivered before are dropped, and the flag
    /// that the recorder sets on the first of them is no gap.
    void resumed(bool fromLastTime);

    /// The stream goes on at another place: with a key frame where it is video, and marked as a discontinuity. What a
    /// peer still sends from the old place, or from amid a group of pictures, is no loss.
    void sought(bool isVideo);
    /// Only key frames of video are delivered, and what lies between them is no gap.
    void setKeyFramesOnly(bool keyFramesOnly, bool isVideo)
    {
        m_keyFramesOnly = keyFramesOnly;
        m_isVideo = isVideo;
    }
    /// What is dropped counts as lost; video goes on with a key frame.
    void setDropping(bool dropping, bool isVideo);

    std::int64_t firstTimeNs() const { return m_firstTimeNs; }
    std::int64_t lastTimeNs() const
    {
        return m_newestNs;
    } ///< of the newest frame in presentation order, 0 before the first
    std::int64_t intervalNs() const { return m_intervalNs; } ///< usual distance of frames, 0 while unknown
    std::int64_t reorderNs() const { return m_reorderNs; }   ///< how far a frame came behind a newer one, at most
    /// Between two neighbours in presentation order among the last few frames, none of them before a gap; 0 below two.
    std::int64_t widestStepNs() const;
    std::uint64_t frames() const { return m_frames; }
    std::uint64_t lostUnits() const { return m_totalLost; }
    bool isTerminal() const { return m_terminal; } ///< the frame with the T bit has come

private:
    struct Flags
    {
        bool discontinuity = false;
        bool endOfSection = false;
        bool terminal = false;
    };

    void keepFlags();
    bool isWanted(bool key);
    bool skips(std::int64_t timeNs);
    vav::FrameHeader makeHeader(std::int64_t timeNs, bool key, std::uint32_t durationUs);
    void judgeGap(vav::FrameHeader& header);
    void learnInterval(std::int64_t timeNs);

    std::uint8_t m_track;
    StreamBatcher& m_batcher;
    Flags m_flags;

    std::uint64_t m_frames = 0;
    std::int64_t m_firstTimeNs = 0;
    std::int64_t m_newestNs = 0;
    std::int64_t m_lastDecodedNs = 0;
    std::int64_t m_intervalNs = 0;
    std::int64_t m_reorderNs = 0;
    std::array<std::int64_t, 8> m_recentNs{}; ///< the last frames, more than a coder reorders
    std::size_t m_recentCount = 0;            ///< since the begin or a gap
    std::int64_t m_leastDistanceNs = 0;       ///< over the last m_distances frames
    int m_distances = 0;
    std::uint32_t m_lost = 0;
    std::uint64_t m_totalLost = 0;
    bool m_pendingDiscontinuity = false;
    bool m_sectionEnded = false;
    bool m_terminal = false;
    bool m_firstAfterPlay = true;
    bool m_skipping = false;
    bool m_startsAnew = true; ///< nothing was delivered since the begin or a seek
    bool m_keyFramesOnly = false;
    bool m_dropping = false;
    bool m_awaitsKey = false;
    bool m_isVideo = false;
    vav::FrameHeader m_lastHeader;
    bool m_reopened = false;
};

} // namespace vms_sdk::rtsp
