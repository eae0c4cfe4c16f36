#pragma once

#include <QElapsedTimer>

#include <atomic>
#include <mutex>

namespace vms_sdk {

/// A token bucket that all streams share. Tokens come at the limit's rate and are saved up for a quarter of a second at
/// most. Any thread.
class BandwidthLimiter final
{
public:
    BandwidthLimiter();

    /// 0: no limit.
    void setLimit(qint64 bytesPerSecond);
    qint64 limit() const { return m_bytesPerSecond.load(std::memory_order_relaxed); }
    bool isActive() const { return limit() > 0; }
    /// How many of the wanted bytes may go now; they are taken from the bucket.
    qint64 take(qint64 wantedBytes);

private:
    std::atomic<qint64> m_bytesPerSecond{0};

    // Under m_mutex.
    std::mutex m_mutex;
    QElapsedTimer m_sinceRefill;
    double m_tokens = 0;
};

} // namespace vms_sdk
