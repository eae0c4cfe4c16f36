#include "SequenceTracker.h"

namespace vms_sdk::rtsp {
namespace {

// RFC 3550 appendix A.1: what is farther away is a source that started anew.
constexpr std::uint16_t maxDropout = 3000;
constexpr std::uint16_t maxMisorder = 100;

} // namespace

SequenceTracker::Verdict SequenceTracker::update(std::uint16_t sequence, std::uint32_t ssrc)
{
    if (!m_started) {
        start(sequence, ssrc);
        return Verdict::InOrder;
    }
    if (ssrc != m_ssrc) {
        start(sequence, ssrc);
        return Verdict::Restart;
    }
    const auto ahead = static_cast<std::uint16_t>(sequence - m_highest);
    if (ahead == 1) {
        m_highest = sequence;
        m_seen = (m_seen << 1) | 1;
        return Verdict::InOrder;
    }
    if (ahead == 0) {
        ++m_duplicates;
        return Verdict::Drop;
    }
    if (ahead < maxDropout) {
        m_lost += ahead - 1u;
        m_seen = ahead < 64 ? (m_seen << ahead) | 1 : 1;
        m_highest = sequence;
        return Verdict::Lost;
    }
    const auto behind = static_cast<std::uint16_t>(m_highest - sequence);
    if (behind <= maxMisorder) {
        const bool seen = behind >= 64 || (m_seen >> behind & 1) != 0;
        if (seen) {
            ++m_duplicates;
        } else {
            m_seen |= std::uint64_t{1} << behind;
            ++m_reordered;
        }
        return Verdict::Drop;
    }
    start(sequence, ssrc);
    return Verdict::Restart;
}

bool SequenceTracker::isAhead(std::uint16_t sequence, std::uint32_t ssrc) const
{
    const auto ahead = static_cast<std::uint16_t>(sequence - m_highest);
    return m_started && ssrc == m_ssrc && ahead > 1 && ahead < maxDropout;
}

void SequenceTracker::start(std::uint16_t sequence, std::uint32_t ssrc)
{
    m_started = true;
    m_highest = sequence;
    m_ssrc = ssrc;
    m_seen = 1;
}

} // namespace vms_sdk::rtsp
