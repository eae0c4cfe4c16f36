#include "LocalRecordingIndexes.h"

#include <Database.h>

#include <QDebug>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

#include <algorithm>
#include <memory>

namespace VCOMMON {

namespace {

using Records = QList<LocalRecordingIndexInfo>;

QString notNull(const QString& text)
{
    return text.isNull() ? QStringLiteral("") : text;
}

bool carryOut(QSqlQuery& query)
{
    if (query.exec())
        return true;
    qWarning().noquote() << "local recordings:" << query.lastError().text();
    return false;
}

bool put(QSqlDatabase& db, const LocalRecordingIndexInfo& record)
{
    QSqlQuery query(db);
    query.prepare(QStringLiteral("INSERT OR REPLACE INTO local_recordings (file_path, dev_id, channel_no, channel_id, "
                                 "channel_name, dev_name, begin_utc_ms, end_utc_ms) VALUES (?, ?, ?, ?, ?, ?, ?, ?)"));
    query.addBindValue(record.filePath);
    query.addBindValue(notNull(record.devId));
    query.addBindValue(record.channelNo);
    query.addBindValue(notNull(record.channelId));
    query.addBindValue(notNull(record.channelName));
    query.addBindValue(notNull(record.devName));
    query.addBindValue(record.beginTime.toMSecsSinceEpoch());
    query.addBindValue(record.endTime.toMSecsSinceEpoch());
    return carryOut(query);
}

constexpr const char* columns = "SELECT file_path, dev_id, channel_no, channel_id, channel_name, dev_name, "
                                "begin_utc_ms, end_utc_ms FROM local_recordings ";

LocalRecordingIndexInfo recordAt(const QSqlQuery& query)
{
    LocalRecordingIndexInfo record;
    record.filePath = query.value(0).toString();
    record.devId = query.value(1).toString();
    record.channelNo = query.value(2).toInt();
    record.channelId = query.value(3).toString();
    record.channelName = query.value(4).toString();
    record.devName = query.value(5).toString();
    record.beginTime = QDateTime::fromMSecsSinceEpoch(query.value(6).toLongLong());
    record.endTime = QDateTime::fromMSecsSinceEpoch(query.value(7).toLongLong());
    return record;
}

bool findAll(QSqlDatabase& db, qint64 beginUtcMs, qint64 endUtcMs, Records* records)
{
    QSqlQuery query(db);
    query.setForwardOnly(true);
    query.prepare(QLatin1String(columns) +
                  QStringLiteral("WHERE begin_utc_ms < ? AND end_utc_ms > ? ORDER BY begin_utc_ms LIMIT ?"));
    query.addBindValue(endUtcMs);
    query.addBindValue(beginUtcMs);
    query.addBindValue(LocalRecordingIndexes::maxRecordsAnswered);
    if (!carryOut(query))
        return false;
    while (query.next())
        records->append(recordAt(query));
    return true;
}

/// `removed` gets what was stored of them.
bool removeAll(QSqlDatabase& db, const QStringList& filePaths, Records* removed)
{
    QSqlQuery stored(db);
    stored.prepare(QLatin1String(columns) + QStringLiteral("WHERE file_path = ?"));
    QSqlQuery gone(db);
    gone.prepare(QStringLiteral("DELETE FROM local_recordings WHERE file_path = ?"));
    for (const QString& filePath : filePaths) {
        stored.bindValue(0, filePath);
        if (!carryOut(stored))
            return false;
        if (stored.next())
            removed->append(recordAt(stored));
        stored.finish();
        gone.bindValue(0, filePath);
        if (!carryOut(gone))
            return false;
    }
    return true;
}

bool find(QSqlDatabase& db, const QList<ChannelInfo>& channels, qint64 beginUtcMs, qint64 endUtcMs, Records* records)
{
    QSqlQuery query(db);
    query.setForwardOnly(true);
    query.prepare(QLatin1String(columns) +
                  QStringLiteral("WHERE dev_id = ? AND channel_no = ? AND begin_utc_ms < ? AND end_utc_ms > ? "
                                 "ORDER BY begin_utc_ms LIMIT ?"));
    for (const ChannelInfo& channel : channels) {
        query.bindValue(0, notNull(channel.devId));
        query.bindValue(1, channel.channelNo);
        query.bindValue(2, endUtcMs);
        query.bindValue(3, beginUtcMs);
        query.bindValue(4, LocalRecordingIndexes::maxRecordsAnswered - records->size());
        if (!carryOut(query))
            return false;
        while (query.next())
            records->append(recordAt(query));
    }
    std::stable_sort(records->begin(), records->end(),
                     [](const auto& a, const auto& b) { return a.beginTime < b.beginTime; });
    return true;
}

} // namespace

LocalRecordingIndexes::LocalRecordingIndexes()
{
    connect(this, &LocalRecordingIndexes::signalGetLocalRecordingIndexesInfo, this,
            [this](const QString& requestId, const QDateTime& begin, const QDateTime& end, int type) {
                answer(requestId, begin, end, type);
            });
    connect(this, &LocalRecordingIndexes::signalDeleteLocalRecordingIndexes, this, &LocalRecordingIndexes::remove);
    connect(this, &LocalRecordingIndexes::signalGetChannelsLocalRecordingIndexesInfo, this,
            [this](const QString& requestId, const QList<ChannelInfo>& channels, const QDateTime& begin,
                   const QDateTime& end) { answer(requestId, channels, begin, end); });
}

LocalRecordingIndexes& LocalRecordingIndexes::instance()
{
    static LocalRecordingIndexes indexes;
    return indexes;
}

void LocalRecordingIndexes::addLocalRecordingIndex(const LocalRecordingIndexInfo& record)
{
    vemo_data::Database::instance().post([record](QSqlDatabase& db) { return put(db, record); });
}

void LocalRecordingIndexes::restoreLocalRecordingIndexes(const QStringList& filePaths)
{
    for (const LocalRecordingIndexInfo& record : qAsConst(m_removed)) {
        if (filePaths.contains(record.filePath))
            addLocalRecordingIndex(record);
    }
}

void LocalRecordingIndexes::answer(const QString& requestId, const QDateTime& begin, const QDateTime& end, int type)
{
    auto records = std::make_shared<Records>();
    vemo_data::Database::instance().post(
        [beginUtcMs = begin.toMSecsSinceEpoch(), endUtcMs = end.toMSecsSinceEpoch(), records](QSqlDatabase& db) {
            return findAll(db, beginUtcMs, endUtcMs, records.get());
        },
        [this, requestId, records, type](bool ok) {
            emit signalGetLocalRecordingIndexesInfoResult(requestId, ok ? *records : Records(), type);
        });
}

void LocalRecordingIndexes::remove(const QString& requestId, const QStringList& filePaths)
{
    auto removed = std::make_shared<Records>();
    vemo_data::Database::instance().post(
        [filePaths, removed](QSqlDatabase& db) { return removeAll(db, filePaths, removed.get()); },
        [this, requestId, filePaths, removed](bool ok) {
            if (ok)
                m_removed = *removed;
            emit signalDeleteLocalRecordingIndexesResult(requestId, filePaths, ok);
        });
}

void LocalRecordingIndexes::answer(const QString& requestId, const QList<ChannelInfo>& channels, const QDateTime& begin,
                                   const QDateTime& end)
{
    auto records = std::make_shared<Records>();
    vemo_data::Database::instance().post(
        [channels, beginUtcMs = begin.toMSecsSinceEpoch(), endUtcMs = end.toMSecsSinceEpoch(),
         records](QSqlDatabase& db) { return find(db, channels, beginUtcMs, endUtcMs, records.get()); },
        [this, requestId, records](bool ok) {
            emit signalGetChannelsLocalRecordingIndexesInfoResult(requestId, ok ? *records : Records());
        });
}

} // namespace VCOMMON
