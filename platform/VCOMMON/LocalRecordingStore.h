#pragma once

#include "ChannelInfo.h"
#include "LocalRecordingIndexInfo.h"

#include <QHash>
#include <QStringList>

class QSqlDatabase;

namespace VCOMMON {

/// How a file looked when it was last read; the same again means the same content.
struct FileMark
{
    qint64 bytes = 0;
    qint64 writtenUtcMs = 0;

    bool operator==(const FileMark& other) const { return bytes == other.bytes && writtenUtcMs == other.writtenUtcMs; }
};

/// The records of local recordings in the database. Functions for its jobs: on its thread, false after a failure.
namespace LocalRecordingStore {

using Records = QList<LocalRecordingIndexInfo>;

bool put(QSqlDatabase& db, const LocalRecordingIndexInfo& record);
/// What a scan read: the channel of a record that has a device already stays, since a file tells less.
bool putScanned(QSqlDatabase& db, const Records& records, const QHash<QString, FileMark>& marks);

/// In the order of begin, at most `limit`.
bool find(QSqlDatabase& db, qint64 beginUtcMs, qint64 endUtcMs, int limit, Records* records);
/// Only those with a span to cut from.
bool findOfChannels(QSqlDatabase& db, const QList<ChannelInfo>& channels, qint64 beginUtcMs, qint64 endUtcMs, int limit,
                    Records* records);

/// `removed` gets what was stored of them.
bool remove(QSqlDatabase& db, const QStringList& filePaths, Records* removed);

} // namespace LocalRecordingStore

} // namespace VCOMMON
