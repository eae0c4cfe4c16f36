#include "StreamFlowTable.h"

#include "StreamWorker.h"

#include <QMutexLocker>

namespace vms_sdk {

StreamFlowTable::Counter StreamFlowTable::add(quint64 streamId, StreamWorker* worker)
{
    const auto counter = std::make_shared<std::atomic<qint64>>(0);
    const QMutexLocker locker(&m_mutex);
    m_entries.insert(streamId, {worker, counter});
    return counter;
}

void StreamFlowTable::remove(quint64 streamId)
{
    const QMutexLocker locker(&m_mutex);
    m_entries.remove(streamId);
}

void StreamFlowTable::clear()
{
    const QMutexLocker locker(&m_mutex);
    m_entries.clear();
}

void StreamFlowTable::consumed(quint64 streamId, qint64 bytes)
{
    if (bytes <= 0)
        return;
    const QMutexLocker locker(&m_mutex);
    const auto entry = m_entries.constFind(streamId);
    if (entry == m_entries.constEnd())
        return;
    // The worker lives while its entry stands, and posting an event is all that happens under the lock.
    if (entry->consumedBytes->fetch_add(bytes, std::memory_order_acq_rel) == 0) {
        QMetaObject::invokeMethod(
            entry->worker, [worker = entry->worker, streamId] { worker->takeConsumed(streamId); },
            Qt::QueuedConnection);
    }
}

} // namespace vms_sdk
