#include "OwnFootage.h"

#include <DataSignals.h>
#include <DownloadTaskData.h>

#include <utility>

namespace vemo_client {

using vemo_base::TimeSpan;
using vemo_data::DataSignals;
using vemo_data::DownloadTaskInfo;

OwnFootage::OwnFootage(QObject* parent)
    : QObject(parent)
{}

void OwnFootage::start()
{
    if (std::exchange(m_isStarted, true))
        return;
    const DataSignals& stores = DataSignals::instance();
    connect(&stores, &DataSignals::signalAddDownloadTasksToLocalDB, this, &OwnFootage::take);
    connect(&stores, &DataSignals::signalUpdateDownloadTasksInLocalDB, this, &OwnFootage::take);
    connect(&stores, &DataSignals::signalDeleteDownloadTasksFromLocalDB, this,
            [this](const QMap<int, QSet<QString>>& ids) { remove(ids.value(vemo_data::TaskSucceeded)); });
    vemo_data::DownloadTaskData::instance().getAllDownloadTasks(
        this, [this](const QList<DownloadTaskInfo>& tasks) { take(tasks); });
}

void OwnFootage::take(const QList<DownloadTaskInfo>& tasks)
{
    bool isChanged = false;
    for (const DownloadTaskInfo& task : tasks) {
        const TimeSpan span{task.beginTime.toMSecsSinceEpoch(), task.endTime.toMSecsSinceEpoch()};
        if (task.state != vemo_data::TaskSucceeded || span.lengthMs() <= 0)
            continue;
        m_spans[task.channelId].insert(task.taskId, span);
        isChanged = true;
    }
    if (isChanged)
        emit signalChanged();
}

void OwnFootage::remove(const QSet<QString>& taskIds)
{
    if (taskIds.isEmpty())
        return;
    for (QHash<QString, TimeSpan>& spans : m_spans) {
        for (const QString& taskId : taskIds)
            spans.remove(taskId);
    }
    emit signalChanged();
}

QVector<TimeSpan> OwnFootage::spans(const QString& channelId, const TimeSpan& within) const
{
    QVector<TimeSpan> found;
    const auto channel = m_spans.constFind(channelId);
    if (channel == m_spans.constEnd())
        return found;
    for (const TimeSpan& span : *channel) {
        if (span.beginMs < within.endMs && span.endMs > within.beginMs)
            found.append(span);
    }
    return found;
}

} // namespace vemo_client
