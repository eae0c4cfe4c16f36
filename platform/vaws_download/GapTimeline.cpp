#include "GapTimeline.h"

#include "ClockText.h"

namespace vaws {
namespace {

std::int64_t floorDivide(std::int64_t value, std::int64_t by)
{
    return value / by - (value % by < 0 ? 1 : 0);
}

std::int64_t scale(std::int64_t value, std::int64_t from, std::int64_t to)
{
    const std::int64_t whole = floorDivide(value, from);
    const std::int64_t rest = value - whole * from;
    return whole * to + (rest * to + from / 2) / from;
}

} // namespace

const char* gapCauseText(GapCause cause)
{
    return cause == GapCause::LostInTransfer ? "lost in transfer" : "not recorded";
}

std::int64_t nsToTicks(std::int64_t value, std::uint32_t timescale)
{
    return scale(value, nsPerSecond, timescale);
}

std::int64_t ticksToNs(std::int64_t ticks, std::uint32_t timescale)
{
    return scale(ticks, timescale, nsPerSecond);
}

void GapTimeline::addGap(const Gap& gap)
{
    m_gaps.push_back(gap);
    if (gap.collapsed)
        m_collapsedNs += gap.endNs - gap.beginNs;
}

std::int64_t GapTimeline::toMediaNs(std::int64_t utcNs) const
{
    std::int64_t outNs = m_collapsedNs;
    for (auto gap = m_gaps.rbegin(); gap != m_gaps.rend(); ++gap) {
        if (utcNs >= gap->beginNs + (gap->endNs - gap->beginNs) / 2)
            break;
        if (gap->collapsed)
            outNs -= gap->endNs - gap->beginNs;
    }
    return utcNs - m_baseNs - outNs;
}

std::int64_t GapTimeline::toUtcNs(std::int64_t mediaNs) const
{
    std::int64_t utcNs = mediaNs + m_baseNs;
    for (const Gap& gap : m_gaps) {
        if (utcNs < gap.beginNs)
            break;
        if (gap.collapsed)
            utcNs += gap.endNs - gap.beginNs;
    }
    return utcNs;
}

std::int64_t GapTimeline::toTicks(std::int64_t utcNs, std::uint32_t timescale) const
{
    return nsToTicks(toMediaNs(utcNs) + m_leadNs, timescale);
}

std::int64_t GapTimeline::gapMediaNs(std::size_t index) const
{
    std::int64_t outNs = 0;
    for (std::size_t i = 0; i < index; ++i) {
        if (m_gaps[i].collapsed)
            outNs += m_gaps[i].endNs - m_gaps[i].beginNs;
    }
    return m_gaps[index].beginNs - m_baseNs - outNs;
}

} // namespace vaws
