#include "LocalSnapImageStore.h"

#include "LocalChannelStore.h"
#include "LocalClock.h"
#include "SqlStep.h"

#include <QSqlDatabase>

#include <algorithm>

namespace VCOMMON {

bool LocalSnapImageStore::readNewest(QSqlDatabase& db, int limit, Records* records)
{
    QHash<qint64, LocalChannel> channels;
    SqlStep all(db, "SELECT capture_utc_ms, file_path, channel, bytes, problem FROM local_snapshots "
                    "ORDER BY capture_utc_ms DESC LIMIT ?");
    if (!LocalChannelStore(db).readAll(&channels) || !all.run({limit}))
        return false;
    LocalClock clock;
    QSqlQuery& query = all.query();
    while (query.next()) {
        const LocalChannel& channel = channels[query.value(2).toLongLong()];
        LocalSnapImageIndexInfo record;
        record.devId = channel.devId;
        record.channelNo = channel.channelNo;
        record.channelName = channel.channelName;
        record.devName = channel.devName;
        record.captureTime = clock.toLocal(query.value(0).toLongLong());
        record.filePath = query.value(1).toString();
        record.bytes = query.value(3).toLongLong();
        record.problem = query.value(4).toString();
        records->append(record);
    }
    std::reverse(records->begin(), records->end());
    return true;
}

bool LocalSnapImageStore::put(QSqlDatabase& db, const Records& records, const QHash<QString, FileMark>& marks)
{
    LocalChannelStore channels(db);
    SqlStep forget(db, "DELETE FROM local_snapshots WHERE file_path = ?");
    SqlStep add(db, "INSERT INTO local_snapshots (capture_utc_ms, file_path, channel, bytes, written_utc_ms, problem) "
                    "VALUES (?, ?, ?, ?, ?, ?)");
    for (const LocalSnapImageIndexInfo& record : records) {
        const qint64 channel =
            channels.rowOf({record.devId, record.channelNo, QString(), record.channelName, record.devName});
        const FileMark mark = marks.value(record.filePath, {record.bytes, 0});
        if (channel == 0 || !forget.run({record.filePath}) ||
            !add.run({record.captureTime.toMSecsSinceEpoch(), record.filePath, channel, mark.bytes, mark.writtenUtcMs,
                      SqlStep::notNull(record.problem)}))
            return false;
    }
    return true;
}

bool LocalSnapImageStore::remove(QSqlDatabase& db, const QStringList& filePaths)
{
    SqlStep forget(db, "DELETE FROM local_snapshots WHERE file_path = ?");
    return std::all_of(filePaths.begin(), filePaths.end(),
                       [&forget](const QString& filePath) { return forget.run({filePath}); });
}

} // namespace VCOMMON
