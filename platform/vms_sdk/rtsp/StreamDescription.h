#pragma once

#include "StreamBatcher.h"
#include "vav_frame.h"

#include <vector>

namespace vms_sdk::rtsp {

/// The tracks of a stream as far as they are known. Hands a stream-info packet to the batcher as soon as every track
/// can be decoded, and again whenever a track has changed.
class StreamDescription
{
public:
    StreamDescription(StreamBatcher& batcher, vav::StreamInfo names);

    /// `complete`: a decoder could start with this.
    void setTrack(const vav::TrackInfo& track, bool complete);
    /// No more will come: the tracks that are complete are announced without the others.
    void settle();

    const std::vector<vav::TrackInfo>& tracks() const { return m_info.tracks; }

private:
    StreamBatcher& m_batcher;
    vav::StreamInfo m_info;
    std::vector<bool> m_complete;
};

} // namespace vms_sdk::rtsp
