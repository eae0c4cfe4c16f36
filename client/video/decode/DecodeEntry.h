#pragma once

#include <vav_frame.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace vemo_decode {

/// One access unit, in the form of a vav_frame payload.
struct AccessUnit
{
    const std::uint8_t* data = nullptr;
    std::size_t size = 0;
    std::int64_t timeNs = 0;
};

/// A decoded picture. Belongs to the decoder that made it and must go before it does.
class Frame
{
public:
    Frame() = default;
    Frame(const Frame&) = delete;
    Frame& operator=(const Frame&) = delete;
    virtual ~Frame() = default;

    std::int64_t timeNs = 0;
    int width = 0; ///< as coded
    int height = 0;
    int shownWidth = 0; ///< with square pixels
    int shownHeight = 0;
};

/// Decodes one stream of video. One thread at a time.
class Decoder
{
public:
    Decoder() = default;
    Decoder(const Decoder&) = delete;
    Decoder& operator=(const Decoder&) = delete;
    virtual ~Decoder() = default;

    /// Begins anew with this codec. `parameterSets` as in vav::TrackInfo, may be empty. False when there is no decoder.
    virtual bool open(vav::Codec codec, const std::vector<std::uint8_t>& parameterSets) = 0;
    /// Parameter sets that apply from the next access unit on.
    virtual void setParameterSets(const std::vector<std::uint8_t>& parameterSets) = 0;
    /// False when it could not be decoded; the next ones may be.
    virtual bool send(const AccessUnit& unit) = 0;
    /// Makes receive() give what is still inside; flush() has to follow.
    virtual void drain() = 0;
    /// The next picture in the order of their times, nullptr: none yet.
    virtual std::shared_ptr<const Frame> receive() = 0;
    /// Forgets what is inside. A key frame has to follow.
    virtual void flush() = 0;
    /// Leaves out pictures that no other needs.
    virtual void setHurried(bool hurried) = 0;
    /// Draws the picture over all of `width` x `height` pixels of 32 bits: blue, green, red, 255. Each row needs room
    /// for 128 bytes behind it.
    virtual bool draw(const Frame& frame, int width, int height, std::uint8_t* pixels, int stride) = 0;
    /// "VAAPI", "D3D11VA"; "" for the processor.
    virtual const char* device() const = 0;
};

/// What the decoding library offers; it is a library of its own because what it links takes longer to load than
/// everything else of the client. Both are built from one tree: the table has no version.
struct DecodeEntry
{
    std::unique_ptr<Decoder> (*create)();
    /// Called on any thread with what the decoders have to say about damage, a line each; no more than a few a minute.
    void (*setLog)(void (*log)(const char* line));
};

constexpr const char* decodeEntryName = "vemo_decode_entry"; ///< extern "C" const DecodeEntry* vemo_decode_entry()

} // namespace vemo_decode
