#include "BackupLeftovers.h"
#include "BackupManifest.h"
#include "BackupPaths.h"
#include "BackupWorker.h"
#include "download/DownloadWorker.h"
#include "download/TaskFiles.h"

#include <BackupDay.h>
#include <BackupTaskData.h>
#include <SystemAssistant.h>
#include <SystemConfig.h>
#include <ToolsCollection.h>
#include <vaws_download.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace vemo_filesCenter {

namespace BackupDay = vemo_data::BackupDay;

namespace {

/// A finished file of a task of that day.
bool isBackupOf(const QDate& date, const QString& exceptTaskId, const QString& path)
{
    const QList<BackupTaskInfo> tasks = vemo_data::BackupTaskData::instance().getBackupTasks(date);
    for (const BackupTaskInfo& task : tasks) {
        if (task.taskId == exceptTaskId)
            continue;
        for (const BackupTaskInfo::FileInfo& entry : task.fileInfos) {
            if (!entry.filePath.isEmpty() && TaskFiles::comparable(entry.filePath) == TaskFiles::comparable(path))
                return true;
        }
    }
    return false;
}

bool hasFile(const BackupTaskInfo& task, const QString& path)
{
    for (const BackupTaskInfo::FileInfo& entry : task.fileInfos) {
        if (TaskFiles::comparable(entry.filePath) == TaskFiles::comparable(path))
            return true;
    }
    return false;
}

bool isThere(const QString& path)
{
    const QFileInfo file(path);
    return file.exists() || file.isSymLink();
}

} // namespace

bool BackupWorker::takeOverLeftovers(Task* task)
{
    const QList<FileInfo>& entries = task->fileInfos;
    int index = 0;
    while (index < entries.size() && entries.at(index).finished)
        ++index;
    if (index == entries.size() || entries.at(index).filePath.isEmpty())
        return true;
    DownloadWorker::instance(); // begins the repair
    if (!vaws_download_wait_repaired(0))
        return false;
    const QString taskId = task->taskId;
    const QList<BackupLeftovers::Part> parts =
        BackupLeftovers::find(*task, index, [task, &taskId](const QString& path) {
            return hasFile(*task, path) || isBackupOf(task->date, taskId, path);
        });
    const int before = entries.size();
    BackupLeftovers::settle(task, index, parts);
    if (entries.size() == before && !entries.at(index).finished)
        return true;
    for (int settled = index; settled < entries.size() && entries.at(settled).finished; ++settled)
        settleEntry(task, settled);
    store(*task);
    return true;
}

QString BackupWorker::freePath(const Task& task, const FileInfo& piece, const QString& ownPath)
{
    if (!ownPath.isEmpty() && isThere(ownPath)) {
        vemo_worker::SystemAssistant::instance().removeVdxFiles({ownPath});
        QFile::remove(ownPath);
    }
    const QString root = vemo_worker::SystemConfig::instance().getRecordingBackupPath();
    const QString path = BackupPaths::filePath(task, piece.startTime, piece.endTime);
    // A root that is not there may be a disk that was unplugged: nothing is made in its place.
    if (QFileInfo(root).isDir())
        QDir().mkpath(QFileInfo(path).path());
    if (!isThere(path))
        return path;
    const QString other = VCOMMON::ToolsCollection::freeFileName(path);
    const bool isBackup = hasFile(task, path) || isBackupOf(task.date, task.taskId, path);
    return !isBackup && QFile::rename(path, other) ? path : other;
}

void BackupWorker::settleEntry(Task* task, int index)
{
    FileInfo& entry = task->fileInfos[index];
    const QString named =
        QFileInfo(entry.filePath).path() % QLatin1Char('/') % BackupPaths::fileName(entry.startTime, entry.endTime);
    if (named != entry.filePath && QFile::rename(entry.filePath, named))
        entry.filePath = named;
    logEnd(*task, entry);
    BackupManifest::instance().add(*task, entry.filePath);
}

void BackupWorker::discardFile(FileInfo* entry)
{
    if (!entry->filePath.isEmpty())
        QFile::remove(entry->filePath);
    entry->filePath.clear();
}

QDateTime BackupWorker::stopDownload(const Task& task)
{
    const QDateTime reached = DownloadWorker::instance().lastFrameTime(task.taskId);
    return exactMoment(reached, task.fileInfos.at(task.curFileIndex).filePath);
}

/// In the hour that passes twice the local time leaves open which pass it is; the file knows.
QDateTime BackupWorker::exactMoment(const QDateTime& local, const QString& filePath) const
{
    if (!local.isValid() || !BackupDay::isDoubled(local))
        return local;
    const QDateTime first = BackupDay::startOf(local.date(), local.time());
    const QDateTime second = BackupDay::endOf(local.date(), local.time());
    const QDateTime end = RecordingFile::read(filePath).end;
    if (!end.isValid())
        return first;
    return qAbs(first.msecsTo(end)) <= qAbs(second.msecsTo(end)) ? first : second;
}

} // namespace vemo_filesCenter
