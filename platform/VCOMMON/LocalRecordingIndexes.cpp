#include "LocalRecordingIndexes.h"

#include "LocalRecordingStore.h"

#include <Database.h>

#include <QSet>

#include <memory>

namespace VCOMMON {

using LocalRecordingStore::Records;

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
    vemo_data::Database::instance().post([record](QSqlDatabase& db) { return LocalRecordingStore::put(db, record); });
}

void LocalRecordingIndexes::restoreLocalRecordingIndexes(const QStringList& filePaths)
{
    const QSet<QString> wanted(filePaths.begin(), filePaths.end());
    for (const LocalRecordingIndexInfo& record : qAsConst(m_removed)) {
        if (wanted.contains(record.filePath))
            addLocalRecordingIndex(record);
    }
}

void LocalRecordingIndexes::answer(const QString& requestId, const QDateTime& begin, const QDateTime& end, int type)
{
    auto records = std::make_shared<Records>();
    vemo_data::Database::instance().post(
        [beginUtcMs = begin.toMSecsSinceEpoch(), endUtcMs = end.toMSecsSinceEpoch(), records](QSqlDatabase& db) {
            return LocalRecordingStore::find(db, beginUtcMs, endUtcMs, maxRecordsAnswered, records.get());
        },
        [this, requestId, records, type](bool ok) {
            emit signalGetLocalRecordingIndexesInfoResult(requestId, ok ? *records : Records(), type);
        });
}

void LocalRecordingIndexes::remove(const QString& requestId, const QStringList& filePaths)
{
    auto removed = std::make_shared<Records>();
    vemo_data::Database::instance().post(
        [filePaths, removed](QSqlDatabase& db) { return LocalRecordingStore::remove(db, filePaths, removed.get()); },
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
         records](QSqlDatabase& db) {
            return LocalRecordingStore::findOfChannels(db, channels, beginUtcMs, endUtcMs, maxRecordsAnswered,
                                                       records.get());
        },
        [this, requestId, records](bool ok) {
            emit signalGetChannelsLocalRecordingIndexesInfoResult(requestId, ok ? *records : Records());
        });
}

} // namespace VCOMMON
