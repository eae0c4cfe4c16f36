#pragma once

#include "VmsTypes.h"

#include <QHash>
#include <QObject>
#include <QQueue>
#include <QTimer>

#include <map>
#include <memory>

namespace vms_sdk {

/// The searches that wait for an answer, by request id. Each is answered exactly once: with recordings, with an error,
/// or as timed out when the time since its begin or last renewal is up (timers run by a monotonic clock). An answer
/// that comes later is dropped. GUI thread.
class SearchRequests final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SearchRequests)

public:
    explicit SearchRequests(int timeoutMs, QObject* parent = nullptr);

    /// False when a request of that id is already waiting.
    bool add(const QString& requestId);
    void renew(const QString& requestId);
    bool isWaiting(const QString& requestId) const { return m_waiting.count(requestId) > 0; }
    void answer(const QString& requestId, const Error& error, const QList<VideoRecording>& recordings);
    Error errorOf(const QString& requestId) const { return m_errors.value(requestId); }

signals:
    void timedOut(const QString& requestId);

private:
    void onTimeout(const QString& requestId);
    void keepError(const QString& requestId, const Error& error);

    const int m_timeoutMs;
    std::map<QString, std::unique_ptr<QTimer>> m_waiting;
    QHash<QString, Error> m_errors;
    QQueue<QString> m_errorOrder; ///< oldest first
};

} // namespace vms_sdk
