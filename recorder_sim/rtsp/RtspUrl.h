#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace recorder_sim {

/// The address of an RTSP request: rtsp://host:port/live/N or /replay/N, with `/trackID=K` behind it for one track, and
/// for players that can send no Range of clock times `?clock=BEGIN-END` (and `&rate-control=yes`).
struct RtspUrl
{
    enum class Kind { Unknown, Server, Live, Replay };

    Kind kind = Kind::Unknown;
    int channel = 0;
    bool isSub = false; ///< the smaller second stream of a channel, live
    int track = -1;     ///< -1: the presentation
    std::string base;   ///< scheme, host, port and path without track and query
    std::string query;  ///< without '?'

    std::string queryValue(std::string_view key) const;

    static RtspUrl parse(std::string_view target);
};

/// A Range header (RFC 2326 12.29): clock times as UTC nanoseconds, or npt as nanoseconds from the begin.
struct RtspRange
{
    bool isClock = false;
    std::optional<std::int64_t> beginNs;
    std::optional<std::int64_t> endNs;

    /// Nothing when the text is no range of these two kinds.
    static std::optional<RtspRange> parse(std::string_view text);
};

/// 20260110T080000.040Z; the fraction is left out when it is zero.
std::string clockText(std::int64_t utcNs);
std::optional<std::int64_t> parseClock(std::string_view text);

} // namespace recorder_sim
