#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// A clip (any container that libavformat opens, H.264 or H.265 with or without AAC or G.711, in length-prefixed form
/// as in MP4) as the packets that a recorder's stream would become. Read as a whole at construction; throws
/// std::runtime_error when the clip cannot be used.
class ClipPackets
{
public:
    struct Packet
    {
        std::vector<std::uint8_t> bytes; ///< one whole vav_frame packet
        std::int64_t decodeTimeUs = 0;   ///< from the begin of the clip
        int track = 0;
    };

    /// `beginNs` is the recording's first instant, nanoseconds since 1970 UTC.
    ClipPackets(const std::string& path, std::int64_t beginNs);

    const std::vector<std::uint8_t>& streamInfo() const { return m_streamInfo; }
    const std::vector<Packet>& packets() const { return m_packets; }
    std::int64_t endNs() const { return m_endNs; }

private:
    std::vector<std::uint8_t> m_streamInfo;
    std::vector<Packet> m_packets; ///< in the order of the file: by decode time
    std::int64_t m_endNs = 0;
};
