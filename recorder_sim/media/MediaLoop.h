#pragma once

#include "media/Clip.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace recorder_sim {

constexpr int trackCount = 2;
constexpr int videoTrack = 0;
constexpr int audioTrack = 1;
constexpr std::int64_t nsPerSecond = 1'000'000'000;

/// What is sent as one thing: an access unit of video, or the audio units of one packet. Times count from the loop's
/// begin.
struct MediaItem
{
    std::uint8_t track = 0;
    bool key = false;
    std::uint32_t unit = 0; ///< index of the (first) unit in its clip
    std::uint32_t unitCount = 1;
    std::uint32_t ticks = 0; ///< presentation time in the track's RTP clock
    std::int64_t ptsNs = 0;
    std::int64_t sendNs = 0; ///< when a recorder would have it: decoding order for video
};

/// A video clip and an audio clip as one loop, its items in sending order: by sendNs, video first. The items between
/// two key frames are exactly those with a presentation time between theirs, so that a recording can begin and end at
/// any GOP. Positions number the items of endless repetition: loop number times items in the loop plus index.
/// Immutable; threads share it.
class MediaLoop final
{
public:
    static constexpr std::int64_t loopNs = loopSeconds * nsPerSecond;
    static constexpr std::int64_t gopNs = gopSeconds * nsPerSecond;
    static constexpr int gopsPerLoop = loopSeconds / gopSeconds;

    MediaLoop(std::shared_ptr<const VideoClip> video, std::shared_ptr<const AudioClip> audio);

    const VideoClip& video() const { return *m_video; }
    const AudioClip& audio() const { return *m_audio; }
    int clockRate(int track) const { return track == videoTrack ? 90'000 : m_audio->sampleRate; }

    const std::vector<MediaItem>& items() const { return m_items; }
    const MediaItem& itemAt(std::int64_t position) const;
    std::int64_t ptsAt(std::int64_t position) const;
    std::int64_t sendTimeAt(std::int64_t position) const;
    std::int64_t loopOf(std::int64_t position) const { return position / static_cast<std::int64_t>(m_items.size()); }

    /// The position of the key frame that begins the GOP of that number.
    std::int64_t gopPosition(std::int64_t gop) const;

    /// One past the last item that is presented before `ns`: with reordered pictures, items presented later may stand
    /// before it.
    std::int64_t endPosition(std::int64_t ns) const;

    /// Number of units of that item's track that stand before the position, from position 0 on.
    std::int64_t unitIndexAt(std::int64_t position) const;

private:
    std::shared_ptr<const VideoClip> m_video;
    std::shared_ptr<const AudioClip> m_audio;
    std::vector<MediaItem> m_items;
    std::vector<std::uint32_t> m_keyItems;
};

} // namespace recorder_sim
