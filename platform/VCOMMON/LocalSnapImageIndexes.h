#pragma once

#include "LocalSnapImageIndexInfo.h"
#include "VCOMMON_global.h"

#include <QObject>
#include <QStringList>

namespace VCOMMON {

/// The index of the snapshots on this computer. One object a process, on the GUI thread. It answers at once, from
/// memory: the newest maxRecordsKept, about 25 MB at 100,000. They are read from the database when the object is made;
/// only a question that comes before that is done waits for it. Changes are written by the database's thread, in their
/// order.
class VCOMMON_EXPORT LocalSnapImageIndexes final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LocalSnapImageIndexes)

public:
    static constexpr int maxRecordsKept = 200'000;

    static LocalSnapImageIndexes& instance();

    /// The snapshots taken from `begin` to `end`, both included, in the order of their times.
    QList<LocalSnapImageIndexInfo> getLocalSnapImageIndexesInfo(const QDateTime& begin, const QDateTime& end);
    /// The record of a file; an empty filePath when there is none.
    LocalSnapImageIndexInfo getLocalSnapImageIndexeInfo(const QString& filePath);

    /// Adds a snapshot, or replaces what is known of it.
    void addLocalSnapImageIndex(const LocalSnapImageIndexInfo& info);
    void deleteLocalSnapImageIndex(const QString& filePath);
    void deleteLocalSnapImageIndexes(const QStringList& filePaths);
    /// Puts records back that the latest deletion removed: of files that would not go.
    void restoreLocalSnapImageIndexes(const QStringList& filePaths);

    /// Takes over what a rescan found, stored already.
    void takeScanned(const QList<LocalSnapImageIndexInfo>& records, const QStringList& gone);
    /// Reads the database anew, when another one was opened.
    void reload();

private:
    LocalSnapImageIndexes();

    void ensureRead();
    QList<LocalSnapImageIndexInfo> takeOut(const QStringList& filePaths);
    void putIn(QList<LocalSnapImageIndexInfo> records);

    bool m_isRead = false;
    quint64 m_reading = 0;                    ///< number of the latest reading
    QList<LocalSnapImageIndexInfo> m_records; ///< in the order of capture times
    QList<LocalSnapImageIndexInfo> m_removed; ///< by the latest deletion
};

} // namespace VCOMMON
