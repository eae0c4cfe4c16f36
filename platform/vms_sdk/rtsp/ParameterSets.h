#pragma once

#include "vav_frame.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <vector>

namespace vms_sdk::rtsp {

/// What of a sequence parameter set a file needs.
struct PictureSize
{
    std::uint16_t width = 0;
    std::uint16_t height = 0;
    unsigned id = 0; ///< of the parameter set
};

/// Both take a whole NAL unit with its header; false when it does not parse or the size is none that 16 bits hold.
bool parseH264Sps(const std::uint8_t* nal, std::size_t bytes, PictureSize& size);
bool parseH265Sps(const std::uint8_t* nal, std::size_t bytes, PictureSize& size);

/// The parameter sets in force of one H.264 or H.265 track, by kind and id.
class ParameterSets
{
public:
    struct Nal
    {
        const std::uint8_t* data;
        std::size_t bytes;
    };

    explicit ParameterSets(vav::Codec codec);

    bool isParameterSet(unsigned nalType) const;
    /// Takes over the parameter sets of one access unit, or those of a session description. True when something
    /// changed.
    bool apply(const std::vector<Nal>& nals);
    bool isComplete() const;
    /// All of them, VPS, SPS, PPS, each behind a length of four bytes. Empty when they are larger than vav allows.
    std::vector<std::uint8_t> encoded() const;
    std::uint16_t width() const { return m_width; }
    std::uint16_t height() const { return m_height; }

private:
    enum Kind : unsigned { Vps = 0, Sps = 1, Pps = 2 };
    using Key = std::pair<unsigned, unsigned>; ///< kind, id

    bool identify(const Nal& nal, Key& key) const;

    vav::Codec m_codec;
    std::map<Key, std::vector<std::uint8_t>> m_sets;
    std::uint16_t m_width = 0;
    std::uint16_t m_height = 0;
};

} // namespace vms_sdk::rtsp
