#pragma once

#include "MediaTypes.h"
#include "vav_frame.h"

#include <string>

namespace vaws {

/// Fills `format` with what the file says of a track: `avc1`, `hvc1` (ISO/IEC 14496-15), `mp4a` (14496-14) or `jpeg`.
/// False, with a sentence in `error`, where the track lacks what its codec needs.
bool makeTrackFormat(const vav::TrackInfo& track, std::uint32_t trackId, TrackFormat& format, std::string& error);

const char* codecName(vav::Codec codec);

/// What an AudioSpecificConfig says (ISO/IEC 14496-3 clause 1.6.2.1).
struct AacShape
{
    bool known = false;
    std::uint32_t samplingRate = 0;
    std::uint32_t channels = 0;
    std::uint32_t frameSamples = 1024;
};
AacShape parseAudioSpecificConfig(const std::uint8_t* data, std::size_t size);

} // namespace vaws
