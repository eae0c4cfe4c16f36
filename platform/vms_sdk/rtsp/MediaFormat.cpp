#include "MediaFormat.h"

#include "AudioConfig.h"
#include "H264Depacketizer.h"
#include "H265Depacketizer.h"
#include "MjpegDepacketizer.h"
#include "RawAudioDepacketizer.h"

namespace vms_sdk::rtsp {
namespace {

constexpr std::uint32_t minClockRate = 1000;
constexpr unsigned maxAuHeaderBits = 16;

/// Reads comma-separated parameter sets in Base64.
void readSets(const SdpMedia& media, const char* name, std::vector<QByteArray>& sets)
{
    for (const QByteArray& part : media.formatParameters.value(QByteArray(name)).split(',')) {
        const QByteArray set = QByteArray::fromBase64(part.trimmed());
        if (!set.isEmpty())
            sets.push_back(set);
    }
}

void readParameterSets(const SdpMedia& media, MediaFormat& format)
{
    std::vector<QByteArray> sets;
    if (format.track.codec == vav::Codec::H264) {
        readSets(media, "sprop-parameter-sets", sets);
    } else {
        readSets(media, "sprop-vps", sets);
        readSets(media, "sprop-sps", sets);
        readSets(media, "sprop-pps", sets);
    }
    std::vector<ParameterSets::Nal> nals;
    nals.reserve(sets.size());
    for (const QByteArray& set : sets)
        nals.push_back({reinterpret_cast<const std::uint8_t*>(set.constData()), static_cast<std::size_t>(set.size())});
    format.parameterSets = ParameterSets(format.track.codec);
    if (format.parameterSets.apply(nals)) {
        format.track.parameterSets = format.parameterSets.encoded();
        format.track.width = format.parameterSets.width();
        format.track.height = format.parameterSets.height();
    }
}

bool readAac(const SdpMedia& media, MediaFormat& format)
{
    const QByteArray mode = media.formatParameters.value("mode").toLower();
    if (!mode.isEmpty() && mode != "aac-hbr" && mode != "aac-lbr")
        return false;
    const bool lowRate = mode == "aac-lbr";
    const int sizeLength = media.formatNumber("sizelength", lowRate ? 6 : 13);
    const int indexLength = media.formatNumber("indexlength", lowRate ? 2 : 3);
    const int indexDeltaLength = media.formatNumber("indexdeltalength", lowRate ? 2 : 3);
    for (const int length : {sizeLength, indexLength, indexDeltaLength})
        if (length < 0 || length > static_cast<int>(maxAuHeaderBits))
            return false;
    // Further header fields would need their presence flags read; no mode for AAC has them.
    if (sizeLength == 0 || media.formatNumber("ctsdeltalength", 0) != 0 || media.formatNumber("dtsdeltalength", 0) != 0)
        return false;

    const QByteArray config = QByteArray::fromHex(media.formatParameters.value("config"));
    format.track.parameterSets.assign(config.begin(), config.end());
    if (format.track.parameterSets.empty())
        format.track.parameterSets = makeAudioSpecificConfig(media.clockRate, static_cast<unsigned>(media.channels));
    AudioConfig audio;
    if (!parseAudioSpecificConfig(format.track.parameterSets.data(), format.track.parameterSets.size(), audio) ||
        audio.samplingRate < minClockRate)
        return false;

    format.track.clockRate = audio.samplingRate;
    format.track.channels = audio.channels != 0 ? audio.channels : static_cast<std::uint16_t>(media.channels);
    format.aac.sizeLength = static_cast<unsigned>(sizeLength);
    format.aac.indexLength = static_cast<unsigned>(indexLength);
    format.aac.indexDeltaLength = static_cast<unsigned>(indexDeltaLength);
    format.aac.clockRate = media.clockRate;
    format.aac.ticksPerUnit =
        static_cast<std::uint32_t>(std::uint64_t{audio.samplesPerUnit} * media.clockRate / audio.samplingRate);
    return format.aac.ticksPerUnit > 0;
}

void readSampled(const SdpMedia& media, MediaFormat& format, vav::Codec codec, unsigned bits)
{
    format.track.codec = codec;
    format.track.channels = static_cast<std::uint16_t>(media.channels);
    format.bitsPerSample = bits * static_cast<unsigned>(media.channels);
    format.track.bitRate = media.clockRate * format.bitsPerSample;
}

} // namespace

bool MediaFormat::isComplete() const
{
    switch (track.codec) {
    case vav::Codec::H264:
    case vav::Codec::H265:
        return parameterSets.isComplete();
    case vav::Codec::Mjpeg:
        return track.width != 0;
    default:
        return true;
    }
}

bool makeMediaFormat(const SdpMedia& media, MediaFormat& format, QByteArray& reason)
{
    format = MediaFormat();
    reason = media.encoding.isEmpty() ? media.type : media.encoding;
    if (media.payloadType < 0 || media.clockRate < minClockRate)
        return false;
    format.track.clockRate = media.clockRate;
    if (media.type == "video") {
        if (media.encoding == "H264" || media.encoding == "H265" || media.encoding == "HEVC") {
            format.track.codec = media.encoding == "H264" ? vav::Codec::H264 : vav::Codec::H265;
            const bool interleaved =
                media.formatNumber("packetization-mode", 0) > 1 || media.formatNumber("sprop-max-don-diff", 0) > 0;
            if (interleaved) {
                reason += " interleaved";
                return false;
            }
            readParameterSets(media, format);
            return true;
        }
        format.track.codec = vav::Codec::Mjpeg;
        return media.encoding == "JPEG";
    }
    if (media.type != "audio")
        return false;
    if (media.encoding == "MPEG4-GENERIC") {
        format.track.codec = vav::Codec::Aac;
        return readAac(media, format);
    }
    if (media.encoding == "PCMU" || media.encoding == "PCMA") {
        readSampled(media, format, media.encoding == "PCMU" ? vav::Codec::PcmU : vav::Codec::PcmA, 8);
        return true;
    }
    for (const unsigned bits : {2u, 3u, 4u, 5u}) {
        if (media.encoding == "G726-" + QByteArray::number(bits * 8)) {
            readSampled(media, format, vav::Codec::G726, bits);
            return true;
        }
    }
    return false;
}

std::unique_ptr<Depacketizer> makeDepacketizer(const MediaFormat& format, TrackOutput& output,
                                               StreamDescription& description)
{
    const auto assembler = [&] { return AccessUnitAssembler(format.track, format.parameterSets, output, description); };
    switch (format.track.codec) {
    case vav::Codec::H264:
        return std::make_unique<H264Depacketizer>(assembler());
    case vav::Codec::H265:
        return std::make_unique<H265Depacketizer>(assembler());
    case vav::Codec::Mjpeg:
        return std::make_unique<MjpegDepacketizer>(format.track, output, description);
    case vav::Codec::Aac:
        return std::make_unique<AacDepacketizer>(format.aac, output);
    default:
        return std::make_unique<RawAudioDepacketizer>(format.bitsPerSample, format.track.clockRate, output);
    }
}

} // namespace vms_sdk::rtsp
