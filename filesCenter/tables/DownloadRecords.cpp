#include "DownloadRecords.h"

#include "details/TaskReportFacts.h"
#include "download/DownloadQueueStatus.h"
#include "download/DownloadWorker.h"
#include "download/TaskSplit.h"

#include <DownloadTaskData.h>
#include <TaskFactsData.h>
#include <vaws_download.h>

#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUuid>

namespace vemo_filesCenter {

namespace {

vemo_data::DownloadTaskData& store()
{
    return vemo_data::DownloadTaskData::instance();
}

void keepFacts(const QString& taskId, const QByteArray& report, bool failed, double seconds)
{
    vemo_data::TaskFacts facts;
    facts.taskId = taskId;
    facts.report = report;
    facts.seconds = seconds;
    if (failed)
        facts.reason = QJsonDocument::fromJson(report).object().value(QStringLiteral("error")).toString();
    if (!report.isEmpty())
        vemo_data::TaskFactsData::instance().put(facts);
}

bool isFailure(int state)
{
    return state != vemo_data::TaskWaiting && state != vemo_data::TaskPaused && state != vemo_data::TaskSucceeded;
}

} // namespace

QByteArray DownloadRecords::reportOf(const QString& taskId)
{
    const QByteArray id = taskId.toUtf8();
    const int length = vaws_download_get_report(id.constData(), nullptr, 0);
    if (length <= 0)
        return {};
    // It may have grown meanwhile: then it is cut, and a cut one is of no use.
    QByteArray text(length + 1024, '\0');
    const int written = vaws_download_get_report(id.constData(), text.data(), static_cast<size_t>(text.size()));
    if (written <= 0 || written >= text.size())
        return {};
    text.truncate(written);
    return text;
}

void DownloadRecords::finish(const DownloadTaskInfo& task, double seconds)
{
    DownloadTaskInfo ended = task;
    const QFileInfo file(task.savePath);
    if (file.exists()) {
        ended.state = vemo_data::TaskSucceeded;
        ended.downloadedSize = file.size();
        ended.progress = 100;
    } else {
        ended.state = vemo_data::TaskInvalidFile;
    }
    keepFacts(task.taskId, reportOf(task.taskId), isFailure(ended.state), seconds);
    DownloadQueueStatus::instance().expect(task.taskId);
    store().updateDownloadTasks({ended}, true);
}

bool DownloadRecords::split(const DownloadTaskInfo& task, int restState, double seconds)
{
    DownloadWorker& worker = DownloadWorker::instance();
    QDateTime splitTime;
    int downloadedMs = -1;
    if (task.downloadMode == vemo_data::DownloadByTimeRange) {
        splitTime = worker.lastFrameTime(task.taskId);
    } else {
        downloadedMs = worker.downloadedMsecs(task.taskId);
        if (downloadedMs > 0)
            splitTime = TaskSplit::timeByFile(task, downloadedMs);
    }
    // Without the file, taken away meanwhile, the whole span is still to be fetched.
    if (!splitTime.isValid() || splitTime <= task.beginTime || !QFileInfo::exists(task.savePath))
        return false;

    const QByteArray report = reportOf(task.taskId);
    // One that the disk kept from being closed plays, but only the next start can finish it.
    if (TaskReportFacts::parse(report).isLeftOpen)
        return false;
    const TaskSplit parts = TaskSplit::at(task, splitTime, downloadedMs, restState);
    DownloadQueueStatus::instance().expect(parts.finished.taskId);
    store().removeDownloadTaskKey(task);
    keepFacts(parts.finished.taskId, report, false, seconds);
    if (parts.hasRest) {
        DownloadQueueStatus::instance().expect(parts.rest.taskId);
        keepFacts(parts.rest.taskId, report, isFailure(restState), seconds);
        store().splitDownloadTask(parts.finished, parts.rest);
    } else {
        store().amendDownloadTasksByUpdate({parts.finished});
    }
    worker.controlTask(task.taskId, DownloadWorker::ControlCancel);
    return true;
}

void DownloadRecords::fail(const DownloadTaskInfo& task, int failureState, bool isRunning, double seconds)
{
    DownloadTaskInfo failed = task;
    failed.state = failureState;
    // One that broke off before it reported progress may have left a file as well.
    const bool mayHavePart = isRunning || (QFileInfo(task.savePath).isAbsolute() && QFileInfo::exists(task.savePath));
    const bool isCopy =
        DownloadWorker::instance().isCopyTask(task.taskId) ||
        (task.downloadMode == vemo_data::DownloadByFile && task.location == vemo_data::LocationThisComputer);
    if (mayHavePart && !isCopy) {
        if (split(failed, failureState, seconds))
            return;
        keepFacts(task.taskId, reportOf(task.taskId), true, seconds);
        DownloadQueueStatus::instance().expect(task.taskId);
        store().updateDownloadTasks({failed}, true);
        return;
    }
    keepFacts(task.taskId, reportOf(task.taskId), true, seconds);
    DownloadQueueStatus::instance().expect(task.taskId);
    store().amendDownloadTasksByUpdate({failed});
    store().updateDownloadTasks({failed}, true);
}

void DownloadRecords::breakOff(const DownloadTaskInfo& task, int restState, double seconds)
{
    DownloadTaskInfo waiting = task;
    waiting.state = restState;
    if (split(waiting, restState, seconds))
        return;
    DownloadWorker::instance().controlTask(task.taskId, DownloadWorker::ControlCancel);
    DownloadQueueStatus::instance().expect(task.taskId);
    store().updateDownloadTasks({waiting}, true);
}

DownloadTaskInfo DownloadRecords::closeFile(const DownloadTaskInfo& task, const QString& path, int msecs,
                                            const QDateTime& time)
{
    const QDateTime splitTime =
        task.downloadMode == vemo_data::DownloadByFile ? TaskSplit::timeByFile(task, msecs) : time;
    DownloadTaskInfo closed = task;
    closed.savePath = path;
    store().removeDownloadTaskKey(closed);
    closed.taskId = QUuid::createUuid().toString();
    closed.endTime = splitTime;
    closed.state = vemo_data::TaskSucceeded;
    closed.progress = 100;
    closed.downloadedSize = QFileInfo(path).size();
    keepFacts(closed.taskId, reportOf(task.taskId), false, 0);
    store().amendDownloadTasksByAdd({closed});

    DownloadTaskInfo running = task;
    running.downloadedMs = msecs;
    running.beginTime = splitTime;
    running.state = vemo_data::TaskWaiting;
    store().amendDownloadTasksByUpdate({running});
    return running;
}

} // namespace vemo_filesCenter
