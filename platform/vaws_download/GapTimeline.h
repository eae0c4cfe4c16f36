#pragma once

#include "MediaTypes.h"

#include <cstdint>
#include <vector>

namespace vaws {

/// `value` in ns as ticks of `timescale`, to the nearest.
std::int64_t nsToTicks(std::int64_t value, std::uint32_t timescale);
std::int64_t ticksToNs(std::int64_t ticks, std::uint32_t timescale);

/// Maps the recorder's clock to the movie's time, in which gaps of the recording are left out, and back. Media time is
/// ns from the first key frame; ticks are media time plus a lead, so that no track needs negative ones. A plain value;
/// gaps come in order.
class GapTimeline final
{
public:
    GapTimeline() = default;
    GapTimeline(std::int64_t baseNs, std::int64_t leadNs)
        : m_baseNs(baseNs)
        , m_leadNs(leadNs)
    {}

    std::int64_t baseNs() const { return m_baseNs; }
    std::int64_t leadNs() const { return m_leadNs; }
    const std::vector<Gap>& gaps() const { return m_gaps; }

    void addGap(const Gap& gap);

    /// A time inside a gap goes to the nearer side of it, because tracks don't resume in the same instant.
    std::int64_t toMediaNs(std::int64_t utcNs) const;
    std::int64_t toUtcNs(std::int64_t mediaNs) const;
    std::int64_t toTicks(std::int64_t utcNs, std::uint32_t timescale) const;
    /// Where in the movie the gap lies.
    std::int64_t gapMediaNs(std::size_t index) const;

private:
    std::int64_t m_baseNs = 0;
    std::int64_t m_leadNs = 0;
    std::int64_t m_collapsedNs = 0; ///< sum over m_gaps
    std::vector<Gap> m_gaps;
};

} // namespace vaws
