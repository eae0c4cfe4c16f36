#include "RedownloadTimer.h"

#include <QRandomGenerator>

namespace vemo_filesCenter {

namespace {

constexpr int idleLifeMs = 3'600'000;
constexpr int maxAttempt = 11;
constexpr int attemptSeconds = 30;
constexpr quint64 jitterSeconds = 60;

quint32 globalRandom()
{
    return static_cast<quint32>(QRandomGenerator64::global()->generate());
}

} // namespace

RedownloadTimer::RedownloadTimer(const QString& taskId, QObject* parent)
    : RedownloadTimer(taskId, &globalRandom, parent)
{}

RedownloadTimer::RedownloadTimer(const QString& taskId, const Random& random, QObject* parent)
    : QObject(parent)
    , m_taskId(taskId)
    , m_random(random)
    , m_killTimer(this)
    , m_tryTimer(this)
{
    m_killTimer.setObjectName(QStringLiteral("killTimer"));
    m_tryTimer.setObjectName(QStringLiteral("tryTimer"));
    m_tryTimer.setSingleShot(true);
    connect(&m_tryTimer, &QTimer::timeout, this, &RedownloadTimer::slotTryRedownloadTimeout);
    connect(&m_killTimer, &QTimer::timeout, this, &RedownloadTimer::slotKillTimeout);
    m_killTimer.start(idleLifeMs);
}

void RedownloadTimer::scheduleRetry()
{
    const int jitter = static_cast<int>((m_random() * jitterSeconds) >> 32);
    m_tryTimer.start((jitter + m_attempt * attemptSeconds) * 1000);
    m_killTimer.start(idleLifeMs);
}

void RedownloadTimer::slotTryRedownloadTimeout()
{
    if (m_attempt < maxAttempt)
        ++m_attempt;
    emit signalRedownloadTask(m_taskId);
}

void RedownloadTimer::slotKillTimeout()
{
    emit signalRedownloadTimerDestroyed(m_taskId);
    deleteLater();
}

} // namespace vemo_filesCenter
