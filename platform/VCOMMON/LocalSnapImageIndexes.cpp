#include "LocalSnapImageIndexes.h"

#include "LocalSnapImageStore.h"

#include <Database.h>

#include <QSet>

#include <algorithm>
#include <memory>

namespace VCOMMON {

namespace {

using Records = QList<LocalSnapImageIndexInfo>;
using vemo_data::Database;

bool isEarlier(const LocalSnapImageIndexInfo& one, const LocalSnapImageIndexInfo& other)
{
    return one.captureTime < other.captureTime;
}

} // namespace

LocalSnapImageIndexes::LocalSnapImageIndexes()
{
    reload();
}

LocalSnapImageIndexes& LocalSnapImageIndexes::instance()
{
    static LocalSnapImageIndexes indexes;
    return indexes;
}

void LocalSnapImageIndexes::reload()
{
    m_isRead = false;
    m_records.clear();
    m_removed.clear();
    auto records = std::make_shared<Records>();
    Database::instance().post(
        [records](QSqlDatabase& db) { return LocalSnapImageStore::readNewest(db, maxRecordsKept, records.get()); },
        [this, records, reading = ++m_reading](bool) {
            if (reading == m_reading && !m_isRead) {
                m_records = *records;
                m_isRead = true;
            }
        });
}

void LocalSnapImageIndexes::ensureRead()
{
    if (m_isRead)
        return;
    Records records;
    Database::instance().run(
        [&records](QSqlDatabase& db) { return LocalSnapImageStore::readNewest(db, maxRecordsKept, &records); });
    m_records = records;
    m_isRead = true;
}

QList<LocalSnapImageIndexInfo> LocalSnapImageIndexes::getLocalSnapImageIndexesInfo(const QDateTime& begin,
                                                                                   const QDateTime& end)
{
    ensureRead();
    const auto first = std::lower_bound(m_records.cbegin(), m_records.cend(), begin,
                                        [](const auto& record, const auto& time) { return record.captureTime < time; });
    const auto last = std::upper_bound(first, m_records.cend(), end,
                                       [](const auto& time, const auto& record) { return time < record.captureTime; });
    return m_records.mid(static_cast<int>(first - m_records.cbegin()), static_cast<int>(last - first));
}

LocalSnapImageIndexInfo LocalSnapImageIndexes::getLocalSnapImageIndexeInfo(const QString& filePath)
{
    ensureRead();
    const auto found = std::find_if(m_records.cbegin(), m_records.cend(),
                                    [&filePath](const auto& record) { return record.filePath == filePath; });
    return found == m_records.cend() ? LocalSnapImageIndexInfo() : *found;
}

Records LocalSnapImageIndexes::takeOut(const QStringList& filePaths)
{
    ensureRead();
    const QSet<QString> paths(filePaths.begin(), filePaths.end());
    const auto stays = [&paths](const auto& record) { return !paths.contains(record.filePath); };
    const auto gone = std::stable_partition(m_records.begin(), m_records.end(), stays);
    Records removed;
    std::copy(gone, m_records.end(), std::back_inserter(removed));
    m_records.erase(gone, m_records.end());
    return removed;
}

void LocalSnapImageIndexes::putIn(Records records)
{
    std::stable_sort(records.begin(), records.end(), isEarlier);
    const int before = m_records.size();
    m_records += records;
    std::inplace_merge(m_records.begin(), m_records.begin() + before, m_records.end(), isEarlier);
    if (m_records.size() > maxRecordsKept)
        m_records.erase(m_records.begin(), m_records.begin() + (m_records.size() - maxRecordsKept));
}

void LocalSnapImageIndexes::addLocalSnapImageIndex(const LocalSnapImageIndexInfo& info)
{
    takeOut({info.filePath});
    putIn({info});
    Database::instance().post([info](QSqlDatabase& db) { return LocalSnapImageStore::put(db, {info}, {}); });
}

void LocalSnapImageIndexes::deleteLocalSnapImageIndex(const QString& filePath)
{
    deleteLocalSnapImageIndexes({filePath});
}

void LocalSnapImageIndexes::deleteLocalSnapImageIndexes(const QStringList& filePaths)
{
    m_removed = takeOut(filePaths);
    Database::instance().post([filePaths](QSqlDatabase& db) { return LocalSnapImageStore::remove(db, filePaths); });
}

void LocalSnapImageIndexes::restoreLocalSnapImageIndexes(const QStringList& filePaths)
{
    const QSet<QString> wanted(filePaths.begin(), filePaths.end());
    for (const LocalSnapImageIndexInfo& record : qAsConst(m_removed)) {
        if (wanted.contains(record.filePath))
            addLocalSnapImageIndex(record);
    }
}

void LocalSnapImageIndexes::takeScanned(const Records& records, const QStringList& gone)
{
    QStringList replaced = gone;
    for (const LocalSnapImageIndexInfo& record : records)
        replaced.append(record.filePath);
    takeOut(replaced);
    putIn(records);
}

} // namespace VCOMMON
