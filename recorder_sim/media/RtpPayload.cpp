#include "media/RtpPayload.h"

#include <algorithm>

namespace recorder_sim {
namespace {

void append16(std::string& out, std::size_t value)
{
    out += static_cast<char>(value >> 8 & 0xff);
    out += static_cast<char>(value & 0xff);
}

bool isSlice(Codec codec, std::string_view nal)
{
    const auto first = static_cast<unsigned char>(nal[0]);
    return codec == Codec::H265 ? (first >> 1 & 0x3f) < 32 : (first & 0x1f) >= 1 && (first & 0x1f) <= 5;
}

/// One aggregation packet of several small NAL units: STAP-A (RFC 6184 5.7.1) or AP (RFC 7798 4.4.2).
std::string aggregate(Codec codec, const std::vector<std::string_view>& nals)
{
    std::string out;
    if (codec == Codec::H265) {
        out += static_cast<char>(48 << 1);
        out += nals.front()[1];
    } else {
        unsigned importance = 0;
        for (const std::string_view nal : nals)
            importance = std::max(importance, static_cast<unsigned>(static_cast<unsigned char>(nal[0])) & 0x60u);
        out += static_cast<char>(importance | 24);
    }
    for (const std::string_view nal : nals) {
        append16(out, nal.size());
        out += nal;
    }
    return out;
}

/// FU-A (RFC 6184 5.8) or FU (RFC 7798 4.4.3).
void fragment(Codec codec, std::string_view nal, std::size_t firstLimit, std::size_t limit,
              std::vector<std::string>& out)
{
    const bool h265 = codec == Codec::H265;
    const std::size_t nalHeader = h265 ? 2 : 1;
    const auto first = static_cast<unsigned char>(nal[0]);
    const unsigned type = h265 ? first >> 1 & 0x3f : first & 0x1f;
    std::string head;
    if (h265) {
        head += static_cast<char>((first & 0x81) | 49 << 1);
        head += nal[1];
    } else {
        head += static_cast<char>((first & 0xe0) | 28);
    }
    std::size_t at = nalHeader;
    while (at < nal.size()) {
        const std::size_t room = (at == nalHeader ? firstLimit : limit) - head.size() - 1;
        const std::size_t size = std::min(room, nal.size() - at);
        const unsigned start = at == nalHeader ? 0x80 : 0;
        const unsigned end = at + size == nal.size() ? 0x40 : 0;
        std::string payload = head;
        payload += static_cast<char>(start | end | type);
        payload += nal.substr(at, size);
        out.push_back(std::move(payload));
        at += size;
    }
}

} // namespace

std::vector<std::string> videoPayloads(Codec codec, const std::vector<std::string_view>& nalUnits,
                                       std::size_t firstLimit, std::size_t limit)
{
    std::vector<std::string> out;
    const std::size_t aggregateHead = codec == Codec::H265 ? 2 : 1;
    for (std::size_t i = 0; i < nalUnits.size();) {
        const std::size_t room = out.empty() ? firstLimit : limit;
        std::vector<std::string_view> small;
        std::size_t size = aggregateHead;
        for (std::size_t j = i;
             j < nalUnits.size() && !isSlice(codec, nalUnits[j]) && size + 2 + nalUnits[j].size() <= room; ++j) {
            small.push_back(nalUnits[j]);
            size += 2 + nalUnits[j].size();
        }
        if (small.size() > 1) {
            out.push_back(aggregate(codec, small));
            i += small.size();
            continue;
        }
        if (nalUnits[i].size() <= room)
            out.emplace_back(nalUnits[i]);
        else
            fragment(codec, nalUnits[i], room, limit, out);
        ++i;
    }
    return out;
}

std::string aacPayload(const std::vector<std::string_view>& units)
{
    std::string out;
    append16(out, units.size() * 16);
    for (const std::string_view unit : units)
        append16(out, unit.size() << 3);
    for (const std::string_view unit : units)
        out += unit;
    return out;
}

} // namespace recorder_sim
