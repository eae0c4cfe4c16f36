#include "LocalSnapImageStore.h"

#include "LocalChannelStore.h"
#include "SqlStep.h"

#include <LocalClock.h>
#include <SqlRows.h>

#include <QSqlDatabase>

#include <algorithm>

namespace VCOMMON {

bool LocalSnapImageStore::readNewest(QSqlDatabase& db, int limit, Records* records)
{
    QHash<qint64, LocalChannel> channels;
    vemo_data::SqlRows rows(db, "SELECT capture_utc_ms, file_path, channel, bytes, problem FROM local_snapshots "
                                "ORDER BY capture_utc_ms DESC LIMIT ?");
    if (!LocalChannelStore(db).readAll(&channels) || !rows.run({limit}))
        return false;
    vemo_data::LocalClock clock;
    while (rows.next()) {
        const LocalChannel& channel = channels[rows.number(2)];
        LocalSnapImageIndexInfo record;
        record.devId = channel.devId;
        record.channelNo = channel.channelNo;
        record.channelName = channel.channelName;
        record.devName = channel.devName;
        record.captureTime = clock.toLocal(rows.number(0));
        record.filePath = rows.text(1);
        record.bytes = rows.number(3);
        record.problem = rows.text(4);
        records->append(record);
    }
    std::reverse(records->begin(), records->end());
    return rows.isGood();
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
