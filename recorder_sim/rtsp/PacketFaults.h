#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace recorder_sim {

/// Faults of single packets, by which a piece of interleaved packets is rewritten. Deterministic: the same seed and
/// packets give the same outcome.
class PacketFaults final
{
public:
    double lossRate = 0;
    std::int64_t reorderEvery = 0;   ///< every so many packets, two change places
    std::int64_t duplicateEvery = 0; ///< every so many packets, one comes twice
    std::int64_t tornAt = 0;         ///< the packet of this number (from 1) stops half way, its length says otherwise
    std::int64_t wrongLengthAt = 0;  ///< the length of the packet of this number is wrong by `wrongLengthBy`
    int wrongLengthBy = 7;
    std::int64_t trapEvery = 0; ///< every so many RTP packets one has a lying header: padding, extension or CSRC count
    std::uint64_t seed = 1;

    bool any() const
    {
        return lossRate > 0 || reorderEvery > 0 || duplicateEvery > 0 || tornAt > 0 || wrongLengthAt > 0 ||
               trapEvery > 0;
    }

    /// Rewrites whole interleaved packets; RTCP (odd payload types 200 to 204) passes unharmed.
    void rewrite(std::string_view packets, std::string& out);

    std::int64_t lost() const { return m_lost; }

private:
    double random();

    std::int64_t m_count = 0;
    std::int64_t m_lost = 0;
    std::string m_held;
};

} // namespace recorder_sim
