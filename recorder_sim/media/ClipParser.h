#pragma once

#include "media/Clip.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace recorder_sim {

/// The NAL units of an Annex B byte stream (ITU-T H.264 B.1), without start codes and trailing zeros.
std::vector<Slice> splitAnnexB(std::string_view bytes);

/// The raw data blocks of an ADTS stream (ISO 13818-7 6.2), headers left out; empty when a header is wrong.
std::vector<Slice> splitAdts(std::string_view bytes);

/// AudioSpecificConfig of AAC LC from an ADTS header of seven bytes.
std::string audioSpecificConfig(std::string_view adtsHeader);

/// What ffprobe tells of one packet: its size and its presentation time in any unit.
struct ProbedPacket
{
    std::int64_t pts = 0;
    std::size_t size = 0;
};

/// Lines of `pts,size`.
std::vector<ProbedPacket> parseProbe(std::string_view csv);

/// Fills units, parameter sets and digests of a clip whose codec and bytes are set. False and a sentence when the
/// packets don't fit the bytes, or are no closed GOPs of the agreed length.
bool indexVideo(VideoClip& clip, const std::vector<ProbedPacket>& packets, std::string& error);

/// Fills units and digests of a clip whose codec, rate and bytes (ADTS or plain G.711) are set.
bool indexAudio(AudioClip& clip, std::string& error);

} // namespace recorder_sim
