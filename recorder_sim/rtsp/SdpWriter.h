#pragma once

#include "media/MediaLoop.h"
#include "media/RecordingCalendar.h"

#include <optional>
#include <string>

namespace recorder_sim {

/// What a session description tells beside the codecs.
struct SdpContext
{
    std::string host;
    std::string presentationUrl;   ///< with query, if any
    std::string trackUrlHead;      ///< what stands before the track's number; relative or whole
    std::optional<TimeSpan> range; ///< of a replay
};

/// The session description (RFC 4566, with the attributes of ONVIF replay) of a channel.
std::string writeSdp(const MediaLoop& loop, const SdpContext& context);

} // namespace recorder_sim
