#include "media/MediaLoop.h"

#include <algorithm>
#include <utility>

namespace recorder_sim {

MediaLoop::MediaLoop(std::shared_ptr<const VideoClip> video, std::shared_ptr<const AudioClip> audio)
    : m_video(std::move(video))
    , m_audio(std::move(audio))
{
    constexpr std::int64_t frameNs = nsPerSecond / VideoClip::framesPerSecond;
    constexpr std::uint32_t frameTicks = 90'000 / VideoClip::framesPerSecond;
    for (std::size_t i = 0; i < m_video->units.size(); ++i) {
        const AccessUnit& unit = m_video->units[i];
        MediaItem item;
        item.track = videoTrack;
        item.key = unit.key;
        item.unit = static_cast<std::uint32_t>(i);
        item.ticks = unit.presentationIndex * frameTicks;
        item.ptsNs = unit.presentationIndex * frameNs;
        item.sendNs = static_cast<std::int64_t>(i) * frameNs;
        m_items.push_back(item);
    }
    const auto perPacket = static_cast<std::size_t>(m_audio->unitsPerPacket);
    for (std::size_t i = 0; i < m_audio->units.size(); i += perPacket) {
        MediaItem item;
        item.track = audioTrack;
        item.key = true;
        item.unit = static_cast<std::uint32_t>(i);
        item.unitCount = static_cast<std::uint32_t>(std::min(perPacket, m_audio->units.size() - i));
        item.ticks = item.unit * static_cast<std::uint32_t>(m_audio->samplesPerUnit);
        item.ptsNs = item.ticks * nsPerSecond / m_audio->sampleRate;
        item.sendNs = item.ptsNs;
        m_items.push_back(item);
    }
    std::stable_sort(m_items.begin(), m_items.end(),
                     [](const MediaItem& a, const MediaItem& b) { return a.sendNs < b.sendNs; });
    for (std::size_t i = 0; i < m_items.size(); ++i) {
        if (m_items[i].track == videoTrack && m_items[i].key)
            m_keyItems.push_back(static_cast<std::uint32_t>(i));
    }
}

const MediaItem& MediaLoop::itemAt(std::int64_t position) const
{
    return m_items[static_cast<std::size_t>(position % static_cast<std::int64_t>(m_items.size()))];
}

std::int64_t MediaLoop::ptsAt(std::int64_t position) const
{
    return loopOf(position) * loopNs + itemAt(position).ptsNs;
}

std::int64_t MediaLoop::sendTimeAt(std::int64_t position) const
{
    return loopOf(position) * loopNs + itemAt(position).sendNs;
}

std::int64_t MediaLoop::gopPosition(std::int64_t gop) const
{
    return gop / gopsPerLoop * static_cast<std::int64_t>(m_items.size()) +
           m_keyItems[static_cast<std::size_t>(gop % gopsPerLoop)];
}

std::int64_t MediaLoop::endPosition(std::int64_t ns) const
{
    if (ns <= 0)
        return 0;
    const std::int64_t gop = (ns - 1) / gopNs;
    const std::int64_t first = gopPosition(gop);
    std::int64_t end = gopPosition(gop + 1);
    while (end > first && ptsAt(end - 1) >= ns)
        --end;
    return end;
}

std::int64_t MediaLoop::unitIndexAt(std::int64_t position) const
{
    const MediaItem& item = itemAt(position);
    const std::size_t perLoop = item.track == videoTrack ? m_video->units.size() : m_audio->units.size();
    return loopOf(position) * static_cast<std::int64_t>(perLoop) + item.unit;
}

} // namespace recorder_sim
