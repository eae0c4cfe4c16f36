#include "LocalRecordingStore.h"

#include "LocalChannelStore.h"
#include "SqlStep.h"

#include <LocalClock.h>
#include <SqlRows.h>

#include <QSqlDatabase>

#include <algorithm>

namespace VCOMMON {

namespace {

using LocalRecordingStore::Records;
using vemo_data::SqlRows;

constexpr const char* addStatement =
    "INSERT INTO local_recordings (begin_utc_ms, file_path, end_utc_ms, channel, bytes, written_utc_ms, problem, "
    "span_guessed) VALUES (?, ?, ?, ?, ?, ?, ?, ?)";

// A recording that touches the span begins before its end, and no earlier than the longest one before its begin.
constexpr const char* findStatement =
    "SELECT begin_utc_ms, file_path, end_utc_ms, channel * 4 + span_guessed * 2 + (problem <> ''), bytes "
    "FROM local_recordings "
    "WHERE begin_utc_ms < ? AND begin_utc_ms > ? - (SELECT max(end_utc_ms - begin_utc_ms) FROM local_recordings) - 1 "
    "AND end_utc_ms > ? ORDER BY begin_utc_ms LIMIT ?";
constexpr const char* findOfChannelStatement =
    "SELECT begin_utc_ms, file_path, end_utc_ms, channel * 4 + span_guessed * 2 + (problem <> ''), bytes "
    "FROM local_recordings "
    "WHERE channel IN (SELECT id FROM local_channels WHERE dev_id = ? AND channel_no = ?) AND begin_utc_ms < ? "
    "AND begin_utc_ms > ? - (SELECT max(end_utc_ms - begin_utc_ms) FROM local_recordings) - 1 "
    "AND end_utc_ms > ? AND end_utc_ms > begin_utc_ms ORDER BY begin_utc_ms LIMIT ?";
constexpr const char* findPathStatement =
    "SELECT begin_utc_ms, file_path, end_utc_ms, channel * 4 + span_guessed * 2 + (problem <> ''), bytes "
    "FROM local_recordings "
    "WHERE file_path = ?";

/// Makes records of rows; texts that many rows share are kept once. A column costs as much as the rest of a row, so
/// there are few, and the rare problems are asked for one by one.
class RowReader final
{
public:
    explicit RowReader(QSqlDatabase& db)
        : m_problem(db, "SELECT problem FROM local_recordings WHERE file_path = ?")
    {
        m_isGood = LocalChannelStore(db).readAll(&m_channels);
    }

    bool isGood() const { return m_isGood; }

    /// Appends the record of the row, which is made in its place: a copy costs as much as a column.
    void append(const SqlRows& rows, Records* records)
    {
        records->append(LocalRecordingIndexInfo());
        LocalRecordingIndexInfo& record = records->last();
        const qint64 packed = rows.number(3);
        const LocalChannel& channel = m_channels[packed / 4];
        record.devId = channel.devId;
        record.channelNo = channel.channelNo;
        record.channelId = channel.channelId;
        record.channelName = channel.channelName;
        record.devName = channel.devName;
        record.beginTime = m_clock.toLocal(rows.number(0));
        record.endTime = m_clock.toLocal(rows.number(2));
        record.filePath = rows.text(1);
        record.bytes = rows.number(4);
        record.isSpanGuessed = (packed & 2) != 0;
        if ((packed & 1) != 0 && m_problem.run({record.filePath}) && m_problem.query().next())
            record.problem = m_problem.query().value(0).toString();
    }

private:
    SqlStep m_problem;
    bool m_isGood = false;
    QHash<qint64, LocalChannel> m_channels;
    vemo_data::LocalClock m_clock;
};

LocalChannel channelOf(const LocalRecordingIndexInfo& record)
{
    return {record.devId, record.channelNo, record.channelId, record.channelName, record.devName};
}

QVariantList valuesOf(const LocalRecordingIndexInfo& record, qint64 channel, const FileMark& mark)
{
    const qint64 beginUtcMs = record.beginTime.toMSecsSinceEpoch();
    return {beginUtcMs,
            record.filePath,
            qMax(beginUtcMs, record.endTime.toMSecsSinceEpoch()),
            channel,
            mark.bytes,
            mark.writtenUtcMs,
            SqlStep::notNull(record.problem),
            record.isSpanGuessed};
}

bool forget(SqlStep& step, const QString& filePath)
{
    return step.run({filePath});
}

constexpr const char* forgetStatement = "DELETE FROM local_recordings WHERE file_path = ?";

} // namespace

bool LocalRecordingStore::put(QSqlDatabase& db, const LocalRecordingIndexInfo& record)
{
    SqlStep remove(db, forgetStatement);
    SqlStep add(db, addStatement);
    const qint64 channel = LocalChannelStore(db).rowOf(channelOf(record));
    return channel != 0 && forget(remove, record.filePath) && add.run(valuesOf(record, channel, {record.bytes, 0}));
}

bool LocalRecordingStore::putScanned(QSqlDatabase& db, const Records& records, const QHash<QString, FileMark>& marks)
{
    LocalChannelStore channels(db);
    SqlStep known(db, "SELECT channel FROM local_recordings JOIN local_channels ON id = channel "
                      "WHERE file_path = ? AND dev_id <> ''");
    SqlStep remove(db, forgetStatement);
    SqlStep add(db, addStatement);
    for (const LocalRecordingIndexInfo& record : records) {
        if (!known.run({record.filePath}))
            return false;
        const qint64 channel =
            known.query().next() ? known.query().value(0).toLongLong() : channels.rowOf(channelOf(record));
        if (channel == 0 || !forget(remove, record.filePath) ||
            !add.run(valuesOf(record, channel, marks.value(record.filePath))))
            return false;
    }
    return true;
}

bool LocalRecordingStore::find(QSqlDatabase& db, qint64 beginUtcMs, qint64 endUtcMs, int limit, Records* records)
{
    RowReader reader(db);
    SqlRows found(db, findStatement);
    if (!reader.isGood() || !found.run({endUtcMs, beginUtcMs, beginUtcMs, limit}))
        return false;
    while (found.next())
        reader.append(found, records);
    return found.isGood();
}

bool LocalRecordingStore::findOfChannels(QSqlDatabase& db, const QList<ChannelInfo>& channels, qint64 beginUtcMs,
                                         qint64 endUtcMs, int limit, Records* records)
{
    RowReader reader(db);
    SqlRows found(db, findOfChannelStatement);
    for (const ChannelInfo& channel : channels) {
        if (!reader.isGood() || !found.run({SqlStep::notNull(channel.devId), channel.channelNo, endUtcMs, beginUtcMs,
                                            beginUtcMs, limit - records->size()}))
            return false;
        while (found.next())
            reader.append(found, records);
        if (!found.isGood())
            return false;
    }
    std::stable_sort(records->begin(), records->end(),
                     [](const auto& a, const auto& b) { return a.beginTime < b.beginTime; });
    return true;
}

bool LocalRecordingStore::remove(QSqlDatabase& db, const QStringList& filePaths, Records* removed)
{
    RowReader reader(db);
    SqlRows stored(db, findPathStatement);
    SqlStep gone(db, forgetStatement);
    for (const QString& filePath : filePaths) {
        if (!reader.isGood() || !stored.run({filePath}))
            return false;
        if (stored.next())
            reader.append(stored, removed);
        if (!forget(gone, filePath))
            return false;
    }
    return true;
}

} // namespace VCOMMON
