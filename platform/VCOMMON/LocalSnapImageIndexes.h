#pragma once

#include "LocalSnapImageIndexInfo.h"
#include "VCOMMON_global.h"

#include <QObject>
#include <QStringList>

namespace VCOMMON {

/// The index of the snapshots on this computer. One object a process, on the GUI thread. It answers at once, from
/// memory; changes are written behind it, by the database's thread, in their order.
class VCOMMON_EXPORT LocalSnapImageIndexes final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LocalSnapImageIndexes)

public:
    static LocalSnapImageIndexes& instance();

    /// The snapshots taken from `begin` to `end`, both included, in the order of their times.
    QList<LocalSnapImageIndexInfo> getLocalSnapImageIndexesInfo(const QDateTime& begin, const QDateTime& end) const;
    /// The record of a file; an empty filePath when there is none.
    LocalSnapImageIndexInfo getLocalSnapImageIndexeInfo(const QString& filePath) const;

    /// Adds a snapshot, or replaces what is known of it.
    void addLocalSnapImageIndex(const LocalSnapImageIndexInfo& info);
    void deleteLocalSnapImageIndex(const QString& filePath);
    void deleteLocalSnapImageIndexes(const QStringList& filePaths);

private:
    LocalSnapImageIndexes();

    QList<LocalSnapImageIndexInfo> m_records; ///< in the order of capture times
};

} // namespace VCOMMON
