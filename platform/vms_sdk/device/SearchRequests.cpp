#include "SearchRequests.h"

#include "ClientSignals.h"

namespace vms_sdk {

namespace {

constexpr int keptErrors = 64;

} // namespace

SearchRequests::SearchRequests(int timeoutMs, QObject* parent)
    : QObject(parent)
    , m_timeoutMs(timeoutMs)
{}

bool SearchRequests::add(const QString& requestId)
{
    if (isWaiting(requestId))
        return false;
    auto timer = std::make_unique<QTimer>();
    timer->setSingleShot(true);
    connect(timer.get(), &QTimer::timeout, this, [this, requestId] { onTimeout(requestId); });
    timer->start(m_timeoutMs);
    m_waiting.emplace(requestId, std::move(timer));
    return true;
}

void SearchRequests::renew(const QString& requestId)
{
    const auto waiting = m_waiting.find(requestId);
    if (waiting != m_waiting.end())
        waiting->second->start(m_timeoutMs);
}

void SearchRequests::answer(const QString& requestId, const Error& error, const QList<VideoRecording>& recordings)
{
    const auto waiting = m_waiting.find(requestId);
    if (waiting == m_waiting.end())
        return;
    m_waiting.erase(waiting);
    if (error)
        keepError(requestId, error);
    emit ClientSignals::instance().signalSearchVideoRecordingsRes(requestId, static_cast<int>(error.kind), recordings);
}

void SearchRequests::onTimeout(const QString& requestId)
{
    const auto waiting = m_waiting.find(requestId);
    if (waiting == m_waiting.end())
        return;
    waiting->second.release()->deleteLater(); // this runs in its signal
    m_waiting.erase(waiting);
    keepError(requestId,
              {ErrorKind::TimedOut, tr("The search was not answered within %1 s.").arg(m_timeoutMs / 1000), {}});
    emit timedOut(requestId);
    emit ClientSignals::instance().signalRequestTimeout(requestId);
}

void SearchRequests::keepError(const QString& requestId, const Error& error)
{
    if (!m_errors.contains(requestId))
        m_errorOrder.enqueue(requestId);
    m_errors.insert(requestId, error);
    while (m_errorOrder.size() > keptErrors)
        m_errors.remove(m_errorOrder.dequeue());
}

} // namespace vms_sdk
