#include "DownloadQueue.h"

namespace vemo_filesCenter {

void DownloadQueue::append(const QString& key)
{
    if (isWaiting(key) || isRunning(key))
        return;
    m_waitingQueue.insert(++m_lastPlace, key);
    m_placeOf.insert(key, m_lastPlace);
}

void DownloadQueue::takeFromWaiting(const QString& key)
{
    const auto place = m_placeOf.find(key);
    if (place == m_placeOf.end())
        return;
    m_waitingQueue.remove(*place);
    m_placeOf.erase(place);
}

void DownloadQueue::remove(const QString& key)
{
    takeFromWaiting(key);
    m_startingSet.remove(key);
    m_runningSet.remove(key);
}

void DownloadQueue::stopWaiting(const QString& key)
{
    takeFromWaiting(key);
    m_startingSet.remove(key);
}

void DownloadQueue::putBack(const QString& key)
{
    m_startingSet.remove(key);
    if (m_waitingQueue.size() >= 2 && isWaiting(key)) {
        takeFromWaiting(key);
        append(key);
    }
}

bool DownloadQueue::hasFreeSlot() const
{
    return m_runningSet.size() < slotLimit && m_startingSet.size() < slotLimit - m_runningSet.size();
}

bool DownloadQueue::takeSlot(const QString& key)
{
    if (!hasFreeSlot() || isStarting(key) || isRunning(key))
        return false;
    m_startingSet.insert(key);
    return true;
}

void DownloadQueue::fillSlots(const std::function<void(const QString&)>& start)
{
    // A start that fails at once gives its slot back and would be tried again and again: what a round may start is
    // settled before the first one.
    int budget = slotLimit - m_startingSet.size() - m_runningSet.size();
    const quint64 lastPlace = m_lastPlace;
    quint64 place = 0;
    while (budget > 0) {
        const auto next = m_waitingQueue.upperBound(place);
        if (next == m_waitingQueue.end() || next.key() > lastPlace)
            return;
        place = next.key();
        const QString key = next.value();
        if (isStarting(key))
            continue;
        if (!takeSlot(key))
            return;
        --budget;
        start(key);
    }
}

bool DownloadQueue::noteProgress(const QString& key)
{
    stopWaiting(key);
    if (isRunning(key))
        return false;
    m_runningSet.insert(key);
    return true;
}

} // namespace vemo_filesCenter
