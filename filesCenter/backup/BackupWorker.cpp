#include "BackupWorker.h"

#include "BackupDisk.h"
#include "BackupManifest.h"
#include "BackupPaths.h"
#include "details/TaskReportFacts.h"
#include "download/DiskWork.h"
#include "download/DownloadEvents.h"
#include "download/DownloadSignals.h"
#include "download/DownloadWorker.h"
#include "tables/DownloadRecords.h"

#include <BackupDay.h>
#include <BackupSafety.h>
#include <BackupTaskData.h>
#include <BaseTools.h>
#include <FilesCenterLogs.h>
#include <SystemConfig.h>
#include <SystemMsg.h>
#include <vaws_download.h>
#include <vms_sdk.h>

#include <QRandomGenerator>
#include <QThread>

namespace vemo_filesCenter {

namespace BackupDay = vemo_data::BackupDay;

namespace {

constexpr int retryMs = 180'000;
constexpr quint64 retryJitterMs = 120'000;
constexpr int toldSeconds = 10;
constexpr int quitMs = 2000;

QString momentText(const QDateTime& time)
{
    return vemo_base::BaseTools::instance().strDatetime(time, true, false);
}

QString dayText(const QDate& date)
{
    return vemo_base::BaseTools::instance().strDate(date, false);
}

bool isFailure(int eventId)
{
    switch (eventId) {
    case EventLoginFailed:
    case EventConnectFailed:
    case EventLimitReached:
    case EventAbnormal:
    case EventUnnamedFailure:
    case EventGetUrlFailed:
        return true;
    default:
        return false;
    }
}

/// On the disks' thread, behind a stop: waits while a slow disk is still at the closing. True when the disk kept the
/// file from being closed at all: the repair of the next start does it.
bool stayedOpen(const QString& taskId)
{
    constexpr int mostMs = 10'000;
    constexpr int lookMs = 20;
    const QByteArray id = taskId.toUtf8();
    for (int waitedMs = 0; waitedMs < mostMs && vaws_download_get_status(id.constData()) == VAWS_STATUS_FINISHING;
         waitedMs += lookMs)
        QThread::msleep(lookMs);
    return TaskReportFacts::parse(DownloadRecords::reportOf(taskId)).isLeftOpen;
}

} // namespace

BackupWorker::BackupWorker(const Seams& seams, QObject* parent)
    : QObject(parent)
    , m_seams(seams)
    , m_disk(std::make_shared<BackupDisk>())
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &BackupWorker::fillFreeSlots);
    const DownloadSignals& downloads = DownloadSignals::instance();
    connect(&downloads, &DownloadSignals::signalDownloadEvent, this, &BackupWorker::downloadEvent);
    connect(&downloads, &DownloadSignals::signalDownloadFileToggle, this,
            [this](const QString& taskId, const QString& fileName, int, const QDateTime& time) {
                fileToggle(taskId, fileName, time);
            });
    connect(&vemo_contact::SystemMsg::instance(), &vemo_contact::SystemMsg::signalPrepareQuitSystem, this, [this] {
        const QStringList taskIds = m_tasks.keys();
        for (const QString& taskId : taskIds)
            stopTask(taskId);
        DiskWork::finish(quitMs);
    });
    connect(&vms_sdk::ClientSignals::instance(), &vms_sdk::ClientSignals::signalDevInfoPush, this,
            [this](const vms_sdk::DevInfo& device) { m_recorderClocks.take(device, m_seams.now()); });
}

BackupWorker::~BackupWorker() = default;

BackupWorker& BackupWorker::instance()
{
    static BackupWorker worker({&QDateTime::currentDateTime, [] { return QRandomGenerator64::global()->generate(); }});
    return worker;
}

QString BackupWorker::abnormalText()
{
    return tr("Backup is abnormal,the backup will be attempted again later");
}

QString BackupWorker::diskText()
{
    return tr("The folder for backups, %1, is not there or lies on another disk, the backup will be attempted again "
              "later")
        .arg(vemo_worker::SystemConfig::instance().getRecordingBackupPath());
}

QString BackupWorker::aheadText()
{
    return tr("The backup time is later than the current time, no video recordings can be backed up");
}

QDateTime BackupWorker::recordedUpTo(const BackupTaskInfo& task) const
{
    const QString devId = vemo_base::BaseTools::instance().formatChannelId(task.channelId).first;
    return m_recorderClocks.now(devId, m_seams.now(), task.recordings);
}

void BackupWorker::startTask(const BackupTaskInfo& given)
{
    const QString taskId = given.taskId;
    const bool isKnown = m_tasks.contains(taskId);
    Task task = isGoingOn(taskId) ? m_tasks.value(taskId) : given;
    if (isKnown) { // newer than what the store has told
        task.fileInfos = m_tasks.value(taskId).fileInfos;
        task.state = m_tasks.value(taskId).state;
    }
    task.channelName = BackupPaths::channelName(task);
    task.recordings = given.recordings;
    const QDateTime now = recordedUpTo(task);
    if (task.date < now.date())
        task.latestTime = QDateTime(task.date, QTime(23, 59, 59, 999));
    else
        task.latestTime = task.date == now.date() ? now : QDateTime(task.date, QTime(0, 0));
    if (!task.recordings.isEmpty()) {
        task.held = vemo_data::BackupSafety::mergedSpans(task.recordings);
        task.searched = true;
        vemo_data::BackupTaskData::instance().updateBackupHeld(taskId, task.held, task.date < now.date());
    }
    m_tasks.insert(taskId, task);
    if (task.state == vemo_data::BackupRunning || isGoingOn(taskId))
        return;
    if (m_running.size() < mostRunning) {
        runNextPiece(taskId);
        return;
    }
    m_tasks[taskId].state = vemo_data::BackupWaiting;
    if (!m_waiting.contains(taskId))
        m_waiting.append(taskId);
    setTaskMessage(taskId, tr("Waiting for backup..."), true);
}

void BackupWorker::fillFreeSlots()
{
    // The free slots are counted anew after each start.
    for (int taken = 0; taken < mostRunning - m_running.size() && !m_waiting.isEmpty(); ++taken)
        runNextPiece(m_waiting.takeFirst());
}

void BackupWorker::downloadEvent(const QString& taskId, int eventId, int value)
{
    const auto found = m_tasks.find(taskId);
    if (found == m_tasks.end() || !m_downloading.contains(taskId))
        return;
    if (isFailure(eventId)) {
        pieceFailed(taskId, eventId);
    } else if (eventId == EventProgress) {
        progressed(&*found, value);
    } else if (eventId == EventFinished) {
        pieceFinished(taskId);
    } else if (eventId == EventDiskLow) {
        stopTask(taskId);
        setTaskMessage(taskId, tr("The disk free space < 1GB,please switch the disk to continue the backup"), true);
    }
}

void BackupWorker::progressed(Task* task, int percent)
{
    constexpr int whole = 100;
    const qint64 seconds = task->pieceStart.secsTo(task->pieceEnd) * percent / whole;
    task->curTime = task->pieceStart.addSecs(seconds);
    if (task->reportedTime.secsTo(task->curTime) <= toldSeconds)
        return;
    task->reportedTime = task->curTime;
    emit signalBackupProgress(task->taskId, task->curTime.time());
}

void BackupWorker::takeEnded(const QString& taskId, int index, const Ended& ended)
{
    const auto task = m_tasks.find(taskId);
    if (task == m_tasks.end())
        return;
    task->fileInfos[index] = ended.entry;
    if (ended.entry.finished) {
        logEnd(*task, ended.entry);
        BackupManifest::instance().add(*task, ended.entry.filePath);
    }
    store(*task);
}

void BackupWorker::pieceFinished(const QString& taskId)
{
    m_downloading.remove(taskId);
    Task& task = m_tasks[taskId];
    task.curTime = task.pieceEnd;
    const int index = task.curFileIndex;
    FileInfo entry = task.fileInfos.at(index);
    const bool isAhead = BackupDay::endOf(task, entry) > task.latestTime;
    if (isAhead)
        BackupDay::setEnd(&entry, task.curTime);
    auto ended = std::make_shared<Ended>();
    atDisk(
        taskId, [ended, entry] { *ended = BackupPieceFiles::finish(entry); },
        [this, taskId, index, ended, isAhead](bool isDiskThere) {
            if (isDiskThere)
                takeEnded(taskId, index, *ended);
            if (!isGoingOn(taskId))
                return;
            if (!isDiskThere)
                tryLater(taskId, diskText());
            else if (!ended->entry.finished)
                tryLater(taskId, abnormalText());
            else if (isAhead)
                stopWithMessage(taskId, aheadText());
            else
                runNextPiece(taskId);
        });
}

void BackupWorker::pieceFailed(const QString& taskId, int eventId)
{
    m_downloading.remove(taskId);
    const QDateTime reached = stopDownload(taskId);
    const Task& task = m_tasks[taskId];
    const int index = task.curFileIndex;
    auto ended = std::make_shared<Ended>();
    atDisk(
        taskId,
        [ended, taskId, reached, date = task.date, entry = task.fileInfos.at(index)] {
            *ended = stayedOpen(taskId) ? Ended{entry, reached} : BackupPieceFiles::cutOff(date, entry, reached);
        },
        [this, taskId, index, ended, eventId](bool isDiskThere) {
            if (isDiskThere)
                takeEnded(taskId, index, *ended);
            if (!isGoingOn(taskId))
                return;
            if (!isDiskThere)
                tryLater(taskId, diskText());
            else if (eventId == EventLimitReached)
                tryLater(taskId, tr("The backup limit of he device has been reached, the backup will be attempted "
                                    "again later"));
            else
                tryLater(taskId, abnormalText());
        });
}

void BackupWorker::tryLater(const QString& taskId, const QString& text)
{
    m_running.remove(taskId);
    Task& task = m_tasks[taskId];
    if (vemo_base::BaseTools::instance().isVideoExist(task.channelId)) {
        task.state = vemo_data::BackupWaiting;
        cancelRetry(taskId);
        auto* retry = new QTimer(this);
        retry->setObjectName(QStringLiteral("retry"));
        retry->setSingleShot(true);
        m_retries.insert(taskId, retry);
        connect(retry, &QTimer::timeout, this, [this, taskId] {
            cancelRetry(taskId);
            if (state(taskId) != vemo_data::BackupWaiting || isGoingOn(taskId) || m_waiting.contains(taskId))
                return;
            m_waiting.append(taskId);
            fillFreeSlots();
        });
        retry->start(retryMs + static_cast<int>(m_seams.random() % retryJitterMs));
        setTaskMessage(taskId, text, true);
    } else {
        task.recordings.clear();
        m_waiting.removeAll(taskId);
        task.state = vemo_data::BackupStopped;
        emit signalTaskStateChanged(taskId, vemo_data::BackupStopped);
    }
    fillFreeSlots();
}

void BackupWorker::cancelRetry(const QString& taskId)
{
    if (QTimer* retry = m_retries.take(taskId)) {
        retry->stop();
        retry->deleteLater();
    }
}

QDateTime BackupWorker::retryTime(const QString& taskId) const
{
    const QTimer* retry = m_retries.value(taskId);
    return retry ? m_seams.now().addMSecs(retry->remainingTime()) : QDateTime();
}

void BackupWorker::finishTask(const QString& taskId)
{
    Task& task = m_tasks[taskId];
    task.state = vemo_data::BackupFinished;
    task.recordings.clear();
    BackupManifest::instance().complete(task);
    emit signalTaskStateChanged(taskId, vemo_data::BackupFinished);
    setTaskMessage(taskId, QString(), false);
    m_running.remove(taskId);
    fillFreeSlots();
}

void BackupWorker::stopWithMessage(const QString& taskId, const QString& text)
{
    m_running.remove(taskId);
    Task& task = m_tasks[taskId];
    task.state = vemo_data::BackupStopped;
    task.recordings.clear();
    emit signalTaskStateChanged(taskId, vemo_data::BackupStopped);
    setTaskMessage(taskId, text, true);
    fillFreeSlots();
}

void BackupWorker::stopTask(const QString& taskId)
{
    const auto found = m_tasks.find(taskId);
    if (found == m_tasks.end())
        return;
    m_running.remove(taskId);
    cancelRetry(taskId);
    // The queue holds an id once, so that a waiting task keeps its line.
    if (m_waiting.removeAll(taskId) > 1)
        setTaskMessage(taskId, QString(), false);
    Task& task = *found;
    const auto logStop = [this, taskId](const QDateTime& time) {
        log(m_tasks.value(taskId), tr("stop back up, stop time:%1").arg(momentText(time)));
    };
    if (m_downloading.remove(taskId)) {
        const QDateTime reached = stopDownload(taskId);
        DownloadWorker::instance().controlTask(taskId, DownloadWorker::ControlCancel);
        const int index = task.curFileIndex;
        const FileInfo entry = task.fileInfos.at(index);
        const QDateTime begin = BackupDay::startOf(task, entry);
        auto ended = std::make_shared<Ended>();
        atDisk(
            taskId,
            [ended, taskId, reached, date = task.date, entry] {
                *ended = stayedOpen(taskId) ? Ended{entry, reached} : BackupPieceFiles::cutOff(date, entry, reached);
            },
            [this, taskId, index, ended, begin, logStop](bool isDiskThere) {
                const auto stopped = m_tasks.find(taskId);
                if (stopped == m_tasks.end())
                    return;
                const bool hasFile = isDiskThere && ended->entry.finished;
                if (isDiskThere)
                    takeEnded(taskId, index, *ended);
                if (hasFile) {
                    stopped->curTime = ended->reached;
                    stopped->reportedTime = ended->reached;
                    emit signalBackupProgress(taskId, ended->reached.time());
                }
                logStop(hasFile ? ended->reached : begin);
            });
    } else if (task.state == vemo_data::BackupRunning) {
        logStop(task.curTime); // between two pieces
    }
    changeState(&task, vemo_data::BackupStopped);
    m_timer.start(afterStopMs);
}

void BackupWorker::deleteTask(const QString& taskId)
{
    const auto found = m_tasks.find(taskId);
    if (found == m_tasks.end()) {
        m_messages.remove(taskId);
        return;
    }
    DownloadWorker::instance().controlTask(taskId, DownloadWorker::ControlCancel);
    log(*found, tr("delete back up task, back up date:%1").arg(dayText(found->date)));
    m_running.remove(taskId);
    m_downloading.remove(taskId);
    m_waiting.removeAll(taskId);
    cancelRetry(taskId);
    m_tasks.erase(found);
    m_messages.remove(taskId);
    m_timer.start(afterStopMs);
}

void BackupWorker::fileToggle(const QString& taskId, const QString& fileName, const QDateTime& time)
{
    const auto found = m_tasks.find(taskId);
    if (found == m_tasks.end() || !m_downloading.contains(taskId))
        return;
    Task& task = *found;
    const int index = task.curFileIndex;
    // The moment is needed now; only in the hour that passes twice a file is read for it.
    const QDateTime moment = BackupPieceFiles::exactMoment(time, fileName);
    FileInfo rest = task.fileInfos.at(index);
    BackupDay::setStart(&rest, moment);
    FileInfo& closed = task.fileInfos[index];
    BackupDay::setEnd(&closed, moment);
    closed.filePath = fileName;
    auto ended = std::make_shared<Ended>();
    atDisk(
        taskId, [ended, entry = closed] { *ended = BackupPieceFiles::finish(entry); },
        [this, taskId, index, ended](bool isDiskThere) {
            if (isDiskThere)
                takeEnded(taskId, index, *ended);
        });
    task.curFileIndex = task.fileInfos.size();
    task.fileInfos.append(rest); // goes on under the path that was asked for
}

QDateTime BackupWorker::stopDownload(const QString& taskId)
{
    return DownloadWorker::instance().lastFrameTime(taskId);
}

bool BackupWorker::task(const QString& taskId, BackupTaskInfo* info) const
{
    const auto found = m_tasks.constFind(taskId);
    if (found == m_tasks.constEnd())
        return false;
    *info = *found;
    return true;
}

int BackupWorker::state(const QString& taskId) const
{
    return m_tasks.value(taskId).state;
}

QString BackupWorker::message(const QString& taskId) const
{
    return m_messages.value(taskId);
}

QTime BackupWorker::curTime(const QString& taskId) const
{
    return m_tasks.value(taskId).curTime.time();
}

void BackupWorker::setTaskMessage(const QString& taskId, const QString& text, bool logs)
{
    Task task = m_tasks.value(taskId);
    task.taskId = taskId;
    setTaskMessage(task, text, logs);
}

void BackupWorker::setTaskMessage(const BackupTaskInfo& task, const QString& text, bool logs)
{
    if (logs && !text.isEmpty())
        log(task, text);
    const QString message = text.isEmpty() ? QString() : text + QStringLiteral("    %1").arg(momentText(m_seams.now()));
    const QString taskId = task.taskId;
    m_messages.insert(taskId, message);
    emit signalBackupError(taskId, message);
}

void BackupWorker::changeState(Task* task, int state)
{
    task->state = state;
    emit signalTaskStateChanged(QString(task->taskId), state);
}

void BackupWorker::store(const Task& task) const
{
    vemo_data::BackupTaskData::instance().updateBackupResults(task.taskId, task.fileInfos);
}

void BackupWorker::log(const Task& task, const QString& text) const
{
    vemo_worker::FilesCenterLogs::instance().recordBackupEventLog(task.deviceNo, task.channelNo, task.channelName,
                                                                  text);
}

void BackupWorker::logEnd(const Task& task, const FileInfo& entry) const
{
    if (!entry.startTime.isValid() || !entry.endTime.isValid())
        return;
    const QString format = QStringLiteral("hh:mm:ss");
    const QString outcome = entry.filePath.isEmpty() ? tr("No video recording") : tr("Video recording backup success");
    log(task, tr("%1, time range:%2 %3~%4")
                  .arg(outcome, dayText(task.date), entry.startTime.toString(format), entry.endTime.toString(format)));
}

} // namespace vemo_filesCenter
