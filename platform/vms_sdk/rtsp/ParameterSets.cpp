#include "ParameterSets.h"

#include "BitReader.h"
#include "ByteOrder.h"
#include "NalTypes.h"

#include <algorithm>
#include <utility>

namespace vms_sdk::rtsp {
namespace {

constexpr std::size_t maxParsedBytes = 1024; ///< size and id stand long before

/// The payload without its emulation prevention bytes (ISO/IEC 14496-10 clause 7.4.1).
std::vector<std::uint8_t> unescaped(const std::uint8_t* data, std::size_t bytes)
{
    bytes = std::min(bytes, maxParsedBytes);
    std::vector<std::uint8_t> raw;
    raw.reserve(bytes);
    unsigned zeros = 0;
    for (std::size_t i = 0; i < bytes; ++i) {
        if (zeros >= 2 && data[i] == 3) {
            zeros = 0;
            continue;
        }
        zeros = data[i] == 0 ? zeros + 1 : 0;
        raw.push_back(data[i]);
    }
    return raw;
}

bool setSize(PictureSize& size, std::int64_t width, std::int64_t height)
{
    if (width <= 0 || height <= 0 || width > 0xFFFF || height > 0xFFFF)
        return false;
    size.width = static_cast<std::uint16_t>(width);
    size.height = static_cast<std::uint16_t>(height);
    return true;
}

void skipScalingList(BitReader& reader, unsigned entries)
{
    int last = 8;
    int next = 8;
    for (unsigned i = 0; i < entries && reader.good(); ++i) {
        if (next != 0)
            next = static_cast<int>((static_cast<std::int64_t>(last) + reader.se() + 256) % 256);
        last = next == 0 ? last : next;
    }
}

bool hasChromaFormat(unsigned profile)
{
    switch (profile) {
    case 100:
    case 110:
    case 122:
    case 244:
    case 44:
    case 83:
    case 86:
    case 118:
    case 128:
    case 138:
    case 139:
    case 134:
    case 135:
        return true;
    default:
        return false;
    }
}

/// profile_tier_level() of ISO/IEC 23008-2 clause 7.3.3.
void skipProfileTierLevel(BitReader& reader, unsigned maxSubLayersMinus1)
{
    reader.skip(88 + 8);
    bool profilePresent[8] = {};
    bool levelPresent[8] = {};
    for (unsigned i = 0; i < maxSubLayersMinus1; ++i) {
        profilePresent[i] = reader.flag();
        levelPresent[i] = reader.flag();
    }
    if (maxSubLayersMinus1 > 0)
        reader.skip(std::size_t{2} * (8 - maxSubLayersMinus1));
    for (unsigned i = 0; i < maxSubLayersMinus1; ++i)
        reader.skip((profilePresent[i] ? 88u : 0u) + (levelPresent[i] ? 8u : 0u));
}

} // namespace

bool parseH264Sps(const std::uint8_t* nal, std::size_t bytes, PictureSize& size)
{
    if (bytes < 4)
        return false;
    const std::vector<std::uint8_t> raw = unescaped(nal + 1, bytes - 1);
    BitReader reader(raw.data(), raw.size());
    const unsigned profile = reader.bits(8);
    reader.skip(16);
    size.id = reader.ue();
    unsigned chromaFormat = 1;
    bool separatePlanes = false;
    if (hasChromaFormat(profile)) {
        chromaFormat = reader.ue();
        if (chromaFormat == 3)
            separatePlanes = reader.flag();
        reader.ue(); // bit depth luma
        reader.ue(); // bit depth chroma
        reader.skip(1);
        if (reader.flag()) {
            const unsigned lists = chromaFormat == 3 ? 12 : 8;
            for (unsigned i = 0; i < lists && reader.good(); ++i)
                if (reader.flag())
                    skipScalingList(reader, i < 6 ? 16 : 64);
        }
    }
    reader.ue(); // log2_max_frame_num_minus4
    const unsigned orderType = reader.ue();
    if (orderType == 0) {
        reader.ue();
    } else if (orderType == 1) {
        reader.skip(1);
        reader.se();
        reader.se();
        const unsigned cycle = reader.ue();
        for (unsigned i = 0; i < cycle && reader.good(); ++i)
            reader.se();
    }
    reader.ue(); // max_num_ref_frames
    reader.skip(1);
    const std::int64_t widthInMbs = std::int64_t{reader.ue()} + 1;
    const std::int64_t heightInMapUnits = std::int64_t{reader.ue()} + 1;
    const bool framesOnly = reader.flag();
    if (!framesOnly)
        reader.skip(1);
    reader.skip(1);
    std::int64_t cropX = 0;
    std::int64_t cropY = 0;
    if (reader.flag()) {
        cropX = reader.ue();
        cropX += reader.ue();
        cropY = reader.ue();
        cropY += reader.ue();
    }
    if (!reader.good() || size.id > 31 || chromaFormat > 3)
        return false;
    const unsigned chromaArray = separatePlanes ? 0 : chromaFormat;
    const std::int64_t unitX = chromaArray == 1 || chromaArray == 2 ? 2 : 1;
    const std::int64_t unitY = (chromaArray == 1 ? 2 : 1) * (framesOnly ? 1 : 2);
    return setSize(size, widthInMbs * 16 - cropX * unitX, heightInMapUnits * 16 * (framesOnly ? 1 : 2) - cropY * unitY);
}

bool parseH265Sps(const std::uint8_t* nal, std::size_t bytes, PictureSize& size)
{
    if (bytes < 4)
        return false;
    const std::vector<std::uint8_t> raw = unescaped(nal + 2, bytes - 2);
    BitReader reader(raw.data(), raw.size());
    reader.skip(4);
    const unsigned maxSubLayersMinus1 = reader.bits(3);
    reader.skip(1);
    if (maxSubLayersMinus1 > 6)
        return false;
    skipProfileTierLevel(reader, maxSubLayersMinus1);
    size.id = reader.ue();
    unsigned chromaFormat = reader.ue();
    if (chromaFormat == 3 && reader.flag())
        chromaFormat = 0;
    std::int64_t width = reader.ue();
    std::int64_t height = reader.ue();
    if (reader.flag()) {
        const std::int64_t unitX = chromaFormat == 1 || chromaFormat == 2 ? 2 : 1;
        const std::int64_t unitY = chromaFormat == 1 ? 2 : 1;
        width -= unitX * reader.ue();
        width -= unitX * reader.ue();
        height -= unitY * reader.ue();
        height -= unitY * reader.ue();
    }
    return reader.good() && size.id <= 15 && chromaFormat <= 3 && setSize(size, width, height);
}

ParameterSets::ParameterSets(vav::Codec codec)
    : m_codec(codec)
{}

bool ParameterSets::isParameterSet(unsigned nalType) const
{
    if (m_codec == vav::Codec::H264)
        return nalType == h264::sps || nalType == h264::pps;
    return nalType >= h265::vps && nalType <= h265::pps;
}

bool ParameterSets::apply(const std::vector<Nal>& nals)
{
    std::map<Key, std::vector<std::uint8_t>> coming;
    bool changed = false;
    bool spsChanged = false;
    bool hasPps = false;
    for (const Nal& nal : nals) {
        Key key;
        if (!identify(nal, key))
            continue;
        const auto known = m_sets.find(key);
        const bool differs = known == m_sets.end() || known->second.size() != nal.bytes ||
                             !std::equal(nal.data, nal.data + nal.bytes, known->second.begin());
        changed = changed || differs;
        spsChanged = spsChanged || (differs && key.first == Sps && known != m_sets.end());
        hasPps = hasPps || key.first == Pps;
        coming[key].assign(nal.data, nal.data + nal.bytes);
    }
    if (!changed)
        return false;
    // Picture parameter sets made for another sequence parameter set are of no use, unless no new ones come.
    if (spsChanged && hasPps)
        m_sets.clear();
    for (auto& entry : coming)
        m_sets[entry.first] = std::move(entry.second);
    for (const auto& entry : m_sets) {
        PictureSize size;
        const auto* data = entry.second.data();
        const bool parsed =
            entry.first.first == Sps && (m_codec == vav::Codec::H264 ? parseH264Sps(data, entry.second.size(), size)
                                                                     : parseH265Sps(data, entry.second.size(), size));
        if (parsed) {
            m_width = size.width;
            m_height = size.height;
            break;
        }
    }
    return true;
}

bool ParameterSets::isComplete() const
{
    bool has[3] = {m_codec == vav::Codec::H264, false, false};
    for (const auto& entry : m_sets)
        has[entry.first.first] = true;
    return has[Vps] && has[Sps] && has[Pps];
}

std::vector<std::uint8_t> ParameterSets::encoded() const
{
    std::vector<std::uint8_t> bytes;
    for (const auto& entry : m_sets) {
        if (bytes.size() + entry.second.size() + 4 > vav::maxParameterSetBytes)
            return {};
        std::uint8_t length[4];
        writeBe32(length, static_cast<std::uint32_t>(entry.second.size()));
        bytes.insert(bytes.end(), length, length + 4);
        bytes.insert(bytes.end(), entry.second.begin(), entry.second.end());
    }
    return bytes;
}

bool ParameterSets::identify(const Nal& nal, Key& key) const
{
    const std::size_t head = m_codec == vav::Codec::H264 ? 1 : 2;
    if (nal.bytes <= head || nal.bytes > vav::maxParameterSetBytes / 4)
        return false;
    const unsigned type = m_codec == vav::Codec::H264 ? h264::nalType(nal.data) : h265::nalType(nal.data);
    if (!isParameterSet(type))
        return false;
    PictureSize size;
    if (m_codec == vav::Codec::H264 && type == h264::sps) {
        key = Key(Sps, parseH264Sps(nal.data, nal.bytes, size) ? size.id : 0);
    } else if (m_codec == vav::Codec::H265 && type == h265::sps) {
        key = Key(Sps, parseH265Sps(nal.data, nal.bytes, size) ? size.id : 0);
    } else if (m_codec == vav::Codec::H265 && type == h265::vps) {
        key = Key(Vps, nal.data[head] >> 4);
    } else {
        const std::vector<std::uint8_t> raw = unescaped(nal.data + head, std::min<std::size_t>(nal.bytes - head, 16));
        BitReader reader(raw.data(), raw.size());
        key = Key(Pps, reader.ue() & 0xFF);
    }
    return true;
}

} // namespace vms_sdk::rtsp
