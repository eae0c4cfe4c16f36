#pragma once

#include "media/ReplaySchedule.h"

#include <functional>
#include <string>

namespace recorder_sim {

/// Writes what a schedule sends, one JSON object a line in sending order: track, codec, utc_ns (presentation time of
/// the unit), dts_index (number of the unit in its track, from the segment's begin), key, size and md5 of the MP4
/// sample: every NAL unit behind a length of four bytes, AAC without ADTS, G.711 as it is.
void writeSamples(const ReplaySchedule& schedule, const std::function<bool(const std::string& part)>& sink);

} // namespace recorder_sim
