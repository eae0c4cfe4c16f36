#include "LocalRecordingsData.h"

#include <BaseTools.h>
#include <NaturalOrder.h>

#include <QHash>

#include <algorithm>
#include <numeric>

namespace vemo_filesCenter {

using VCOMMON::LocalRecordingIndexInfo;

namespace {

/// The channels' names as they are during one pass over the records.
class ChannelNames final
{
public:
    QString of(const LocalRecordingIndexInfo& record)
    {
        auto known = m_current.constFind(record.channelId);
        if (known == m_current.constEnd()) {
            const vemo_base::BaseTools& tools = vemo_base::BaseTools::instance();
            const bool exists = tools.isVideoExist(record.channelId);
            known = m_current.insert(record.channelId, exists ? tools.getChannelName(record.channelId) : QString());
        }
        return known->isNull() ? record.channelName : *known;
    }

private:
    QHash<QString, QString> m_current; ///< null: no longer in the client
};

struct SortEntry
{
    int name = 0; ///< rank of the channel's name
    qint64 beginMs = 0;
    int index = 0;
};

/// The place of each of these names in the natural order.
QVector<int> ranksOf(const QVector<QString>& names)
{
    const QVector<int> order = vemo_base::NaturalOrder::orderOf(names);
    QVector<int> ranks(names.size());
    for (int place = 0; place < order.size(); ++place)
        ranks[order.at(place)] = place;
    return ranks;
}

QVector<SortEntry> sortEntries(const QList<LocalRecordingIndexInfo>& recordings)
{
    ChannelNames channelNames;
    QHash<QString, int> numbers;
    QVector<QString> names;
    QVector<SortEntry> entries;
    entries.reserve(recordings.size());
    for (const LocalRecordingIndexInfo& record : recordings) {
        const QString name = channelNames.of(record);
        auto number = numbers.constFind(name);
        if (number == numbers.constEnd()) {
            number = numbers.insert(name, names.size());
            names.append(name);
        }
        entries.append({*number, record.beginTime.toMSecsSinceEpoch(), entries.size()});
    }
    const QVector<int> ranks = ranksOf(names);
    for (SortEntry& entry : entries)
        entry.name = ranks.at(entry.name);
    return entries;
}

} // namespace

LocalRecordingsData::LocalRecordingsData(QObject* parent)
    : QObject(parent)
{}

void LocalRecordingsData::setRecordings(const QList<LocalRecordingIndexInfo>& recordings)
{
    QVector<SortEntry> entries = sortEntries(recordings);
    std::sort(entries.begin(), entries.end(), [](const SortEntry& one, const SortEntry& other) {
        return one.name != other.name ? one.name < other.name : one.beginMs < other.beginMs;
    });
    m_recordings.clear();
    m_recordings.reserve(entries.size());
    for (const SortEntry& entry : qAsConst(entries))
        m_recordings.append(recordings.at(entry.index));
    filter(QString());
}

void LocalRecordingsData::filter(const QString& keyword)
{
    m_filteredIndexes.clear();
    if (keyword.isEmpty()) {
        m_filteredIndexes.resize(m_recordings.size());
        std::iota(m_filteredIndexes.begin(), m_filteredIndexes.end(), 0);
        return;
    }
    ChannelNames channelNames;
    QHash<QString, bool> admitted;
    for (int index = 0; index < m_recordings.size(); ++index) {
        const QString name = channelNames.of(m_recordings.at(index));
        auto known = admitted.constFind(name);
        if (known == admitted.constEnd())
            known = admitted.insert(name, name.contains(keyword, Qt::CaseInsensitive));
        if (*known)
            m_filteredIndexes.append(index);
    }
}

QList<LocalRecordingIndexInfo> LocalRecordingsData::getPage(int pageSize, int pageNumber) const
{
    QList<LocalRecordingIndexInfo> page;
    const qint64 size = qMax(0, pageSize);
    const qint64 first = (qMax(1, pageNumber) - qint64(1)) * size;
    const qint64 end = qMin<qint64>(first + size, m_filteredIndexes.size());
    for (qint64 at = first; at < end; ++at)
        page.append(m_recordings.at(m_filteredIndexes.at(static_cast<int>(at))));
    return page;
}

void LocalRecordingsData::removeRecords(int pageSize, int pageNumber, const QString& keyword, const QList<int>& rows)
{
    const qint64 first = (qMax(1, pageNumber) - qint64(1)) * qMax(0, pageSize);
    QVector<int> indexes;
    for (const int row : rows) {
        const qint64 at = first + row;
        if (row >= 0 && at < m_filteredIndexes.size())
            indexes.append(m_filteredIndexes.at(static_cast<int>(at)));
    }
    std::sort(indexes.begin(), indexes.end());
    int next = 0;
    int kept = 0;
    for (int index = 0; index < m_recordings.size(); ++index) {
        while (next < indexes.size() && indexes.at(next) < index)
            ++next;
        if (next < indexes.size() && indexes.at(next) == index)
            continue;
        if (kept != index)
            m_recordings[kept] = m_recordings.at(index);
        ++kept;
    }
    m_recordings.resize(kept);
    filter(keyword);
}

int LocalRecordingsData::filteredCount() const
{
    return m_filteredIndexes.size();
}

QString LocalRecordingsData::displayName(const LocalRecordingIndexInfo& record)
{
    return ChannelNames().of(record);
}

} // namespace vemo_filesCenter
