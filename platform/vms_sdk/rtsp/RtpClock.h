#pragma once

#include <cstdint>

namespace vms_sdk::rtsp {

/// Unwraps 32-bit RTP time into 64 bits, forwards and backwards (pictures come in decode order). Nothing else does so.
class RtpClock
{
public:
    std::int64_t unwrap(std::uint32_t timestamp)
    {
        if (!m_started) {
            m_started = true;
            m_last = timestamp;
        } else {
            m_last = peek(timestamp);
        }
        return m_last;
    }

    /// What unwrap() would return, without moving on.
    std::int64_t peek(std::uint32_t timestamp) const
    {
        return m_last + static_cast<std::int32_t>(timestamp - static_cast<std::uint32_t>(m_last));
    }

private:
    bool m_started = false;
    std::int64_t m_last = 0;
};

/// Ticks of a clock as nanoseconds, rounded down; exact over any span.
inline std::int64_t ticksToNs(std::int64_t ticks, std::uint32_t clockRate)
{
    constexpr std::int64_t nsPerSecond = 1'000'000'000;
    const auto rate = static_cast<std::int64_t>(clockRate);
    std::int64_t seconds = ticks / rate;
    std::int64_t rest = ticks % rate;
    if (rest < 0) {
        --seconds;
        rest += rate;
    }
    return seconds * nsPerSecond + rest * nsPerSecond / rate;
}

} // namespace vms_sdk::rtsp
