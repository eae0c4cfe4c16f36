#pragma once

#include "AacDepacketizer.h"
#include "ParameterSets.h"
#include "SdpParser.h"
#include "StreamDescription.h"

#include <memory>
#include <vector>

namespace vms_sdk::rtsp {

/// One medium of a session description as this client understands it.
struct MediaFormat
{
    vav::TrackInfo track;                             ///< without its number
    ParameterSets parameterSets{vav::Codec::Unknown}; ///< H.264 and H.265
    unsigned bitsPerSample = 0;                       ///< G.711 and G.726
    AacDepacketizer::Format aac;

    bool isVideo() const { return vav::isVideo(track.codec); }
    /// The session description holds all that a decoder needs.
    bool isComplete() const;
};

/// False when this client cannot receive the medium; `reason` then holds its name, or what of it is not spoken.
bool makeMediaFormat(const SdpMedia& media, MediaFormat& format, QByteArray& reason);

/// The depacketizer for a format; `output` and `description` must outlive it.
std::unique_ptr<Depacketizer> makeDepacketizer(const MediaFormat& format, TrackOutput& output,
                                               StreamDescription& description);

} // namespace vms_sdk::rtsp
