#pragma once

#include "vav_frame.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace vaws {

/// Turns G.711 into AAC on a thread of its own, so that pictures need not wait for it. push() and take() never wait;
/// packets come out in order with their presentation times, which go by the times pushed: silence fills where sound is
/// missing, and what comes twice is left out. Functions are called by one thread at a time. The destructor drops what
/// is not encoded yet.
class AudioTranscoder
{
public:
    struct Packet
    {
        std::int64_t presentation = 0; ///< media time in ticks of the sampling rate
        std::vector<std::uint8_t> bytes;
    };

    /// Made by the codec library. nullptr, with a sentence in `error`, where that is missing or the codec or its
    /// parameters are not supported.
    static std::unique_ptr<AudioTranscoder> create(const vav::TrackInfo& source, std::string& error);
    static bool handles(vav::Codec codec) { return codec == vav::Codec::PcmA || codec == vav::Codec::PcmU; }
    virtual ~AudioTranscoder() = default;

    /// The AAC track that comes out.
    virtual const vav::TrackInfo& track() const = 0;
    static constexpr std::uint32_t frameSamples = 1024;

    virtual void push(std::int64_t mediaNs, const std::uint8_t* data, std::size_t size) = 0;
    virtual bool take(Packet& packet) = 0;
    /// No sound follows: waits until all of it can be taken.
    virtual void drain() = 0;
    virtual std::size_t backlogBytes() const = 0;
};

} // namespace vaws
