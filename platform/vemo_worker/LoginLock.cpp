#include "LoginLock.h"

#include <array>

namespace vemo_worker {

namespace {

constexpr qint64 minuteMs = 60'000;
constexpr std::array<qint64, 3> locksMs{minuteMs, 5 * minuteMs, 15 * minuteMs};
constexpr int mostFailures = 1'000'000;

} // namespace

LoginLock::LoginLock(int failures, qint64 lockedAtUtcMs)
    : m_failures(qBound(0, failures, mostFailures))
    , m_lockedAtUtcMs(lockedAtUtcMs)
{}

qint64 LoginLock::lockMs() const
{
    const int over = m_failures - freeTries;
    return over < 0 ? 0 : locksMs[std::size_t(qMin(over, int(locksMs.size()) - 1))];
}

qint64 LoginLock::remainingMs(const Now& now)
{
    if (m_endSteadyMs == unknown) {
        const qint64 elapsedMs = qMax<qint64>(0, now.utcMs - m_lockedAtUtcMs);
        m_endSteadyMs = now.steadyMs + qMax<qint64>(0, lockMs() - elapsedMs);
    }
    return qMax<qint64>(0, m_endSteadyMs - now.steadyMs);
}

void LoginLock::fail(const Now& now)
{
    m_failures = qMin(m_failures + 1, mostFailures);
    m_lockedAtUtcMs = now.utcMs;
    m_endSteadyMs = now.steadyMs + lockMs();
}

void LoginLock::clear()
{
    *this = LoginLock();
}

} // namespace vemo_worker
