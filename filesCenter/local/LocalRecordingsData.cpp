#include "LocalRecordingsData.h"

#include <BaseTools.h>
#include <NaturalOrder.h>

#include <QHash>
#include <QSet>

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

/// The recordings' indexes by channel name, each name's in the order of begin.
QVector<int> orderOf(const QList<LocalRecordingIndexInfo>& recordings)
{
    ChannelNames channelNames;
    QHash<QString, int> numbers;
    QVector<QString> names;
    QVector<QVector<int>> indexesOfName;
    for (int index = 0; index < recordings.size(); ++index) {
        const QString name = channelNames.of(recordings.at(index));
        auto number = numbers.constFind(name);
        if (number == numbers.constEnd()) {
            number = numbers.insert(name, names.size());
            names.append(name);
            indexesOfName.append(QVector<int>());
        }
        indexesOfName[*number].append(index);
    }
    const auto isEarlier = [&recordings](int one, int other) {
        return recordings.at(one).beginTime < recordings.at(other).beginTime;
    };
    QVector<int> order;
    order.reserve(recordings.size());
    const QVector<int> namesInOrder = vemo_base::NaturalOrder::orderOf(names);
    for (const int number : namesInOrder) {
        QVector<int>& indexes = indexesOfName[number];
        if (!std::is_sorted(indexes.cbegin(), indexes.cend(), isEarlier)) // the store answers in this order
            std::sort(indexes.begin(), indexes.end(), isEarlier);
        order += indexes;
    }
    return order;
}

} // namespace

LocalRecordingsData::LocalRecordingsData(QObject* parent)
    : QObject(parent)
{}

void LocalRecordingsData::setRecordings(const QList<LocalRecordingIndexInfo>& recordings)
{
    m_recordings = recordings;
    m_order = orderOf(recordings);
    filter(QString());
}

void LocalRecordingsData::filter(const QString& keyword)
{
    m_filteredIndexes.clear();
    if (keyword.isEmpty()) {
        m_filteredIndexes = m_order;
        return;
    }
    ChannelNames channelNames;
    QHash<QString, bool> admitted;
    for (const int index : qAsConst(m_order)) {
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
    QSet<int> removed;
    for (const int row : rows) {
        const qint64 at = first + row;
        if (row >= 0 && at < m_filteredIndexes.size())
            removed.insert(m_filteredIndexes.at(static_cast<int>(at)));
    }
    QList<LocalRecordingIndexInfo> kept;
    for (const int index : qAsConst(m_order)) {
        if (!removed.contains(index))
            kept.append(m_recordings.at(index));
    }
    m_recordings = kept;
    m_order.resize(kept.size());
    std::iota(m_order.begin(), m_order.end(), 0);
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
