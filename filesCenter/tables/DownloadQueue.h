#pragma once

#include <QHash>
#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>

#include <functional>

namespace vemo_filesCenter {

/// Who may download: the tasks that wait in their order, those handed to the worker that have not reported progress
/// yet, and those that have. At most five are starting or running together, paused running ones included. A plain value
/// without tasks, timers or widgets.
///
/// A starting task still waits; one that runs does neither, which is why it is never found in two of the sets that
/// matter for a slot.
class DownloadQueue final
{
public:
    static constexpr int slotLimit = 5;

    bool isWaiting(const QString& key) const { return m_placeOf.contains(key); }
    bool isStarting(const QString& key) const { return m_startingSet.contains(key); }
    bool isRunning(const QString& key) const { return m_runningSet.contains(key); }
    bool isKnown(const QString& key) const { return isWaiting(key) || isStarting(key) || isRunning(key); }

    int waitingCount() const { return m_waitingQueue.size(); } ///< starting ones included
    int startingCount() const { return m_startingSet.size(); }
    int runningCount() const { return m_runningSet.size(); }
    QStringList waitingKeys() const { return m_waitingQueue.values(); }
    const QSet<QString>& startingKeys() const { return m_startingSet; }
    const QSet<QString>& runningKeys() const { return m_runningSet; }

    /// Puts the task at the end, unless it waits or runs already.
    void append(const QString& key);
    /// Takes the task out of all three.
    void remove(const QString& key);
    /// Not started after all: it waits on, behind the others when there are any.
    void putBack(const QString& key);
    /// No longer wanted, but keeps its slot when it runs.
    void stopWaiting(const QString& key);

    /// Takes a slot for this task; false when there is none or the task has one.
    bool takeSlot(const QString& key);
    /// Gives free slots to waiting tasks in their order, calling `start` for each. Tasks may be added, removed and
    /// started while `start` runs.
    void fillSlots(const std::function<void(const QString& key)>& start);
    /// The worker reported progress; true the first time.
    bool noteProgress(const QString& key);

private:
    void takeFromWaiting(const QString& key);
    bool hasFreeSlot() const;

    QMap<quint64, QString> m_waitingQueue; ///< by place; the front is started first
    QHash<QString, quint64> m_placeOf;
    quint64 m_lastPlace = 0;
    QSet<QString> m_startingSet;
    QSet<QString> m_runningSet;
};

} // namespace vemo_filesCenter
