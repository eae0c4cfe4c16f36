#include "Depacketizer.h"

namespace recorder_sim {
namespace {

std::uint64_t bigEndian(std::string_view bytes)
{
    std::uint64_t value = 0;
    for (const char c : bytes)
        value = value << 8 | static_cast<unsigned char>(c);
    return value;
}

void addNal(std::string& sample, std::string_view nal)
{
    for (int shift = 24; shift >= 0; shift -= 8)
        sample += static_cast<char>(nal.size() >> shift);
    sample += nal;
}

} // namespace

ParsedRtp parseRtp(std::string_view packet)
{
    ParsedRtp out;
    if (packet.size() < 12 || (bigEndian(packet.substr(0, 1)) & 0xef) != 0x80)
        return out;
    out.marker = bigEndian(packet.substr(1, 1)) & 0x80;
    out.payloadType = bigEndian(packet.substr(1, 1)) & 0x7f;
    out.sequence = static_cast<std::uint16_t>(bigEndian(packet.substr(2, 2)));
    out.time = static_cast<std::uint32_t>(bigEndian(packet.substr(4, 4)));
    out.ssrc = static_cast<std::uint32_t>(bigEndian(packet.substr(8, 4)));
    out.hasExtension = bigEndian(packet.substr(0, 1)) & 0x10;
    std::size_t head = 12;
    if (out.hasExtension) {
        if (packet.size() < 28 || bigEndian(packet.substr(12, 4)) != 0xabac0003)
            return out;
        const std::uint64_t ntp = bigEndian(packet.substr(16, 8));
        const auto seconds = static_cast<std::int64_t>(ntp >> 32) - 2'208'988'800;
        const auto fraction = static_cast<std::int64_t>(((ntp & 0xffffffff) * 1'000'000'000 + 0x80000000) >> 32);
        out.ntpUtcNs = seconds * 1'000'000'000 + fraction;
        out.flags = static_cast<std::uint8_t>(packet[24]);
        head = 28;
    }
    out.payload = packet.substr(head);
    out.valid = true;
    return out;
}

std::string joinVideo(Codec codec, const std::vector<std::string>& payloads, bool& good)
{
    const bool h265 = codec == Codec::H265;
    const std::size_t headSize = h265 ? 2 : 1;
    std::string sample;
    std::string fragment;
    good = true;
    for (const std::string& payload : payloads) {
        const auto first = static_cast<unsigned char>(payload.at(0));
        const int type = h265 ? first >> 1 & 0x3f : first & 0x1f;
        if (type == (h265 ? 48 : 24)) {
            std::string_view rest = std::string_view(payload).substr(headSize);
            while (rest.size() >= 2) {
                const auto size = static_cast<std::size_t>(bigEndian(rest.substr(0, 2)));
                good = good && size > 0 && rest.size() >= 2 + size && fragment.empty();
                addNal(sample, rest.substr(2, size));
                rest.remove_prefix(std::min(rest.size(), 2 + size));
            }
            good = good && rest.empty();
        } else if (type == (h265 ? 49 : 28)) {
            const auto fu = static_cast<unsigned char>(payload.at(headSize));
            const bool start = fu & 0x80;
            const bool end = fu & 0x40;
            good = good && start == fragment.empty() && !(start && end);
            if (start && h265)
                fragment = {static_cast<char>((first & 0x81) | (fu & 0x3f) << 1), payload[1]};
            else if (start)
                fragment = {static_cast<char>((first & 0xe0) | (fu & 0x1f))};
            fragment += payload.substr(headSize + 1);
            if (end) {
                addNal(sample, fragment);
                fragment.clear();
            }
        } else {
            good = good && fragment.empty();
            addNal(sample, payload);
        }
    }
    good = good && fragment.empty();
    return sample;
}

std::vector<std::string> splitAac(std::string_view payload, bool& good)
{
    const std::size_t headers = bigEndian(payload.substr(0, 2)) / 16;
    std::vector<std::string> units;
    std::size_t at = 2 + 2 * headers;
    for (std::size_t i = 0; i < headers; ++i) {
        const auto header = static_cast<std::size_t>(bigEndian(payload.substr(2 + 2 * i, 2)));
        units.emplace_back(payload.substr(at, header >> 3));
        at += header >> 3;
    }
    good = at == payload.size() && !units.empty();
    return units;
}

} // namespace recorder_sim
