#pragma once

#include <QHash>
#include <QMutex>

#include <atomic>
#include <memory>

namespace vms_sdk {

class StreamWorker;

/// Carries consumed bytes from any thread to the network thread of a stream. Reports are added up until the network
/// thread takes them, so a report costs an addition and only the first of many wakes it. Entries are removed before
/// their worker goes away.
class StreamFlowTable final
{
public:
    using Counter = std::shared_ptr<std::atomic<qint64>>;

    /// GUI thread.
    Counter add(quint64 streamId, StreamWorker* worker);
    void remove(quint64 streamId);
    void clear();

    /// Any thread; unknown streams are ignored.
    void consumed(quint64 streamId, qint64 bytes);

private:
    struct Entry
    {
        StreamWorker* worker = nullptr;
        Counter consumedBytes;
    };

    QMutex m_mutex;
    QHash<quint64, Entry> m_entries; ///< under m_mutex
};

} // namespace vms_sdk
