#include "StreamFlowTable.h"

#include <utility>

namespace vms_sdk {

StreamFlowTable::Counter StreamFlowTable::add(quint64 streamId, Wake wake)
{
    const auto counter = std::make_shared<std::atomic<qint64>>(0);
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_entries.insert(streamId, {std::move(wake), counter});
    return counter;
}

void StreamFlowTable::remove(quint64 streamId)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_entries.remove(streamId);
}

void StreamFlowTable::clear()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_entries.clear();
}

void StreamFlowTable::consumed(quint64 streamId, qint64 bytes)
{
    if (bytes <= 0)
        return;
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto entry = m_entries.constFind(streamId);
    if (entry == m_entries.constEnd())
        return;
    if (entry->consumedBytes->fetch_add(bytes, std::memory_order_acq_rel) == 0)
        entry->wake();
}

} // namespace vms_sdk
