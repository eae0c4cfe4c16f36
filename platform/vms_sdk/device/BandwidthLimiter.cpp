#include "BandwidthLimiter.h"

namespace vms_sdk {

namespace {

constexpr double savedSeconds = 0.25;

} // namespace

BandwidthLimiter::BandwidthLimiter()
{
    m_sinceRefill.start();
}

void BandwidthLimiter::setLimit(qint64 bytesPerSecond)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_bytesPerSecond.store(qMax<qint64>(bytesPerSecond, 0), std::memory_order_relaxed);
    m_tokens = 0;
    m_sinceRefill.restart();
}

qint64 BandwidthLimiter::take(qint64 wantedBytes)
{
    const auto rate = static_cast<double>(limit());
    if (rate <= 0)
        return wantedBytes;
    const std::lock_guard<std::mutex> lock(m_mutex);
    const double seconds = static_cast<double>(m_sinceRefill.nsecsElapsed()) * 1e-9;
    m_sinceRefill.restart();
    m_tokens = qMin(m_tokens + rate * seconds, rate * savedSeconds);
    const qint64 taken = qBound<qint64>(0, wantedBytes, static_cast<qint64>(m_tokens));
    m_tokens -= static_cast<double>(taken);
    return taken;
}

} // namespace vms_sdk
