#include "BackupPlanRun.h"

#include "BackupDeviceCheck.h"
#include "BackupManifest.h"
#include "BackupSearch.h"
#include "BackupWorker.h"

#include <BackupAccess.h>
#include <BackupTaskData.h>
#include <BaseTools.h>
#include <DevsMgrData.h>

namespace vemo_filesCenter {

using vemo_contact::BackupAccess;
using vemo_data::BackupTaskInfo;

namespace {

constexpr int deviceTurnMs = 500;
constexpr int mostDeviceTurns = 120; ///< a minute

vms_sdk::DevStatus statusOf(const BackupTaskInfo& task)
{
    const QString devId = vemo_base::BaseTools::instance().formatChannelId(task.channelId).first;
    return vemo_data::DevsMgrData::instance().getDevStatus(devId);
}

} // namespace

BackupPlanRun::BackupPlanRun(QObject* parent)
    : QObject(parent)
{
    const BackupAccess& access = BackupAccess::instance();
    connect(&access, &BackupAccess::signalRun, this, &BackupPlanRun::run);
    connect(&access, &BackupAccess::signalStopRun, this, &BackupPlanRun::stop);
    connect(&m_deviceTimer, &QTimer::timeout, this, &BackupPlanRun::checkDevices);
}

BackupPlanRun::~BackupPlanRun() = default;

void BackupPlanRun::run(const QStringList& taskIds, int tries)
{
    if (m_isRunning)
        return;
    m_isRunning = true;
    m_tries = qMax(1, tries);
    const BackupWorker& worker = BackupWorker::instance();
    // The worker tells while it is at work; what it means is looked at when it is done.
    connect(&worker, &BackupWorker::signalTaskStateChanged, this, &BackupPlanRun::follow, Qt::QueuedConnection);
    connect(&worker, &BackupWorker::signalBackupError, this, &BackupPlanRun::follow, Qt::QueuedConnection);
    connect(&BackupManifest::instance(), &BackupManifest::signalIdle, this, &BackupPlanRun::leaveWhenIdle,
            Qt::QueuedConnection);
    m_waiting = taskIds;
    startMore();
}

void BackupPlanRun::stop()
{
    const QStringList waiting = m_waiting;
    m_waiting.clear();
    const QStringList underWay = m_jobs.keys();
    for (const QString& taskId : underWay) {
        if (m_jobs.value(taskId).isStarted)
            BackupWorker::instance().stopTask(taskId);
        over(taskId, BackupAccess::Stopped);
    }
    for (const QString& taskId : waiting)
        emit BackupAccess::instance().signalTaskOver(taskId, BackupAccess::Stopped, QString());
}

void BackupPlanRun::startMore()
{
    if (!m_waiting.isEmpty() && m_jobs.size() < BackupWorker::mostRunning) {
        QHash<QString, BackupTaskInfo> stored;
        const QList<BackupTaskInfo> tasks = vemo_data::BackupTaskData::instance().getAllBackupTasks();
        for (const BackupTaskInfo& task : tasks)
            stored.insert(task.taskId, task);
        while (!m_waiting.isEmpty() && m_jobs.size() < BackupWorker::mostRunning) {
            const QString taskId = m_waiting.takeFirst();
            if (!stored.contains(taskId))
                continue; // deleted meanwhile
            Job job;
            job.task = stored.value(taskId);
            job.triesLeft = m_tries;
            m_jobs.insert(taskId, job);
            m_forDevice.append(taskId);
        }
    }
    if (!m_forDevice.isEmpty()) {
        m_deviceTimer.start(deviceTurnMs);
        QMetaObject::invokeMethod(this, &BackupPlanRun::checkDevices, Qt::QueuedConnection);
    }
    emit BackupAccess::instance().signalRunChanged(m_jobs.size(), m_waiting.size());
    leaveWhenIdle();
}

void BackupPlanRun::checkDevices()
{
    const QStringList waiting = m_forDevice;
    for (const QString& taskId : waiting) {
        Job& job = m_jobs[taskId];
        const vms_sdk::DevStatus status = statusOf(job.task);
        const bool mayCome = status == vms_sdk::DevStatus::Unknown || status == vms_sdk::DevStatus::Offline;
        if (mayCome && ++job.deviceTurns < mostDeviceTurns)
            continue;
        m_forDevice.removeAll(taskId);
        const QString refusal = BackupDeviceCheck::refusal(job.task.channelId);
        BackupWorker::instance().setTaskMessage(BackupTaskInfo(job.task), refusal, !refusal.isEmpty());
        if (refusal.isEmpty())
            search(taskId);
        else
            over(taskId, BackupAccess::Failed);
    }
    if (m_forDevice.isEmpty())
        m_deviceTimer.stop();
}

void BackupPlanRun::search(const QString& taskId)
{
    Job& job = m_jobs[taskId];
    job.search = new BackupSearch(this);
    connect(job.search, &BackupSearch::signalFound, this,
            [this, taskId](const QList<vms_sdk::VideoRecording>& recordings) { searched(taskId, recordings); });
    connect(job.search, &BackupSearch::signalFailed, this, [this, taskId](const QString& message, bool isEmpty) {
        BackupWorker::instance().setTaskMessage(BackupTaskInfo(m_jobs.value(taskId).task), message, true);
        if (isEmpty)
            vemo_data::BackupTaskData::instance().updateBackupHeld(taskId, {});
        over(taskId, isEmpty ? BackupAccess::Empty : BackupAccess::Failed);
    });
    job.search->start(job.task);
}

void BackupPlanRun::searched(const QString& taskId, const QList<vms_sdk::VideoRecording>& recordings)
{
    Job& job = m_jobs[taskId];
    job.search->deleteLater();
    job.search = nullptr;
    job.isStarted = true;
    BackupTaskInfo task = job.task;
    task.recordings = recordings;
    BackupWorker::instance().startTask(task);
}

void BackupPlanRun::follow(const QString& taskId)
{
    const auto job = m_jobs.find(taskId);
    if (job == m_jobs.end() || !job->isStarted)
        return;
    BackupWorker& worker = BackupWorker::instance();
    const QString message = worker.message(taskId);
    switch (worker.state(taskId)) {
    case vemo_data::BackupFinished:
        over(taskId, BackupAccess::Covered);
        break;
    case vemo_data::BackupStopped:
        over(taskId, message.startsWith(BackupWorker::aheadText()) ? BackupAccess::Ahead : BackupAccess::Failed);
        break;
    case vemo_data::BackupWaiting:
        // Nothing waits for others here, so it waits to be tried again; or for the repair of files, without a line.
        if (message.isEmpty() || message == job->failure)
            break;
        job->failure = message;
        if (--job->triesLeft > 0)
            break;
        worker.stopTask(taskId);
        over(taskId, BackupAccess::Failed);
        break;
    default:
        break;
    }
}

void BackupPlanRun::over(const QString& taskId, int outcome)
{
    const auto found = m_jobs.find(taskId);
    if (found == m_jobs.end())
        return;
    if (found->search)
        found->search->deleteLater();
    m_jobs.erase(found);
    m_forDevice.removeAll(taskId);
    emit BackupAccess::instance().signalTaskOver(taskId, outcome, BackupWorker::instance().message(taskId));
    QMetaObject::invokeMethod(this, &BackupPlanRun::startMore, Qt::QueuedConnection);
}

void BackupPlanRun::leaveWhenIdle()
{
    if (!m_isRunning || !m_jobs.isEmpty() || !m_waiting.isEmpty() || !BackupManifest::instance().isIdle())
        return;
    m_isRunning = false;
    disconnect(&BackupWorker::instance(), nullptr, this, nullptr);
    disconnect(&BackupManifest::instance(), nullptr, this, nullptr);
    emit BackupAccess::instance().signalRunOver();
}

} // namespace vemo_filesCenter
