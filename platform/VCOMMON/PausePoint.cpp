#include "PausePoint.h"

#include <QMutexLocker>

namespace VCOMMON {

bool PausePoint::pass()
{
    QMutexLocker lock(&m_mutex);
    while (m_paused && !m_cancelled)
        m_changed.wait(&m_mutex);
    return !m_cancelled;
}

void PausePoint::setPaused(bool paused)
{
    const QMutexLocker lock(&m_mutex);
    m_paused = paused;
    m_changed.wakeAll();
}

void PausePoint::cancel()
{
    const QMutexLocker lock(&m_mutex);
    m_cancelled = true;
    m_changed.wakeAll();
}

bool PausePoint::isPaused() const
{
    const QMutexLocker lock(&m_mutex);
    return m_paused;
}

bool PausePoint::isCancelled() const
{
    const QMutexLocker lock(&m_mutex);
    return m_cancelled;
}

} // namespace VCOMMON
