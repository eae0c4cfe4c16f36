#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace recorder_sim {

enum class Codec { Unknown, H264, H265, Aac, Pcma, Pcmu };

/// A piece of a clip's bytes.
struct Slice
{
    std::size_t offset = 0;
    std::size_t size = 0;
};

/// One coded picture: its NAL units in stream order, parameter sets, SEI and delimiters included.
struct AccessUnit
{
    std::vector<Slice> nalUnits;
    std::uint32_t presentationIndex = 0; ///< place in display order within the clip; units stand in decoding order
    bool key = false;
    std::size_t sampleBytes = 0; ///< size of the MP4 sample: every NAL unit behind a length of four bytes
    std::string md5;             ///< of that sample, hexadecimal
};

/// A seamless loop of closed GOPs at 25 pictures a second. Immutable after loading, so threads share it.
struct VideoClip
{
    static constexpr int framesPerSecond = 25;
    static constexpr int framesPerGop = 50;

    Codec codec = Codec::Unknown;
    int width = 0;
    int height = 0;
    std::string bytes; ///< Annex B
    std::vector<AccessUnit> units;
    std::string vps; ///< H.265 only
    std::string sps;
    std::string pps;

    std::string_view nal(const Slice& slice) const { return std::string_view(bytes).substr(slice.offset, slice.size); }
};

/// A seamless loop of audio units: AAC access units without ADTS, or packets of G.711. Immutable after loading.
struct AudioClip
{
    struct Unit
    {
        Slice slice;
        std::string md5;
    };

    Codec codec = Codec::Unknown;
    int sampleRate = 0;
    int channels = 0;
    int samplesPerUnit = 0;
    int unitsPerPacket = 1;
    std::string bytes;
    std::vector<Unit> units;
    std::string config; ///< AudioSpecificConfig (ISO 14496-3 1.6.2.1), AAC only

    std::string_view unit(std::size_t index) const
    {
        return std::string_view(bytes).substr(units[index].slice.offset, units[index].slice.size);
    }
};

/// All clips are loops of this length: a whole number of GOPs, of AAC access units and of G.711 packets.
constexpr int loopSeconds = 16;
constexpr int gopSeconds = VideoClip::framesPerGop / VideoClip::framesPerSecond;

const char* codecName(Codec codec);

} // namespace recorder_sim
