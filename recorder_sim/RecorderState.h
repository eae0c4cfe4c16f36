#pragma once

#include "control/FaultPlan.h"
#include "media/PacketPlan.h"
#include "media/ReplaySchedule.h"
#include "Options.h"

#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

namespace recorder_sim {

/// Counted while serving; each on its own, from any thread.
struct Statistics
{
    std::atomic<std::int64_t> rtspConnections{0}; ///< standing now
    std::atomic<std::int64_t> rtspSessions{0};    ///< set up now
    std::atomic<std::int64_t> playing{0};         ///< sending now
    std::atomic<std::int64_t> streamBytes{0};     ///< interleaved bytes sent in all
    std::atomic<std::int64_t> plays{0};           ///< PLAY requests granted in all
    std::atomic<std::int64_t> soapRequests{0};
    std::atomic<std::int64_t> loginsRefused{0};
};

struct ServerPorts
{
    std::uint16_t onvif = 0;
    std::uint16_t rtsp = 0;
    std::uint16_t control = 0;
    std::uint16_t onvifs = 0; ///< 0 without TLS
    std::uint16_t rtsps = 0;
};

/// What the servers of one simulated recorder share. Made before they start and kept until they have stopped;
/// everything in it is either constant then or safe from any thread.
struct RecorderState
{
    explicit RecorderState(const Options& given);

    const Options options;
    const DigestAuth rtspAuth;
    const DigestAuth httpAuth;
    const std::string endpoint;           ///< "urn:uuid:...", what discovery and GetEndpointReference tell
    std::vector<ChannelFootage> channels; ///< channel N at index N - 1
    std::int64_t liveOriginNs = 0;        ///< when the loops of live streams began
    ServerPorts ports;
    PacketPlanCache plans;
    FaultPlan faults;
    Statistics statistics;

    /// Null when there is no such channel.
    const ChannelFootage* channel(int number) const;
    std::int64_t deviceTimeNs() const; ///< UTC as the device believes it to be
    ReplayRange faultyRange(int channel, std::int64_t beginNs, std::int64_t endNs) const;
};

} // namespace recorder_sim
