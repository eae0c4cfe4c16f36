#pragma once

#include "media/Clip.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace recorder_sim {

/// What the tests need of an RTP packet (RFC 3550 5.1), its replay extension included.
struct ParsedRtp
{
    bool valid = false;
    bool marker = false;
    int payloadType = 0;
    std::uint16_t sequence = 0;
    std::uint32_t time = 0;
    std::uint32_t ssrc = 0;
    bool hasExtension = false;
    std::int64_t ntpUtcNs = 0;
    std::uint8_t flags = 0; ///< C E D T in the upper bits
    std::string_view payload;
};

ParsedRtp parseRtp(std::string_view packet);

/// Puts the payloads of one access unit together again, as an MP4 sample. Written apart from the packetizer, by the
/// RFCs; false in `good` for what they do not allow.
std::string joinVideo(Codec codec, const std::vector<std::string>& payloads, bool& good);
std::vector<std::string> splitAac(std::string_view payload, bool& good);

} // namespace recorder_sim
