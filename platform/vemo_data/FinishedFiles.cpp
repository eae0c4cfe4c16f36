#include "FinishedFiles.h"

#include <QDirIterator>
#include <QFileInfo>
#include <QRegularExpression>
#include <QUuid>

#include <algorithm>

namespace vemo_data {

namespace {

constexpr int mostFiles = 100'000;

QDateTime timeOf(const QString& text)
{
    return QDateTime::fromString(text, QStringLiteral("yyyyMMddhhmmss"));
}

} // namespace

std::optional<DownloadTaskInfo> FinishedFiles::fromName(const QString& fileName)
{
    static const QRegularExpression form(QStringLiteral("^(.*)@([^@]*)_(\\d{1,9})@(\\d{14})~(\\d{14})@[^@]*\\.mp4$"));
    const QRegularExpressionMatch match = form.match(fileName);
    if (!match.hasMatch())
        return std::nullopt;
    DownloadTaskInfo task;
    task.taskId = QUuid::createUuid().toString();
    task.channelName = match.captured(1);
    task.devLabel = match.captured(2);
    task.channelNo = match.captured(3).toInt();
    task.beginTime = timeOf(match.captured(4));
    task.endTime = timeOf(match.captured(5));
    if (!task.beginTime.isValid() || !task.endTime.isValid() || task.endTime <= task.beginTime)
        return std::nullopt;
    task.downloadMode = DownloadByTimeRange;
    task.state = TaskSucceeded;
    task.location = LocationDevice;
    task.savePath = fileName;
    task.durationMs = spanMs(task.beginTime, task.endTime);
    return task;
}

QList<DownloadTaskInfo> FinishedFiles::scan(const QString& folder)
{
    QList<DownloadTaskInfo> tasks;
    QDirIterator files(folder, {QStringLiteral("*.mp4")}, QDir::Files | QDir::NoSymLinks);
    while (files.hasNext() && tasks.size() < mostFiles) {
        files.next();
        std::optional<DownloadTaskInfo> task = fromName(files.fileName());
        if (!task)
            continue;
        task->savePath = files.filePath();
        task->downloadedSize = files.fileInfo().size();
        tasks.append(*task);
    }
    std::sort(tasks.begin(), tasks.end(), [](const DownloadTaskInfo& one, const DownloadTaskInfo& other) {
        return one.beginTime < other.beginTime;
    });
    return tasks;
}

} // namespace vemo_data
