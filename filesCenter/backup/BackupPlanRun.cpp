#include "BackupPlanRun.h"

#include "BackupManifest.h"
#include "BackupStarts.h"
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
    BackupWorker::instance(); // hears the recorders' clocks from their logins on
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
    connect(&worker, &BackupWorker::signalFilesSettled, this, &BackupPlanRun::endStopped, Qt::QueuedConnection);
    connect(&BackupManifest::instance(), &BackupManifest::signalIdle, this, &BackupPlanRun::leaveWhenIdle,
            Qt::QueuedConnection);
    const BackupStarts& starts = BackupStarts::instance();
    connect(&starts, &BackupStarts::signalStarted, this, [this](const QString& taskId) {
        if (m_jobs.contains(taskId))
            m_jobs[taskId].isStarted = true;
    });
    connect(&starts, &BackupStarts::signalNotStarted, this, &BackupPlanRun::notStarted, Qt::QueuedConnection);
    m_waiting = taskIds;
    startMore();
}

void BackupPlanRun::stop()
{
    if (!m_isRunning)
        return;
    const QStringList waiting = m_waiting;
    m_waiting.clear();
    m_isStopping = true;
    const QStringList underWay = m_jobs.keys();
    for (const QString& taskId : underWay) {
        BackupStarts::instance().abandon(taskId);
        if (m_jobs.value(taskId).isStarted)
            BackupWorker::instance().stopTask(taskId);
    }
    for (const QString& taskId : waiting)
        emit BackupAccess::instance().signalTaskOver(taskId, BackupAccess::Stopped, QString());
    endStopped();
}

void BackupPlanRun::endStopped()
{
    if (m_isStopping && !BackupWorker::instance().isAtDisk()) {
        const QStringList underWay = m_jobs.keys();
        for (const QString& taskId : underWay)
            over(taskId, BackupAccess::Stopped);
    }
    leaveWhenIdle();
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
        if (!BackupStarts::instance().start(BackupTaskInfo(job.task)))
            over(taskId, BackupAccess::Failed);
    }
    if (m_forDevice.isEmpty())
        m_deviceTimer.stop();
}

void BackupPlanRun::notStarted(const QString& taskId, bool isEmpty)
{
    if (m_jobs.contains(taskId))
        over(taskId, isEmpty ? BackupAccess::Empty : BackupAccess::Failed);
}

void BackupPlanRun::follow(const QString& taskId)
{
    const auto job = m_jobs.find(taskId);
    if (job == m_jobs.end() || !job->isStarted || m_isStopping)
        return;
    BackupWorker& worker = BackupWorker::instance();
    const QString message = worker.message(taskId);
    switch (worker.state(taskId)) {
    case vemo_data::BackupFinished:
        over(taskId, BackupAccess::Covered);
        break;
    case vemo_data::BackupStopped:
        if (!worker.isGoingOn(taskId)) // else it is about to run
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
    m_jobs.erase(found);
    m_forDevice.removeAll(taskId);
    emit BackupAccess::instance().signalTaskOver(taskId, outcome, BackupWorker::instance().message(taskId));
    QMetaObject::invokeMethod(this, &BackupPlanRun::startMore, Qt::QueuedConnection);
}

void BackupPlanRun::leaveWhenIdle()
{
    if (!m_isRunning || !m_jobs.isEmpty() || !m_waiting.isEmpty() || BackupWorker::instance().isAtDisk() ||
        !BackupManifest::instance().isIdle())
        return;
    m_isRunning = false;
    m_isStopping = false;
    disconnect(&BackupWorker::instance(), nullptr, this, nullptr);
    disconnect(&BackupStarts::instance(), nullptr, this, nullptr);
    disconnect(&BackupManifest::instance(), nullptr, this, nullptr);
    emit BackupAccess::instance().signalRunOver();
}

} // namespace vemo_filesCenter
