#include "StreamDescription.h"

#include <algorithm>
#include <utility>

namespace vms_sdk::rtsp {

StreamDescription::StreamDescription(StreamBatcher& batcher, vav::StreamInfo names)
    : m_batcher(batcher)
    , m_info(std::move(names))
{
    m_info.tracks.clear();
}

void StreamDescription::setTrack(const vav::TrackInfo& track, bool complete)
{
    std::size_t at = 0;
    while (at < m_info.tracks.size() && m_info.tracks[at].track != track.track)
        ++at;
    if (at == m_info.tracks.size()) {
        m_info.tracks.push_back(track);
        m_complete.push_back(complete);
    } else {
        m_info.tracks[at] = track;
        m_complete[at] = complete;
    }
    // During set-up the first track must not announce a stream that lacks the next one: the first frame comes later
    // anyway.
    if (std::find(m_complete.begin(), m_complete.end(), false) == m_complete.end())
        m_batcher.setStreamInfo(m_info);
}

void StreamDescription::settle()
{
    if (m_batcher.hasStreamInfo())
        return;
    vav::StreamInfo known = m_info;
    known.tracks.clear();
    for (std::size_t i = 0; i < m_info.tracks.size(); ++i)
        if (m_complete[i])
            known.tracks.push_back(m_info.tracks[i]);
    if (!known.tracks.empty())
        m_batcher.setStreamInfo(known);
}

} // namespace vms_sdk::rtsp
