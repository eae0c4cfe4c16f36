#include "LocalSnapImageIndexes.h"

#include <algorithm>

namespace VCOMMON {

namespace {

bool isEarlier(const LocalSnapImageIndexInfo& record, const QDateTime& time)
{
    return record.captureTime < time;
}

} // namespace

LocalSnapImageIndexes::LocalSnapImageIndexes() = default;

LocalSnapImageIndexes& LocalSnapImageIndexes::instance()
{
    static LocalSnapImageIndexes indexes;
    return indexes;
}

QList<LocalSnapImageIndexInfo> LocalSnapImageIndexes::getLocalSnapImageIndexesInfo(const QDateTime& begin,
                                                                                   const QDateTime& end) const
{
    QList<LocalSnapImageIndexInfo> found;
    for (auto at = std::lower_bound(m_records.begin(), m_records.end(), begin, isEarlier);
         at != m_records.end() && at->captureTime <= end; ++at)
        found.append(*at);
    return found;
}

LocalSnapImageIndexInfo LocalSnapImageIndexes::getLocalSnapImageIndexeInfo(const QString& filePath) const
{
    const auto found = std::find_if(m_records.begin(), m_records.end(),
                                    [&filePath](const auto& record) { return record.filePath == filePath; });
    return found == m_records.end() ? LocalSnapImageIndexInfo() : *found;
}

void LocalSnapImageIndexes::addLocalSnapImageIndex(const LocalSnapImageIndexInfo& info)
{
    deleteLocalSnapImageIndex(info.filePath);
    m_records.insert(std::lower_bound(m_records.begin(), m_records.end(), info.captureTime, isEarlier), info);
}

void LocalSnapImageIndexes::deleteLocalSnapImageIndex(const QString& filePath)
{
    deleteLocalSnapImageIndexes({filePath});
}

void LocalSnapImageIndexes::deleteLocalSnapImageIndexes(const QStringList& filePaths)
{
    m_records.erase(std::remove_if(m_records.begin(), m_records.end(),
                                   [&filePaths](const auto& record) { return filePaths.contains(record.filePath); }),
                    m_records.end());
}

} // namespace VCOMMON
