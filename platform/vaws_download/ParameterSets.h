#pragma once

#include "vav_frame.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace vaws {

struct NalUnit
{
    const std::uint8_t* data = nullptr;
    std::size_t size = 0;
};

/// The NAL units of a block in which each stands behind its length of four bytes. Stops where a length lies; at
/// most 64.
std::vector<NalUnit> splitNalUnits(const std::uint8_t* data, std::size_t size);

/// The parameter-set NAL units inside an access unit, each behind its length; empty where it has none. For senders that
/// don't tell their parameter sets ahead.
std::vector<std::uint8_t> parameterSetsIn(vav::Codec codec, const std::uint8_t* data, std::size_t size);

/// What the file needs to know of a video stream.
struct VideoShape
{
    bool known = false;
    bool reorderKnown = false; ///< the stream says how far it reorders
    std::uint32_t width = 0;   ///< cropped, luma samples
    std::uint32_t height = 0;
    std::size_t reorderDepth = 0;
    std::uint8_t chromaFormat = 1; ///< chroma_format_idc
    std::uint8_t lumaDepth = 8;
    std::uint8_t chromaDepth = 8;
    std::uint8_t temporalLayers = 1;
    bool temporalNested = false;
    std::uint8_t profileTierLevel[12] = {}; ///< H.265 general_profile_space to general_level_idc, as they stand
};

/// Reads a sequence parameter set: ITU-T H.264 clause 7.3.2.1.1, H.265 clause 7.3.2.2. `known` stays false where it
/// does not parse.
VideoShape parseH264Sps(const std::uint8_t* nal, std::size_t size);
VideoShape parseH265Sps(const std::uint8_t* nal, std::size_t size);

/// The first sequence parameter set of a track.
VideoShape videoShape(const vav::TrackInfo& track);

} // namespace vaws
