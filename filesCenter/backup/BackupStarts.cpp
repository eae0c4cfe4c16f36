#include "BackupStarts.h"

#include "BackupDeviceCheck.h"
#include "BackupSearch.h"
#include "BackupWorker.h"

#include <BackupTaskData.h>
#include <DataSignals.h>
#include <SystemMsg.h>

namespace vemo_filesCenter {

BackupStarts::BackupStarts()
{
    const auto abandonAll = [this](const QStringList& taskIds) {
        for (const QString& taskId : taskIds)
            abandon(taskId);
    };
    connect(&vemo_data::DataSignals::instance(), &vemo_data::DataSignals::signalDeleteBackupTasksSuccess, this,
            abandonAll);
    connect(&vemo_contact::SystemMsg::instance(), &vemo_contact::SystemMsg::signalPrepareQuitSystem, this,
            [this, abandonAll] { abandonAll(m_searches.keys()); });
}

BackupStarts::~BackupStarts() = default;

BackupStarts& BackupStarts::instance()
{
    static BackupStarts starts;
    return starts;
}

bool BackupStarts::start(const BackupTaskInfo& task)
{
    const QString taskId = task.taskId;
    if (isSearching(taskId))
        return true;
    const QString refusal = BackupDeviceCheck::refusal(task.channelId);
    BackupWorker::instance().setTaskMessage(task, refusal, !refusal.isEmpty());
    if (!refusal.isEmpty())
        return false;
    auto* search = new BackupSearch(this);
    connect(search, &BackupSearch::signalFound, this,
            [this, taskId](const QList<vms_sdk::VideoRecording>& recordings) { found(taskId, recordings); });
    connect(search, &BackupSearch::signalFailed, this,
            [this, taskId](const QString& message, bool isEmpty) { failed(taskId, message, isEmpty); });
    m_searches.insert(taskId, {task, search});
    search->start(task);
    emit signalSearching(taskId);
    return true;
}

void BackupStarts::abandon(const QString& taskId)
{
    if (isSearching(taskId))
        take(taskId);
}

BackupTaskInfo BackupStarts::take(const QString& taskId)
{
    const Wish wish = m_searches.take(taskId);
    wish.search->abandon();
    wish.search->deleteLater(); // it may be telling
    return wish.task;
}

void BackupStarts::found(const QString& taskId, const QList<vms_sdk::VideoRecording>& recordings)
{
    BackupTaskInfo task = take(taskId);
    task.recordings = recordings;
    BackupWorker::instance().startTask(task);
    emit signalStarted(taskId);
}

void BackupStarts::failed(const QString& taskId, const QString& message, bool isEmpty)
{
    const BackupTaskInfo task = take(taskId);
    BackupWorker& worker = BackupWorker::instance();
    if (isEmpty)
        vemo_data::BackupTaskData::instance().updateBackupHeld(taskId, {},
                                                               task.date < worker.recordedUpTo(task).date());
    emit signalNotStarted(taskId, isEmpty);
    worker.setTaskMessage(task, message, true);
}

} // namespace vemo_filesCenter
