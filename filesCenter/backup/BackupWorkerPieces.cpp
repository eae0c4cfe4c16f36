#include "BackupDisk.h"
#include "BackupManifest.h"
#include "BackupPaths.h"
#include "BackupPieces.h"
#include "BackupWorker.h"
#include "download/DiskWork.h"
#include "download/DownloadWorker.h"

#include <BackupDay.h>
#include <BackupTaskData.h>
#include <BaseTools.h>
#include <SystemAssistant.h>
#include <SystemConfig.h>
#include <UiSettings.h>
#include <vaws_download.h>

#include <QPointer>

#include <algorithm>

namespace vemo_filesCenter {

namespace BackupDay = vemo_data::BackupDay;

namespace {

constexpr int mayWaitMs = 0;

QString diskKey()
{
    return QStringLiteral("backup_disk");
}

/// The first entry that is not settled, -1: none.
int openEntry(const BackupTaskInfo& task)
{
    const auto open = std::find_if(task.fileInfos.cbegin(), task.fileInfos.cend(),
                                   [](const FileInfo& entry) { return !entry.finished; });
    return open == task.fileInfos.cend() ? -1 : int(open - task.fileInfos.cbegin());
}

} // namespace

void BackupWorker::atDisk(const QString& taskId, std::function<void()> job, std::function<void(bool)> done)
{
    struct Look
    {
        bool isThere = false;
        QString mountPoint;
    };
    vemo_worker::UiSettings& settings = vemo_worker::UiSettings::instance();
    const QString root = vemo_worker::SystemConfig::instance().getRecordingBackupPath();
    // Where the folder lay at the last look, by this run or an earlier one.
    const QStringList last = settings.value(diskKey()).toStringList();
    const QString mountPoint = last.value(0) == root ? last.value(1) : QString();
    auto look = std::make_shared<Look>();
    ++m_atDisk[taskId];
    DiskWork::run(
        [look, disk = m_disk, root, mountPoint, job = std::move(job)] {
            look->isThere = disk->look(root, mountPoint);
            look->mountPoint = disk->mountPoint();
            if (look->isThere)
                job();
        },
        this,
        [this, look, taskId, root, mountPoint, &settings, done = std::move(done)] {
            if (look->isThere && look->mountPoint != mountPoint)
                settings.setValue(diskKey(), QStringList{root, look->mountPoint});
            if (--m_atDisk[taskId] == 0)
                m_atDisk.remove(taskId);
            const QPointer<BackupWorker> self(this);
            done(look->isThere);
            if (self && !isAtDisk())
                emit signalFilesSettled();
        },
        mayWaitMs);
}

bool BackupWorker::isReady(const BackupTaskInfo& task) const
{
    if (m_atDisk.contains(task.taskId))
        return false;
    const int open = openEntry(task);
    if (open < 0 || task.fileInfos.at(open).filePath.isEmpty())
        return true;
    DownloadWorker::instance(); // begins the repair
    return vaws_download_wait_repaired(0) != 0;
}

void BackupWorker::runNextPiece(const QString& taskId)
{
    const auto task = m_tasks.find(taskId);
    if (task == m_tasks.end())
        return;
    m_waiting.removeAll(taskId);
    if (!isReady(*task)) {
        m_running.remove(taskId);
        task->state = vemo_data::BackupWaiting;
        m_waiting.append(taskId);
        m_timer.start(afterStopMs);
        return;
    }
    m_running.insert(taskId);
    cancelRetry(taskId);
    const int open = openEntry(*task);
    if (open >= 0 && !task->fileInfos.at(open).filePath.isEmpty())
        takeOverLeftovers(taskId, open);
    else
        choosePiece(taskId);
}

void BackupWorker::takeOverLeftovers(const QString& taskId, int open)
{
    const Task& task = m_tasks[taskId];
    auto left = std::make_shared<BackupPieceFiles::Leftovers>();
    atDisk(
        taskId,
        [left, task, open, claimed = claimedPaths(task, open)] {
            *left = BackupPieceFiles::takeOver(task, open, claimed);
        },
        [this, taskId, left, open](bool isDiskThere) {
            if (isDiskThere)
                settle(taskId, open, *left);
            if (!isGoingOn(taskId))
                return;
            if (!isDiskThere)
                tryLater(taskId, diskText());
            else if (left->taken > 0)
                runNextPiece(taskId); // the next open entry may have leftovers as well
            else
                choosePiece(taskId);
        });
}

void BackupWorker::settle(const QString& taskId, int index, const BackupPieceFiles::Leftovers& left)
{
    const auto found = m_tasks.find(taskId);
    if (found == m_tasks.end() || left.taken == 0)
        return;
    found->fileInfos = left.entries;
    for (int place = index; place < index + left.taken; ++place) {
        logEnd(*found, found->fileInfos.at(place));
        BackupManifest::instance().add(*found, found->fileInfos.at(place).filePath);
    }
    store(*found);
}

void BackupWorker::choosePiece(const QString& taskId)
{
    Task& task = m_tasks[taskId];
    bool hasSettled = false;
    while (true) {
        const std::optional<BackupPieces::Piece> piece = BackupPieces::next(task);
        const QDateTime begin = piece ? BackupDay::startOf(task, piece->span) : QDateTime();
        const QDateTime end = piece ? BackupDay::endOf(task, piece->span) : QDateTime();
        const std::optional<vemo_data::BackupSpan> range =
            piece ? BackupPieces::clip({begin, end}, task.recordings) : std::nullopt;
        const bool isAhead =
            piece && (begin >= m_seams.now() || begin >= task.latestTime || (!range && end >= task.latestTime));
        if (piece && !isAhead && !range) { // nothing was recorded in it
            const int index = piece->resumed < 0 ? task.fileInfos.size() : piece->resumed;
            if (piece->resumed < 0)
                task.fileInfos.append(piece->span);
            FileInfo& entry = task.fileInfos[index];
            entry.filePath.clear();
            entry.finished = true;
            logEnd(task, entry);
            hasSettled = true;
            continue;
        }
        if (hasSettled)
            store(task);
        if (!piece) {
            finishTask(taskId);
        } else if (isAhead) {
            stopWithMessage(taskId, aheadText());
        } else {
            task.pieceStart = range->begin;
            task.pieceEnd = range->end;
            findRoom(taskId, piece->resumed < 0 ? task.fileInfos.size() : piece->resumed, piece->span);
        }
        return;
    }
}

QStringList BackupWorker::claimedPaths(const Task& task, int except) const
{
    QStringList paths;
    for (int index = 0; index < task.fileInfos.size(); ++index) {
        if (index != except)
            paths.append(task.fileInfos.at(index).filePath);
    }
    const QList<BackupTaskInfo> others = vemo_data::BackupTaskData::instance().getBackupTasks(task.date);
    for (const BackupTaskInfo& other : others) {
        for (const FileInfo& entry : other.fileInfos) {
            if (other.taskId != task.taskId)
                paths.append(entry.filePath);
        }
    }
    paths.removeAll(QString());
    return paths;
}

void BackupWorker::findRoom(const QString& taskId, int index, const FileInfo& given)
{
    const Task& task = m_tasks[taskId];
    const QString ownPath = index < task.fileInfos.size() ? task.fileInfos.at(index).filePath : QString();
    if (!ownPath.isEmpty())
        vemo_worker::SystemAssistant::instance().removeVdxFiles({ownPath});
    FileInfo piece = given;
    piece.filePath = BackupPaths::filePath(task, piece.startTime, piece.endTime);
    using Room = BackupPieceFiles::Room;
    auto room = std::make_shared<Room>(Room::Unknown);
    auto left = std::make_shared<BackupPieceFiles::Leftovers>();
    atDisk(
        taskId,
        [room, left, ownPath, task, index, piece, claimed = claimedPaths(task, index)] {
            // A file whose entry never reached the disk is known by what it says itself.
            if (ownPath.isEmpty())
                *left = BackupPieceFiles::adopt(task, index, piece, claimed);
            if (left->taken == 0)
                *room = BackupPieceFiles::makeRoom(ownPath, piece.filePath);
        },
        [this, taskId, index, piece, room, left](bool isDiskThere) {
            if (isDiskThere)
                settle(taskId, index, *left);
            if (!isGoingOn(taskId))
                return;
            if (!isDiskThere)
                tryLater(taskId, diskText());
            else if (left->taken > 0)
                runNextPiece(taskId);
            else if (*room == Room::Stuck)
                tryLater(taskId, abnormalText()); // and its entry goes on naming the file
            else if (*room == Room::Free)
                startDownload(taskId, index, piece);
            else
                findOtherRoom(taskId, index, piece);
        });
}

void BackupWorker::findOtherRoom(const QString& taskId, int index, const FileInfo& given)
{
    auto path = std::make_shared<QString>(given.filePath);
    atDisk(
        taskId,
        [path, claimed = claimedPaths(m_tasks[taskId], index)] {
            *path = BackupPieceFiles::makeOtherRoom(*path, claimed);
        },
        [this, taskId, index, piece = given, path](bool isDiskThere) mutable {
            if (!isGoingOn(taskId))
                return;
            piece.filePath = *path;
            if (isDiskThere)
                startDownload(taskId, index, piece);
            else
                tryLater(taskId, diskText());
        });
}

void BackupWorker::startDownload(const QString& taskId, int index, const FileInfo& piece)
{
    Task& task = m_tasks[taskId];
    if (index == task.fileInfos.size())
        task.fileInfos.append(piece);
    else
        task.fileInfos[index].filePath = piece.filePath;
    task.curFileIndex = index;
    store(task);
    task.state = vemo_data::BackupRunning;
    task.curTime = task.pieceStart;
    task.reportedTime = task.pieceStart;

    vemo_data::DownloadTaskInfo download;
    download.taskId = taskId;
    download.channelId = task.channelId;
    download.channelName = task.channelName;
    download.devLabel = task.deviceNo;
    download.channelNo = task.channelNo;
    download.beginTime = task.pieceStart;
    download.endTime = task.pieceEnd;
    download.downloadMode = vemo_data::DownloadByTimeRange;
    download.location = vemo_data::LocationDevice;
    download.savePath = piece.filePath;
    download.durationMs = vemo_data::spanMs(download.beginTime, download.endTime);
    const Task copy = task; // receivers may stop or delete the task

    setTaskMessage(taskId, QString(), false);
    emit signalTaskStateChanged(taskId, vemo_data::BackupRunning);
    emit signalBackupProgress(taskId, copy.pieceStart.time());
    if (!isGoingOn(taskId))
        return;
    m_downloading.insert(taskId);
    DownloadWorker::instance().startDownloadTask(download);
    log(copy, tr("start back up, start time:%1")
                  .arg(vemo_base::BaseTools::instance().strDatetime(BackupDay::startOf(copy, piece), true, false)));
}

} // namespace vemo_filesCenter
