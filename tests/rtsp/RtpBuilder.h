#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

/// Makes RTP, RTCP and interleaved bytes for tests.
namespace rtptest {

using Bytes = std::vector<std::uint8_t>;

inline void put16(Bytes& out, unsigned value)
{
    out.push_back(static_cast<std::uint8_t>(value >> 8));
    out.push_back(static_cast<std::uint8_t>(value));
}

inline void put32(Bytes& out, std::uint32_t value)
{
    put16(out, value >> 16);
    put16(out, value & 0xFFFF);
}

inline void put64(Bytes& out, std::uint64_t value)
{
    put32(out, static_cast<std::uint32_t>(value >> 32));
    put32(out, static_cast<std::uint32_t>(value));
}

inline void append(Bytes& out, const Bytes& more)
{
    out.insert(out.end(), more.begin(), more.end());
}

/// 32.32 NTP time of nanoseconds since 1970, rounded to the nearest.
inline std::uint64_t ntpOf(std::int64_t unixNs)
{
    const auto ns = static_cast<std::uint64_t>(unixNs);
    const std::uint64_t seconds = ns / 1'000'000'000 + 2208988800u;
    return seconds << 32 | ((ns % 1'000'000'000 << 32) + 500'000'000) / 1'000'000'000;
}

enum ReplayFlag : std::uint8_t { CleanPoint = 0x80, EndOfSection = 0x40, Gap = 0x20, Terminal = 0x10 };

struct Rtp
{
    std::uint8_t payloadType = 96;
    bool marker = false;
    std::uint16_t sequence = 0;
    std::uint32_t timestamp = 0;
    std::uint32_t ssrc = 0x11223344;
    bool withReplay = false;
    std::uint64_t ntpTime = 0;
    std::uint8_t replayFlags = 0;
    unsigned csrcCount = 0;
    unsigned padding = 0;
};

inline Bytes rtp(const Rtp& header, const Bytes& payload)
{
    Bytes out;
    out.push_back(static_cast<std::uint8_t>(0x80 | (header.padding ? 0x20 : 0) | (header.withReplay ? 0x10 : 0) |
                                            header.csrcCount));
    out.push_back(static_cast<std::uint8_t>((header.marker ? 0x80 : 0) | header.payloadType));
    put16(out, header.sequence);
    put32(out, header.timestamp);
    put32(out, header.ssrc);
    for (unsigned i = 0; i < header.csrcCount; ++i)
        put32(out, i);
    if (header.withReplay) {
        put16(out, 0xABAC);
        put16(out, 3);
        put64(out, header.ntpTime);
        out.push_back(header.replayFlags);
        out.insert(out.end(), 3, 0);
    }
    append(out, payload);
    if (header.padding > 0) {
        out.insert(out.end(), header.padding - 1, 0);
        out.push_back(static_cast<std::uint8_t>(header.padding));
    }
    return out;
}

inline Bytes senderReport(std::uint64_t ntpTime, std::uint32_t rtpTime)
{
    Bytes out = {0x80, 200, 0, 6};
    put32(out, 0x11223344);
    put64(out, ntpTime);
    put32(out, rtpTime);
    put32(out, 0);
    put32(out, 0);
    return out;
}

inline Bytes bye()
{
    Bytes out = {0x81, 203, 0, 1};
    put32(out, 0x11223344);
    return out;
}

inline Bytes interleaved(std::uint8_t channel, const Bytes& packet)
{
    Bytes out = {'$', channel};
    put16(out, static_cast<unsigned>(packet.size()));
    append(out, packet);
    return out;
}

/// A NAL unit of H.264 with a body that can be told from others: first_mb_in_slice 0, slice type I or P.
inline Bytes h264Nal(unsigned type, std::size_t bodyBytes, std::uint8_t fill, bool firstSlice = true)
{
    Bytes nal = {static_cast<std::uint8_t>(0x60 | type)};
    for (std::size_t i = 0; i < bodyBytes; ++i)
        nal.push_back(static_cast<std::uint8_t>(fill + i * 7));
    if (bodyBytes > 0)
        nal[1] = static_cast<std::uint8_t>(firstSlice ? nal[1] | 0x80 : nal[1] & 0x7F);
    return nal;
}

/// The FU-A payloads of a NAL unit (RFC 6184 clause 5.8).
inline std::vector<Bytes> fragments(const Bytes& nal, std::size_t bytesEach)
{
    std::vector<Bytes> parts;
    for (std::size_t at = 1; at < nal.size(); at += bytesEach) {
        const std::size_t end = std::min(at + bytesEach, nal.size());
        const bool first = at == 1;
        const bool last = end == nal.size();
        Bytes part = {static_cast<std::uint8_t>((nal[0] & 0xE0) | 28),
                      static_cast<std::uint8_t>((first ? 0x80 : 0) | (last ? 0x40 : 0) | (nal[0] & 0x1F))};
        part.insert(part.end(), nal.begin() + static_cast<std::ptrdiff_t>(at),
                    nal.begin() + static_cast<std::ptrdiff_t>(end));
        parts.push_back(part);
    }
    return parts;
}

/// SPS and PPS as x264 makes them for 640 x 360 (baseline).
inline const Bytes& sps640()
{
    static const Bytes nal = {0x67, 0x42, 0xC0, 0x1E, 0xD9, 0x00, 0xA0, 0x2F, 0xF9, 0x70, 0x11, 0x00, 0x00,
                              0x03, 0x00, 0x01, 0x00, 0x00, 0x03, 0x00, 0x32, 0x0F, 0x16, 0x2E, 0x48};
    return nal;
}

inline const Bytes& pps()
{
    static const Bytes nal = {0x68, 0xCB, 0x83, 0xCB, 0x20};
    return nal;
}

/// The form that access units have in a batch: each NAL unit behind its length.
inline Bytes lengthPrefixed(const std::vector<Bytes>& nals)
{
    Bytes out;
    for (const Bytes& nal : nals) {
        put32(out, static_cast<std::uint32_t>(nal.size()));
        append(out, nal);
    }
    return out;
}

} // namespace rtptest
