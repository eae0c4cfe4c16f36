#include "media/ClipParser.h"

#include <QCryptographicHash>

#include <algorithm>
#include <charconv>

namespace recorder_sim {
namespace {

/// The encoder fades in over the first access units, which would be heard at the seam of the loop.
constexpr std::size_t skippedAacUnits = 2;

std::string hexDigest(QCryptographicHash& hash)
{
    return hash.result().toHex().toStdString();
}

std::string md5Of(std::string_view bytes)
{
    QCryptographicHash hash(QCryptographicHash::Md5);
    hash.addData(bytes.data(), static_cast<int>(bytes.size()));
    return hexDigest(hash);
}

int nalType(Codec codec, std::string_view nal)
{
    const auto first = static_cast<unsigned char>(nal[0]);
    return codec == Codec::H265 ? first >> 1 & 0x3f : first & 0x1f;
}

bool isKeyType(Codec codec, int type)
{
    return codec == Codec::H265 ? type >= 16 && type <= 21 : type == 5;
}

void keepParameterSet(VideoClip& clip, std::string_view nal)
{
    const int type = nalType(clip.codec, nal);
    std::string* set = nullptr;
    if (clip.codec == Codec::H265)
        set = type == 32 ? &clip.vps : type == 33 ? &clip.sps : type == 34 ? &clip.pps : nullptr;
    else
        set = type == 7 ? &clip.sps : type == 8 ? &clip.pps : nullptr;
    if (set && set->empty())
        *set = nal;
}

void digestSample(const VideoClip& clip, AccessUnit& unit)
{
    QCryptographicHash hash(QCryptographicHash::Md5);
    for (const Slice& slice : unit.nalUnits) {
        const char length[4] = {static_cast<char>(slice.size >> 24), static_cast<char>(slice.size >> 16),
                                static_cast<char>(slice.size >> 8), static_cast<char>(slice.size)};
        hash.addData(length, 4);
        hash.addData(clip.bytes.data() + slice.offset, static_cast<int>(slice.size));
        unit.sampleBytes += 4 + slice.size;
    }
    unit.md5 = hexDigest(hash);
}

} // namespace

const char* codecName(Codec codec)
{
    switch (codec) {
    case Codec::H264:
        return "h264";
    case Codec::H265:
        return "h265";
    case Codec::Aac:
        return "aac";
    case Codec::Pcma:
        return "pcma";
    case Codec::Pcmu:
        return "pcmu";
    case Codec::Unknown:
        break;
    }
    return "unknown";
}

std::vector<Slice> splitAnnexB(std::string_view bytes)
{
    using namespace std::string_view_literals;
    constexpr std::string_view startCode = "\0\0\1"sv;
    std::vector<Slice> nals;
    std::size_t at = bytes.find(startCode);
    while (at != std::string_view::npos) {
        const std::size_t begin = at + startCode.size();
        const std::size_t next = bytes.find(startCode, begin);
        std::size_t end = std::min(next, bytes.size());
        while (end > begin && bytes[end - 1] == '\0')
            --end;
        if (end > begin)
            nals.push_back({begin, end - begin});
        at = next;
    }
    return nals;
}

std::vector<Slice> splitAdts(std::string_view bytes)
{
    std::vector<Slice> units;
    std::size_t at = 0;
    while (at + 7 <= bytes.size()) {
        const auto byte = [&](std::size_t i) {
            return static_cast<unsigned>(static_cast<unsigned char>(bytes[at + i]));
        };
        const std::size_t header = byte(1) & 1 ? 7 : 9;
        const std::size_t length = (byte(3) & 3) << 11 | byte(4) << 3 | byte(5) >> 5;
        if (byte(0) != 0xff || (byte(1) & 0xf6) != 0xf0 || length <= header || at + length > bytes.size())
            return {};
        units.push_back({at + header, length - header});
        at += length;
    }
    return units;
}

std::string audioSpecificConfig(std::string_view adtsHeader)
{
    if (adtsHeader.size() < 7)
        return {};
    const auto byte = [&](std::size_t i) { return static_cast<unsigned>(static_cast<unsigned char>(adtsHeader[i])); };
    const unsigned objectType = (byte(2) >> 6) + 1;
    const unsigned rateIndex = byte(2) >> 2 & 0xf;
    const unsigned channels = (byte(2) & 1) << 2 | byte(3) >> 6;
    const unsigned config = objectType << 11 | rateIndex << 7 | channels << 3;
    return {static_cast<char>(config >> 8), static_cast<char>(config & 0xff)};
}

std::vector<ProbedPacket> parseProbe(std::string_view csv)
{
    std::vector<ProbedPacket> packets;
    while (!csv.empty()) {
        const std::size_t lineEnd = std::min(csv.find('\n'), csv.size());
        const std::string_view line = csv.substr(0, lineEnd);
        csv.remove_prefix(std::min(lineEnd + 1, csv.size()));
        ProbedPacket packet;
        const char* end = line.data() + line.size();
        const auto pts = std::from_chars(line.data(), end, packet.pts);
        if (pts.ec != std::errc() || pts.ptr == end || *pts.ptr != ',')
            continue;
        if (std::from_chars(pts.ptr + 1, end, packet.size).ec == std::errc())
            packets.push_back(packet);
    }
    return packets;
}

bool indexVideo(VideoClip& clip, const std::vector<ProbedPacket>& packets, std::string& error)
{
    constexpr std::size_t wantedUnits = loopSeconds * VideoClip::framesPerSecond;
    if (packets.size() != wantedUnits) {
        error = "the clip has " + std::to_string(packets.size()) + " pictures";
        return false;
    }
    std::vector<std::int64_t> order;
    for (const ProbedPacket& packet : packets)
        order.push_back(packet.pts);
    std::sort(order.begin(), order.end());

    std::size_t at = 0;
    clip.units.clear();
    for (const ProbedPacket& packet : packets) {
        if (at + packet.size > clip.bytes.size()) {
            error = "the clip is shorter than its packets";
            return false;
        }
        AccessUnit unit;
        unit.nalUnits = splitAnnexB(std::string_view(clip.bytes).substr(at, packet.size));
        for (Slice& slice : unit.nalUnits) {
            slice.offset += at;
            unit.key = unit.key || isKeyType(clip.codec, nalType(clip.codec, clip.nal(slice)));
            keepParameterSet(clip, clip.nal(slice));
        }
        const auto place = std::lower_bound(order.begin(), order.end(), packet.pts);
        unit.presentationIndex = static_cast<std::uint32_t>(place - order.begin());
        const std::size_t decodeIndex = clip.units.size();
        const bool gopStart = decodeIndex % VideoClip::framesPerGop == 0;
        const bool ownGop = unit.presentationIndex / VideoClip::framesPerGop == decodeIndex / VideoClip::framesPerGop;
        if (unit.nalUnits.empty() || unit.key != gopStart || !ownGop ||
            (gopStart && unit.presentationIndex != decodeIndex)) {
            error = "picture " + std::to_string(decodeIndex) + " breaks the rule of closed GOPs of 50 pictures";
            return false;
        }
        digestSample(clip, unit);
        clip.units.push_back(std::move(unit));
        at += packet.size;
    }
    if (at != clip.bytes.size() || clip.sps.empty() || clip.pps.empty()) {
        error = "the clip has bytes outside its packets or no parameter sets";
        return false;
    }
    return true;
}

bool indexAudio(AudioClip& clip, std::string& error)
{
    const auto wanted = static_cast<std::size_t>(loopSeconds * clip.sampleRate / clip.samplesPerUnit);
    std::vector<Slice> slices;
    if (clip.codec == Codec::Aac) {
        clip.config = audioSpecificConfig(clip.bytes);
        slices = splitAdts(clip.bytes);
        if (slices.size() >= skippedAacUnits)
            slices.erase(slices.begin(), slices.begin() + skippedAacUnits);
    } else {
        const auto size = static_cast<std::size_t>(clip.samplesPerUnit * clip.channels);
        for (std::size_t at = 0; at + size <= clip.bytes.size(); at += size)
            slices.push_back({at, size});
    }
    if (slices.size() < wanted) {
        error = "the clip has " + std::to_string(slices.size()) + " audio units instead of " + std::to_string(wanted);
        return false;
    }
    slices.resize(wanted);
    clip.units.clear();
    for (const Slice& slice : slices)
        clip.units.push_back({slice, md5Of(std::string_view(clip.bytes).substr(slice.offset, slice.size))});
    return true;
}

} // namespace recorder_sim
