#pragma once

#include "media/Clip.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace recorder_sim {

/// The RTP payloads of one access unit or audio packet, in order. `firstLimit` is the room in the first packet, `limit`
/// in the others (bytes, at least 64). H.264 by RFC 6184 (single NAL unit, STAP-A, FU-A), H.265 by RFC 7798 (single,
/// AP, FU).
std::vector<std::string> videoPayloads(Codec codec, const std::vector<std::string_view>& nalUnits,
                                       std::size_t firstLimit, std::size_t limit);

/// AAC-hbr by RFC 3640 (sizeLength 13, indexLength 3): one payload with all units.
std::string aacPayload(const std::vector<std::string_view>& units);

} // namespace recorder_sim
