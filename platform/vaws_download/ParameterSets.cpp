#include "ParameterSets.h"

#include "Bytes.h"

#include <algorithm>

namespace vaws {
namespace {

constexpr std::size_t maxNalUnits = 64;
constexpr std::size_t maxSpsBytes = 4096;

int nalType(vav::Codec codec, std::uint8_t first)
{
    return codec == vav::Codec::H264 ? first & 0x1f : (first >> 1) & 0x3f;
}

bool isParameterSet(vav::Codec codec, int type)
{
    return codec == vav::Codec::H264 ? (type == 7 || type == 8) : (type >= 32 && type <= 34);
}

/// Bits of a raw byte sequence payload, with the emulation prevention bytes already out. Past the end: zeros, and
/// good() false.
class BitReader
{
public:
    BitReader(const std::uint8_t* nal, std::size_t size)
    {
        size = std::min(size, maxSpsBytes);
        m_bytes.reserve(size);
        int zeros = 0;
        for (std::size_t i = 0; i < size; ++i) {
            if (zeros >= 2 && nal[i] == 3) {
                zeros = 0;
                continue;
            }
            zeros = nal[i] == 0 ? zeros + 1 : 0;
            m_bytes.push_back(nal[i]);
        }
    }

    bool good() const { return m_good; }
    const std::vector<std::uint8_t>& bytes() const { return m_bytes; }

    std::uint32_t bits(int count)
    {
        std::uint32_t value = 0;
        for (int i = 0; i < count; ++i) {
            if (m_at >= m_bytes.size() * 8) {
                m_good = false;
                return 0;
            }
            value = value << 1 | ((m_bytes[m_at / 8] >> (7 - m_at % 8)) & 1u);
            ++m_at;
        }
        return value;
    }
    bool flag() { return bits(1) != 0; }
    void skip(int count)
    {
        for (; count > 0; count -= std::min(count, 32))
            bits(std::min(count, 32));
    }
    std::uint32_t ue()
    {
        int zeros = 0;
        while (m_good && !flag()) {
            if (++zeros > 31) {
                m_good = false;
                return 0;
            }
        }
        return (1u << zeros) - 1 + bits(zeros);
    }
    std::int32_t se()
    {
        const std::uint32_t code = ue();
        return code % 2 ? static_cast<std::int32_t>(code / 2 + 1) : -static_cast<std::int32_t>(code / 2);
    }

private:
    std::vector<std::uint8_t> m_bytes;
    std::size_t m_at = 0;
    bool m_good = true;
};

void skipScalingLists(BitReader& in, int count)
{
    for (int list = 0; list < count && in.good(); ++list) {
        if (!in.flag())
            continue;
        int last = 8;
        int next = 8;
        for (int i = 0; i < (list < 6 ? 16 : 64) && in.good(); ++i) {
            if (next != 0)
                next = (last + (in.se() & 0xff)) % 256;
            last = next == 0 ? last : next;
        }
    }
}

void skipHrd(BitReader& in)
{
    const std::uint32_t count = in.ue() + 1;
    in.skip(8);
    for (std::uint32_t i = 0; i < count && i < 32 && in.good(); ++i) {
        in.ue();
        in.ue();
        in.skip(1);
    }
    in.skip(20);
}

void readH264Vui(BitReader& in, VideoShape& shape)
{
    if (in.flag() && in.bits(8) == 255)
        in.skip(32);
    if (in.flag())
        in.skip(1);
    if (in.flag()) {
        in.skip(4);
        if (in.flag())
            in.skip(24);
    }
    if (in.flag()) {
        in.ue();
        in.ue();
    }
    if (in.flag())
        in.skip(65);
    const bool nalHrd = in.flag();
    if (nalHrd)
        skipHrd(in);
    const bool vclHrd = in.flag();
    if (vclHrd)
        skipHrd(in);
    if (nalHrd || vclHrd)
        in.skip(1);
    in.skip(1);
    if (!in.flag())
        return;
    in.skip(1);
    for (int i = 0; i < 4; ++i)
        in.ue();
    const std::uint32_t depth = in.ue();
    if (in.good() && depth <= 16) {
        shape.reorderDepth = depth;
        shape.reorderKnown = true;
    }
}

bool hasChromaFields(std::uint32_t profile)
{
    static constexpr std::uint32_t profiles[] = {100, 110, 122, 244, 44, 83, 86, 118, 128, 138, 139, 134, 135};
    return std::find(std::begin(profiles), std::end(profiles), profile) != std::end(profiles);
}

/// Takes the cropped size when it is one that a picture can have.
void setSize(VideoShape& shape, std::int64_t width, std::int64_t height)
{
    if (width <= 0 || height <= 0 || width > 65535 || height > 65535)
        return;
    shape.width = static_cast<std::uint32_t>(width);
    shape.height = static_cast<std::uint32_t>(height);
    shape.known = true;
}

} // namespace

std::vector<NalUnit> splitNalUnits(const std::uint8_t* data, std::size_t size)
{
    std::vector<NalUnit> units;
    ByteReader in(data, size);
    while (in.left() > 4 && units.size() < maxNalUnits) {
        const std::uint32_t length = in.u32();
        const std::uint8_t* nal = in.take(length);
        if (!nal || length == 0)
            break;
        units.push_back({nal, length});
    }
    return units;
}

std::vector<std::uint8_t> parameterSetsIn(vav::Codec codec, const std::uint8_t* data, std::size_t size)
{
    std::vector<std::uint8_t> sets;
    for (const NalUnit& nal : splitNalUnits(data, size)) {
        if (!isParameterSet(codec, nalType(codec, nal.data[0])) ||
            sets.size() + nal.size + 4 > vav::maxParameterSetBytes)
            continue;
        sets.resize(sets.size() + 4);
        put32(sets.data() + sets.size() - 4, static_cast<std::uint32_t>(nal.size));
        sets.insert(sets.end(), nal.data, nal.data + nal.size);
    }
    return sets;
}

VideoShape parseH264Sps(const std::uint8_t* nal, std::size_t size)
{
    VideoShape shape;
    BitReader in(nal, size);
    in.skip(8);
    const std::uint32_t profile = in.bits(8);
    const std::uint32_t constraints = in.bits(8);
    in.skip(8);
    in.ue();
    bool separatePlanes = false;
    if (hasChromaFields(profile)) {
        shape.chromaFormat = static_cast<std::uint8_t>(std::min<std::uint32_t>(in.ue(), 3));
        if (shape.chromaFormat == 3)
            separatePlanes = in.flag();
        shape.lumaDepth = static_cast<std::uint8_t>(8 + std::min<std::uint32_t>(in.ue(), 6));
        shape.chromaDepth = static_cast<std::uint8_t>(8 + std::min<std::uint32_t>(in.ue(), 6));
        in.skip(1);
        if (in.flag())
            skipScalingLists(in, shape.chromaFormat == 3 ? 12 : 8);
    }
    in.ue();
    const std::uint32_t orderType = in.ue();
    if (orderType == 0) {
        in.ue();
    } else if (orderType == 1) {
        in.skip(1);
        in.se();
        in.se();
        for (std::uint32_t left = in.ue(); left > 0 && in.good(); --left)
            in.se();
    }
    in.ue();
    in.skip(1);
    const std::int64_t widthUnits = std::int64_t{in.ue()} + 1;
    const std::int64_t heightUnits = std::int64_t{in.ue()} + 1;
    const bool framesOnly = in.flag();
    if (!framesOnly)
        in.skip(1);
    in.skip(1);
    std::int64_t crop[4] = {};
    if (in.flag()) {
        for (std::int64_t& side : crop)
            side = in.ue();
    }
    const int chroma = separatePlanes ? 0 : shape.chromaFormat;
    const int cropX = chroma == 1 || chroma == 2 ? 2 : 1;
    const int cropY = (chroma == 1 ? 2 : 1) * (framesOnly ? 1 : 2);
    if (!in.good())
        return shape;
    setSize(shape, widthUnits * 16 - cropX * (crop[0] + crop[1]),
            heightUnits * 16 * (framesOnly ? 1 : 2) - cropY * (crop[2] + crop[3]));
    // Without B slices or with output in decoding order there is nothing to reorder (clause C.4, annex A.2.1).
    shape.reorderKnown = profile == 66 || orderType == 2 || (profile == 77 && (constraints & 0x80) != 0);
    if (in.flag())
        readH264Vui(in, shape);
    return shape;
}

VideoShape parseH265Sps(const std::uint8_t* nal, std::size_t size)
{
    VideoShape shape;
    BitReader in(nal, size);
    in.skip(16 + 4);
    const int subLayers = static_cast<int>(in.bits(3));
    shape.temporalLayers = static_cast<std::uint8_t>(subLayers + 1);
    shape.temporalNested = in.flag();
    for (std::uint8_t& byte : shape.profileTierLevel)
        byte = static_cast<std::uint8_t>(in.bits(8));
    bool profilePresent[8] = {};
    bool levelPresent[8] = {};
    for (int i = 0; i < subLayers; ++i) {
        profilePresent[i] = in.flag();
        levelPresent[i] = in.flag();
    }
    if (subLayers > 0)
        in.skip(2 * (8 - subLayers));
    for (int i = 0; i < subLayers; ++i) {
        in.skip(profilePresent[i] ? 88 : 0);
        in.skip(levelPresent[i] ? 8 : 0);
    }
    in.ue();
    shape.chromaFormat = static_cast<std::uint8_t>(std::min<std::uint32_t>(in.ue(), 3));
    if (shape.chromaFormat == 3)
        in.skip(1);
    const std::int64_t width = in.ue();
    const std::int64_t height = in.ue();
    std::int64_t crop[4] = {};
    if (in.flag()) {
        for (std::int64_t& side : crop)
            side = in.ue();
    }
    shape.lumaDepth = static_cast<std::uint8_t>(8 + std::min<std::uint32_t>(in.ue(), 8));
    shape.chromaDepth = static_cast<std::uint8_t>(8 + std::min<std::uint32_t>(in.ue(), 8));
    in.ue();
    const bool everyLayer = in.flag();
    std::uint32_t depth = 0;
    for (int i = everyLayer ? 0 : subLayers; i <= subLayers; ++i) {
        in.ue();
        depth = in.ue();
        in.ue();
    }
    if (!in.good())
        return shape;
    const int cropX = shape.chromaFormat == 1 || shape.chromaFormat == 2 ? 2 : 1;
    const int cropY = shape.chromaFormat == 1 ? 2 : 1;
    setSize(shape, width - cropX * (crop[0] + crop[1]), height - cropY * (crop[2] + crop[3]));
    shape.reorderKnown = depth <= 16;
    shape.reorderDepth = shape.reorderKnown ? depth : 0;
    return shape;
}

VideoShape videoShape(const vav::TrackInfo& track)
{
    for (const NalUnit& nal : splitNalUnits(track.parameterSets.data(), track.parameterSets.size())) {
        const int type = nalType(track.codec, nal.data[0]);
        if (track.codec == vav::Codec::H264 && type == 7)
            return parseH264Sps(nal.data, nal.size);
        if (track.codec == vav::Codec::H265 && type == 33)
            return parseH265Sps(nal.data, nal.size);
    }
    return {};
}

} // namespace vaws
