#include "SampleEntry.h"

#include "BoxWriter.h"
#include "ParameterSets.h"

#include <algorithm>

namespace vaws {
namespace {

void visualEntryHead(BoxWriter& out, std::uint16_t width, std::uint16_t height)
{
    out.zeros(6);
    out.u16(1); // data_reference_index
    out.zeros(16);
    out.u16(width);
    out.u16(height);
    out.u32(0x00480000); // 72 dpi
    out.u32(0x00480000);
    out.u32(0);
    out.u16(1); // frames a sample
    out.zeros(32);
    out.u16(24);
    out.u16(0xffff);
}

void audioEntryHead(BoxWriter& out, std::uint32_t channels, std::uint32_t rate)
{
    out.zeros(6);
    out.u16(1);
    out.zeros(8);
    out.u16(static_cast<std::uint16_t>(channels));
    out.u16(16);
    out.u32(0);
    out.u32(rate < 0x10000 ? rate << 16 : 0);
}

std::vector<NalUnit> unitsOfType(const vav::TrackInfo& track, int wanted)
{
    std::vector<NalUnit> units = splitNalUnits(track.parameterSets.data(), track.parameterSets.size());
    units.erase(std::remove_if(units.begin(), units.end(),
                               [&](const NalUnit& nal) {
                                   const int type =
                                       track.codec == vav::Codec::H264 ? nal.data[0] & 0x1f : (nal.data[0] >> 1) & 0x3f;
                                   return type != wanted || nal.size > 0xffff || nal.size < 4;
                               }),
                units.end());
    return units;
}

void sized16(BoxWriter& out, const NalUnit& nal)
{
    out.u16(static_cast<std::uint16_t>(nal.size));
    out.bytes(nal.data, nal.size);
}

/// AVCDecoderConfigurationRecord, ISO/IEC 14496-15 clause 5.3.3.1.
void avcConfiguration(BoxWriter& out, const std::vector<NalUnit>& sps, const std::vector<NalUnit>& pps,
                      const VideoShape& shape)
{
    const std::uint8_t profile = sps[0].data[1];
    out.begin("avcC");
    out.u8(1);
    out.u8(profile);
    out.u8(sps[0].data[2]);
    out.u8(sps[0].data[3]);
    out.u8(0xff);
    out.u8(static_cast<std::uint8_t>(0xe0 | sps.size()));
    for (const NalUnit& nal : sps)
        sized16(out, nal);
    out.u8(static_cast<std::uint8_t>(pps.size()));
    for (const NalUnit& nal : pps)
        sized16(out, nal);
    if (profile != 66 && profile != 77 && profile != 88) {
        out.u8(static_cast<std::uint8_t>(0xfc | shape.chromaFormat));
        out.u8(static_cast<std::uint8_t>(0xf8 | (shape.lumaDepth - 8)));
        out.u8(static_cast<std::uint8_t>(0xf8 | (shape.chromaDepth - 8)));
        out.u8(0);
    }
    out.end();
}

/// HEVCDecoderConfigurationRecord, ISO/IEC 14496-15 clause 8.3.3.1. Sets that come again in the samples are the same
/// ones: others start a new file. So the arrays are complete, as `hvc1` wants.
void hevcConfiguration(BoxWriter& out, const vav::TrackInfo& track, const VideoShape& shape)
{
    out.begin("hvcC");
    out.u8(1);
    out.bytes(shape.profileTierLevel, sizeof shape.profileTierLevel);
    out.u16(0xf000); // min_spatial_segmentation_idc unknown
    out.u8(0xfc);
    out.u8(static_cast<std::uint8_t>(0xfc | shape.chromaFormat));
    out.u8(static_cast<std::uint8_t>(0xf8 | (shape.lumaDepth - 8)));
    out.u8(static_cast<std::uint8_t>(0xf8 | (shape.chromaDepth - 8)));
    out.u16(0);
    out.u8(static_cast<std::uint8_t>((shape.temporalLayers & 7) << 3 | (shape.temporalNested ? 4 : 0) | 3));
    out.u8(3);
    for (const int type : {32, 33, 34}) {
        const std::vector<NalUnit> units = unitsOfType(track, type);
        out.u8(static_cast<std::uint8_t>(0x80 | type));
        out.u16(static_cast<std::uint16_t>(units.size()));
        for (const NalUnit& nal : units)
            sized16(out, nal);
    }
    out.end();
}

void descriptor(BoxWriter& out, std::uint8_t tag, std::uint32_t size)
{
    out.u8(tag);
    for (int shift = 21; shift >= 0; shift -= 7)
        out.u8(static_cast<std::uint8_t>((shift > 0 ? 0x80 : 0) | ((size >> shift) & 0x7f)));
}

/// ISO/IEC 14496-14 clause 5.6, 14496-1 clause 7.2.6.
void elementaryStreamDescriptor(BoxWriter& out, const vav::TrackInfo& track)
{
    const auto config = static_cast<std::uint32_t>(track.parameterSets.size());
    out.beginFull("esds", 0, 0);
    descriptor(out, 0x03, 3 + 5 + 13 + 5 + config + 5 + 1);
    out.u16(0);
    out.u8(0);
    descriptor(out, 0x04, 13 + 5 + config);
    out.u8(0x40); // MPEG-4 audio
    out.u8(0x15); // audio stream
    out.zeros(3);
    out.u32(track.bitRate);
    out.u32(track.bitRate);
    descriptor(out, 0x05, config);
    out.bytes(track.parameterSets.data(), config);
    descriptor(out, 0x06, 1);
    out.u8(2);
    out.end();
}

bool makeVideoFormat(const vav::TrackInfo& track, TrackFormat& format, std::string& error)
{
    VideoShape shape = videoShape(track);
    format.kind = TrackKind::Video;
    format.timescale = videoTimescale;
    format.width = shape.known ? static_cast<std::uint16_t>(shape.width) : track.width;
    format.height = shape.known ? static_cast<std::uint16_t>(shape.height) : track.height;
    const bool avc = track.codec == vav::Codec::H264;
    std::vector<NalUnit> sps = unitsOfType(track, avc ? 7 : 33);
    std::vector<NalUnit> pps = unitsOfType(track, avc ? 8 : 34);
    if (sps.empty() || pps.empty() || !shape.known) {
        error = std::string("The stream's ") + codecName(track.codec) + " parameter sets are missing or damaged.";
        return false;
    }
    sps.resize(std::min<std::size_t>(sps.size(), 31));
    format.sampleEntry = BoxWriter::toBytes([&](BoxWriter& out) {
        if (avc)
            out.begin("avc1");
        else
            out.begin("hvc1");
        visualEntryHead(out, format.width, format.height);
        if (avc)
            avcConfiguration(out, sps, pps, shape);
        else
            hevcConfiguration(out, track, shape);
        out.end();
    });
    return true;
}

} // namespace

const char* codecName(vav::Codec codec)
{
    switch (codec) {
    case vav::Codec::H264:
        return "H.264";
    case vav::Codec::H265:
        return "H.265";
    case vav::Codec::Mjpeg:
        return "MJPEG";
    case vav::Codec::Aac:
        return "AAC";
    case vav::Codec::PcmA:
    case vav::Codec::PcmU:
        return "G.711";
    case vav::Codec::G726:
        return "G.726";
    case vav::Codec::Unknown:
        break;
    }
    return "";
}

AacShape parseAudioSpecificConfig(const std::uint8_t* data, std::size_t size)
{
    static constexpr std::uint32_t rates[] = {96000, 88200, 64000, 48000, 44100, 32000, 24000,
                                              22050, 16000, 12000, 11025, 8000,  7350};
    AacShape shape;
    if (size < 2)
        return shape;
    const unsigned objectType = data[0] >> 3;
    const unsigned rateIndex = (data[0] & 7u) << 1 | data[1] >> 7;
    if (objectType == 0 || objectType == 31)
        return shape;
    unsigned rest = data[1] & 0x7fu;
    if (rateIndex == 15) {
        if (size < 5)
            return shape;
        shape.samplingRate = (data[1] & 0x7fu) << 17 | static_cast<std::uint32_t>(data[2]) << 9 |
                             static_cast<std::uint32_t>(data[3]) << 1 | data[4] >> 7;
        rest = data[4] & 0x7fu;
    } else if (rateIndex < std::size(rates)) {
        shape.samplingRate = rates[rateIndex];
    }
    shape.channels = rest >> 3;
    if (shape.channels == 7)
        shape.channels = 8;
    if (objectType == 2 && (rest & 4) != 0)
        shape.frameSamples = 960;
    shape.known = shape.samplingRate > 0;
    return shape;
}

bool makeTrackFormat(const vav::TrackInfo& track, std::uint32_t trackId, TrackFormat& format, std::string& error)
{
    format = TrackFormat();
    format.trackId = trackId;
    if (track.codec == vav::Codec::H264 || track.codec == vav::Codec::H265)
        return makeVideoFormat(track, format, error);
    if (track.codec == vav::Codec::Mjpeg) {
        format.kind = TrackKind::Video;
        format.timescale = videoTimescale;
        format.width = track.width;
        format.height = track.height;
        format.sampleEntry = BoxWriter::toBytes([&](BoxWriter& out) {
            out.begin("jpeg");
            visualEntryHead(out, format.width, format.height);
            out.end();
        });
        return true;
    }
    if (track.codec == vav::Codec::Aac) {
        const AacShape shape = parseAudioSpecificConfig(track.parameterSets.data(), track.parameterSets.size());
        format.kind = TrackKind::Sound;
        format.timescale = shape.known ? shape.samplingRate : track.clockRate;
        if (!shape.known || format.timescale == 0) {
            error = "The stream's AAC configuration is missing or damaged.";
            return false;
        }
        format.sampleEntry = BoxWriter::toBytes([&](BoxWriter& out) {
            out.begin("mp4a");
            audioEntryHead(out, shape.channels, format.timescale);
            elementaryStreamDescriptor(out, track);
            out.end();
        });
        return true;
    }
    error = std::string("The codec ") + codecName(track.codec) + " has no place in an MP4 file.";
    return false;
}

} // namespace vaws
