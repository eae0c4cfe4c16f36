#include "BackupWorker.h"

#include "BackupPaths.h"
#include "BackupPieces.h"
#include "download/DownloadEvents.h"
#include "download/DownloadSignals.h"
#include "download/DownloadWorker.h"

#include <BackupDay.h>
#include <BackupSafety.h>
#include <BackupTaskData.h>
#include <BaseTools.h>
#include <FilesCenterLogs.h>
#include <SystemMsg.h>

#include <QRandomGenerator>

namespace vemo_filesCenter {

namespace BackupDay = vemo_data::BackupDay;

namespace {

constexpr int afterStopMs = 1000;
constexpr int retryMs = 180'000;
constexpr quint64 retryJitterMs = 120'000;
constexpr int toldSeconds = 10;

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

} // namespace

BackupWorker::BackupWorker(const Seams& seams, QObject* parent)
    : QObject(parent)
    , m_seams(seams)
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
    });
}

BackupWorker::~BackupWorker() = default;

BackupWorker& BackupWorker::instance()
{
    static BackupWorker worker({&QDateTime::currentDateTime, [] { return QRandomGenerator64::global()->generate(); }});
    return worker;
}

QString BackupWorker::aheadText()
{
    return tr("The backup time is later than the current time, no video recordings can be backed up");
}

void BackupWorker::startTask(const BackupTaskInfo& given)
{
    const QString taskId = given.taskId;
    const bool isKnown = m_tasks.contains(taskId);
    const bool isRunning = m_running.contains(taskId);
    Task task = isRunning ? m_tasks.value(taskId) : given;
    if (isKnown) { // newer than what the store has told
        task.fileInfos = m_tasks.value(taskId).fileInfos;
        task.state = m_tasks.value(taskId).state;
    }
    const QDateTime now = m_seams.now();
    task.recordings = given.recordings;
    if (task.date < now.date())
        task.latestTime = QDateTime(task.date, QTime(23, 59, 59, 999));
    else
        task.latestTime = task.date == now.date() ? now : QDateTime(task.date, QTime(0, 0));
    if (!task.recordings.isEmpty()) {
        task.held = vemo_data::BackupSafety::mergedSpans(task.recordings);
        task.searched = true;
        vemo_data::BackupTaskData::instance().updateBackupHeld(taskId, task.held);
    }
    m_tasks.insert(taskId, task);
    if (task.state == vemo_data::BackupRunning)
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

void BackupWorker::runNextPiece(const QString& taskId)
{
    while (m_tasks.contains(taskId)) {
        Task& task = m_tasks[taskId];
        if (!takeOverLeftovers(&task)) {
            m_running.remove(taskId);
            task.state = vemo_data::BackupWaiting;
            m_waiting.append(taskId);
            m_timer.start(afterStopMs);
            return;
        }
        const std::optional<BackupPieces::Piece> piece = BackupPieces::next(task);
        if (!piece) {
            finishTask(taskId);
            return;
        }
        const QDateTime begin = BackupDay::startOf(task, piece->span);
        const QDateTime end = BackupDay::endOf(task, piece->span);
        if (begin >= m_seams.now() || begin >= task.latestTime) {
            stopWithMessage(taskId, aheadText());
            return;
        }
        const std::optional<vemo_data::BackupSpan> range = BackupPieces::clip({begin, end}, task.recordings);
        if (!range && end >= task.latestTime) {
            stopWithMessage(taskId, aheadText());
            return;
        }
        int index = piece->resumed;
        if (index < 0) {
            index = task.fileInfos.size();
            task.fileInfos.append(piece->span);
        }
        if (!range) {
            FileInfo& entry = task.fileInfos[index];
            entry.filePath.clear();
            entry.finished = true;
            logEnd(task, entry);
            store(task);
            continue;
        }
        task.fileInfos[index].filePath = freePath(task, piece->span, task.fileInfos.at(index).filePath);
        task.curFileIndex = index;
        task.pieceStart = range->begin;
        task.pieceEnd = range->end;
        startDownload(&task);
        return;
    }
}

void BackupWorker::startDownload(Task* task)
{
    const QString taskId = task->taskId;
    const QDateTime pieceBegin = BackupDay::startOf(*task, task->fileInfos.at(task->curFileIndex));
    store(*task);
    m_running.insert(taskId);
    m_waiting.removeAll(taskId);
    task->state = vemo_data::BackupRunning;
    task->curTime = task->pieceStart;
    task->reportedTime = task->pieceStart;

    vemo_data::DownloadTaskInfo download;
    download.taskId = taskId;
    download.channelId = task->channelId;
    download.channelName = task->channelName;
    download.devLabel = task->deviceNo;
    download.channelNo = task->channelNo;
    download.beginTime = task->pieceStart;
    download.endTime = task->pieceEnd;
    download.downloadMode = vemo_data::DownloadByTimeRange;
    download.location = vemo_data::LocationDevice;
    download.savePath = task->fileInfos.at(task->curFileIndex).filePath;
    download.durationMs = vemo_data::spanMs(download.beginTime, download.endTime);
    const Task copy = *task; // receivers may stop or delete the task

    setTaskMessage(taskId, QString(), false);
    emit signalTaskStateChanged(taskId, vemo_data::BackupRunning);
    emit signalBackupProgress(taskId, copy.pieceStart.time());
    if (!m_running.contains(taskId))
        return;
    DownloadWorker::instance().startDownloadTask(download);
    log(copy, tr("start back up, start time:%1").arg(momentText(pieceBegin)));
}

void BackupWorker::downloadEvent(const QString& taskId, int eventId, int value)
{
    const auto found = m_tasks.find(taskId);
    if (found == m_tasks.end() || !m_running.contains(taskId))
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

void BackupWorker::pieceFinished(const QString& taskId)
{
    Task& task = m_tasks[taskId];
    FileInfo& entry = task.fileInfos[task.curFileIndex];
    task.curTime = task.pieceEnd;
    entry.finished = true;
    const bool isAhead = BackupDay::endOf(task, entry) > task.latestTime;
    if (isAhead)
        BackupDay::setEnd(&entry, task.curTime);
    settleEntry(&task, task.curFileIndex);
    store(task);
    if (isAhead)
        stopWithMessage(taskId, aheadText());
    else
        runNextPiece(taskId);
}

void BackupWorker::pieceFailed(const QString& taskId, int eventId)
{
    Task& task = m_tasks[taskId];
    FileInfo& entry = task.fileInfos[task.curFileIndex];
    const QDateTime reached = stopDownload(task);
    if (reached.isValid() && reached > BackupDay::startOf(task, entry)) {
        BackupDay::setEnd(&entry, qMin(reached, BackupDay::endOf(task, entry)));
        entry.finished = true;
        settleEntry(&task, task.curFileIndex);
    } else {
        discardFile(&entry);
    }
    store(task);
    m_running.remove(taskId);
    if (vemo_base::BaseTools::instance().isVideoExist(task.channelId)) {
        task.state = vemo_data::BackupWaiting;
        setTaskMessage(taskId,
                       eventId == EventLimitReached
                           ? tr("The backup limit of he device has been reached, the backup will be attempted again "
                                "later")
                           : tr("Backup is abnormal,the backup will be attempted again later"),
                       true);
        armRetry(taskId);
    } else {
        task.recordings.clear();
        m_waiting.removeAll(taskId);
        task.state = vemo_data::BackupStopped;
        emit signalTaskStateChanged(taskId, vemo_data::BackupStopped);
    }
    fillFreeSlots();
}

void BackupWorker::armRetry(const QString& taskId)
{
    auto* retry = new QTimer(this);
    retry->setObjectName(QStringLiteral("retry"));
    retry->setSingleShot(true);
    connect(retry, &QTimer::timeout, this, [this, retry, taskId] {
        retry->deleteLater();
        if (state(taskId) != vemo_data::BackupWaiting || m_running.contains(taskId) || m_waiting.contains(taskId))
            return;
        m_waiting.append(taskId);
        fillFreeSlots();
    });
    retry->start(retryMs + static_cast<int>(m_seams.random() % retryJitterMs));
}

void BackupWorker::finishTask(const QString& taskId)
{
    Task& task = m_tasks[taskId];
    task.state = vemo_data::BackupFinished;
    task.recordings.clear();
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
    // The queue holds an id once, so that a waiting task keeps its line.
    if (m_waiting.removeAll(taskId) > 1)
        setTaskMessage(taskId, QString(), false);
    Task& task = *found;
    if (task.state == vemo_data::BackupRunning) {
        FileInfo& entry = task.fileInfos[task.curFileIndex];
        const QDateTime begin = BackupDay::startOf(task, entry);
        const QDateTime reached = stopDownload(task);
        DownloadWorker::instance().controlTask(taskId, DownloadWorker::ControlCancel);
        const bool hasFile = reached.isValid() && reached > begin;
        if (hasFile) {
            BackupDay::setEnd(&entry, qMin(reached, BackupDay::endOf(task, entry)));
            entry.finished = true;
            task.curTime = reached;
            task.reportedTime = reached;
            settleEntry(&task, task.curFileIndex);
            emit signalBackupProgress(taskId, reached.time());
        } else {
            discardFile(&entry);
        }
        log(task, tr("stop back up, stop time:%1").arg(momentText(hasFile ? reached : begin)));
        store(task);
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
    m_waiting.removeAll(taskId);
    m_tasks.erase(found);
    m_messages.remove(taskId);
    m_timer.start(afterStopMs);
}

void BackupWorker::fileToggle(const QString& taskId, const QString& fileName, const QDateTime& time)
{
    const auto found = m_tasks.find(taskId);
    if (found == m_tasks.end() || !m_running.contains(taskId))
        return;
    Task& task = *found;
    const QDateTime moment = exactMoment(time, fileName);
    FileInfo rest = task.fileInfos.at(task.curFileIndex);
    BackupDay::setStart(&rest, moment);
    FileInfo& entry = task.fileInfos[task.curFileIndex];
    BackupDay::setEnd(&entry, moment);
    entry.filePath = fileName;
    entry.finished = true;
    settleEntry(&task, task.curFileIndex);
    store(task);
    task.curFileIndex = task.fileInfos.size();
    task.fileInfos.append(rest); // goes on under the path that was asked for
    store(task);
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
