#pragma once

#include <QMutex>
#include <QWaitCondition>

namespace VCOMMON {

/// Where a worker thread lets itself be held up and called off. The worker calls pass() between two steps of its work;
/// all the rest may be called from any thread. Once cancelled it stays so.
class PausePoint final
{
    Q_DISABLE_COPY_MOVE(PausePoint)

public:
    explicit PausePoint(bool paused = false)
        : m_paused(paused)
    {}

    /// Waits while paused. False when the work was called off.
    bool pass();
    void setPaused(bool paused);
    void cancel();
    bool isPaused() const;
    bool isCancelled() const;

private:
    mutable QMutex m_mutex;
    QWaitCondition m_changed;
    bool m_paused;            ///< guarded by m_mutex
    bool m_cancelled = false; ///< guarded by m_mutex
};

} // namespace VCOMMON
