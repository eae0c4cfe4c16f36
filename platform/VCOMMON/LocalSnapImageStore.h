#pragma once

#include "LocalRecordingStore.h"
#include "LocalSnapImageIndexInfo.h"

namespace VCOMMON {

/// The records of local snapshots in the database. Functions for its jobs: on its thread, false after a failure.
namespace LocalSnapImageStore {

using Records = QList<LocalSnapImageIndexInfo>;

/// The newest ones, at most `limit`, in the order of their times.
bool readNewest(QSqlDatabase& db, int limit, Records* records);
bool put(QSqlDatabase& db, const Records& records, const QHash<QString, FileMark>& marks);
bool remove(QSqlDatabase& db, const QStringList& filePaths);

} // namespace LocalSnapImageStore

} // namespace VCOMMON
