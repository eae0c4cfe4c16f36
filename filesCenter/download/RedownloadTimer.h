#pragma once

#include <QObject>
#include <QTimer>

#include <functional>

namespace vemo_filesCenter {

/// Asks for a failed task to be downloaded again, at growing intervals with a random part. On the GUI thread, owned by
/// its parent; it deletes itself after an hour in which no retry was armed.
class RedownloadTimer final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(RedownloadTimer)

public:
    using Random = std::function<quint32()>;

    RedownloadTimer(const QString& taskId, QObject* parent);
    RedownloadTimer(const QString& taskId, const Random& random, QObject* parent);

    /// Arms the next attempt: after 30 s for each attempt so far, eleven at most, and up to 59 s more.
    void scheduleRetry();
    /// Milliseconds until the armed attempt; -1 when none is armed.
    int msUntilRetry() const { return m_tryTimer.remainingTime(); }

signals:
    void signalRedownloadTask(const QString& taskId);
    /// The timer is about to go.
    void signalRedownloadTimerDestroyed(const QString& taskId);

private slots:
    void slotKillTimeout();
    void slotTryRedownloadTimeout();

private:
    const QString m_taskId;
    const Random m_random;
    int m_attempt = 1;
    QTimer m_killTimer;
    QTimer m_tryTimer;
};

} // namespace vemo_filesCenter
