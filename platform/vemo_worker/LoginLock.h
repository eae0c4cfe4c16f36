#pragma once

#include "vemo_worker_global.h"

#include <QtGlobal>

namespace vemo_worker {

/// Keeps somebody who guesses a password waiting: from the fifth wrong one in a row on, each locks the account for 1
/// minute, then 5, then 15. A lock outlives a restart. While the program runs it is measured by a clock that can't be
/// set; after a restart by the calendar, and when that was set back the whole lock begins anew. Pure value, no clock of
/// its own.
class VEMO_WORKER_EXPORT LoginLock final
{
public:
    struct Now
    {
        qint64 utcMs = 0;
        qint64 steadyMs = 0; ///< of the clock that can't be set, from any origin
    };

    static constexpr int freeTries = 5;

    LoginLock() = default;
    /// As it was kept by an earlier run.
    LoginLock(int failures, qint64 lockedAtUtcMs);

    /// 0: not locked.
    qint64 remainingMs(const Now& now);
    void fail(const Now& now);
    void clear();

    int failures() const { return m_failures; }
    qint64 lockedAtUtcMs() const { return m_lockedAtUtcMs; }

private:
    qint64 lockMs() const;

    int m_failures = 0;
    qint64 m_lockedAtUtcMs = 0;
    qint64 m_endSteadyMs = unknown;

    static constexpr qint64 unknown = -1;
};

} // namespace vemo_worker
