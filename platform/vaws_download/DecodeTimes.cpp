#include "DecodeTimes.h"

#include <algorithm>
#include <limits>

namespace vaws {
namespace {

constexpr std::size_t maxDepth = 16; ///< of H.264 and H.265 alike

}

void DecodeTimes::observe(std::int64_t presentation)
{
    const auto later = static_cast<std::size_t>(
        std::count_if(m_recent.begin(), m_recent.end(), [&](std::int64_t other) { return other > presentation; }));
    m_depth = std::min(maxDepth, std::max(m_depth, later));
    if (m_recent.size() > maxDepth)
        m_recent.erase(m_recent.begin());
    m_recent.push_back(presentation);
}

std::int64_t DecodeTimes::assign(std::int64_t presentation, std::int64_t nominal)
{
    m_waiting.insert(std::upper_bound(m_waiting.begin(), m_waiting.end(), presentation), presentation);
    std::int64_t decode = 0;
    if (!m_started) {
        decode = presentation - static_cast<std::int64_t>(m_depth) * nominal;
        m_started = true;
        m_last = decode - 1;
    } else if (m_waiting.size() > m_depth) {
        decode = m_waiting.front();
    } else {
        const auto missing = static_cast<std::int64_t>(m_depth - m_waiting.size() + 1);
        decode = std::min(m_last + nominal,
                          m_last + std::max<std::int64_t>(1, (m_waiting.front() - m_last) / (missing + 1)));
    }
    if (m_waiting.size() > m_depth)
        m_waiting.erase(m_waiting.begin());
    m_last = std::max(decode, m_last + 1);
    return m_last;
}

std::int64_t DecodeTimes::frontier() const
{
    return m_started ? m_last : std::numeric_limits<std::int64_t>::min();
}

} // namespace vaws
