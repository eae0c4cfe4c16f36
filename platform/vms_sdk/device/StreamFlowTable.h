#pragma once

#include <QHash>

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>

namespace vms_sdk {

/// Carries consumed bytes from any thread to the network thread of a stream. Reports are added up until the network
/// thread takes them, so a report costs an addition and only the first of many wakes it. Entries are removed before
/// their worker goes away.
class StreamFlowTable final
{
public:
    using Wake = std::function<void()>;
    using Counter = std::shared_ptr<std::atomic<qint64>>;

    /// GUI thread, like remove() and clear(). `wake` runs under the lock, when the counter leaves zero; it must only
    /// post.
    Counter add(quint64 streamId, Wake wake);
    void remove(quint64 streamId);
    void clear();

    /// Any thread; unknown streams are ignored.
    void consumed(quint64 streamId, qint64 bytes);

private:
    struct Entry
    {
        Wake wake;
        Counter consumedBytes;
    };

    std::mutex m_mutex;
    QHash<quint64, Entry> m_entries; ///< under m_mutex
};

} // namespace vms_sdk
