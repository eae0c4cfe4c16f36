#include "TaskSplit.h"

#include "TaskFiles.h"

#include <QFileInfo>
#include <QUuid>

namespace vemo_filesCenter {

QDateTime TaskSplit::timeByFile(const DownloadTaskInfo& task, int downloadedMs)
{
    return task.endTime.addMSecs(qint64(downloadedMs) - task.durationMs);
}

TaskSplit TaskSplit::at(const DownloadTaskInfo& task, const QDateTime& splitTime, int downloadedMs, int restState)
{
    constexpr int whole = 100;
    TaskSplit split;
    split.finished = task;
    split.finished.state = vemo_data::TaskSucceeded;
    split.finished.progress = whole;
    split.finished.downloadedMs = downloadedMs;
    split.finished.downloadedSize = QFileInfo(task.savePath).size();
    split.hasRest = splitTime < task.endTime;
    if (!split.hasRest)
        return split;
    split.finished.endTime = splitTime;
    split.finished.savePath = TaskFiles::makeSegmentFileName(task.savePath, task.beginTime, splitTime, true);

    split.rest = task;
    split.rest.taskId = QUuid::createUuid().toString();
    split.rest.beginTime = splitTime;
    split.rest.state = restState;
    split.rest.progress = 0;
    split.rest.downloadedSize = 0;
    split.rest.downloadedMs = downloadedMs;
    split.rest.savePath = TaskFiles::makeSegmentFileName(task.savePath, splitTime, task.endTime, false);
    return split;
}

} // namespace vemo_filesCenter
