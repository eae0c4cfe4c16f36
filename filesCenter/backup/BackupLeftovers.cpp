#include "BackupLeftovers.h"

#include "download/TaskFiles.h"

#include <BackupDay.h>

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace vemo_filesCenter {

using vemo_data::BackupTaskInfo;
namespace BackupDay = vemo_data::BackupDay;
using FileInfo = BackupTaskInfo::FileInfo;

namespace {

constexpr int secondMs = 1000;

/// A file that was cut off ends on a whole second; any other end is that of what there was to fetch.
QDateTime reachedBy(const QDateTime& fileEnd)
{
    const int ms = fileEnd.time().msec();
    return ms == 0 ? fileEnd : fileEnd.addMSecs(secondMs - ms);
}

} // namespace

void BackupLeftovers::settle(BackupTaskInfo* task, int index, const QList<Part>& parts)
{
    const FileInfo open = task->fileInfos.at(index);
    const QDateTime end = BackupDay::endOf(*task, open);
    QDateTime reached = BackupDay::startOf(*task, open);
    QList<FileInfo> settled;
    for (const Part& part : parts) {
        const QDateTime partEnd = qMin(reachedBy(part.span.end), end);
        // One that begins before the piece belongs to another; one second is how far a file may start early.
        if (partEnd <= reached || part.span.begin.addMSecs(secondMs) < reached)
            continue;
        FileInfo entry = open;
        BackupDay::setStart(&entry, reached);
        BackupDay::setEnd(&entry, partEnd);
        entry.filePath = part.path;
        entry.finished = true;
        settled.append(entry);
        reached = partEnd;
    }
    if (settled.isEmpty())
        return;
    settled.first().startTime = open.startTime;
    settled.first().startsInSecondPass = open.startsInSecondPass;
    if (reached < end) {
        FileInfo rest = open;
        BackupDay::setStart(&rest, reached);
        rest.filePath.clear();
        settled.append(rest);
    } else {
        settled.last().endTime = open.endTime;
        settled.last().endsInFirstPass = open.endsInFirstPass;
    }
    task->fileInfos.removeAt(index);
    for (int place = 0; place < settled.size(); ++place)
        task->fileInfos.insert(index + place, settled.at(place));
}

QList<BackupLeftovers::Part> BackupLeftovers::find(const BackupTaskInfo& task, int index,
                                                   const std::function<bool(const QString&)>& isClaimed)
{
    const FileInfo& open = task.fileInfos.at(index);
    if (open.filePath.isEmpty())
        return {};
    const QFileInfo own(open.filePath);
    const QStringList names =
        QDir(own.path())
            .entryList({open.startTime.toString(QStringLiteral("hhmmss")) + QStringLiteral("-*.mp4"),
                        own.completeBaseName() + QStringLiteral("_*.mp4"), own.fileName()},
                       QDir::Files | QDir::NoSymLinks);
    QList<Part> parts;
    for (const QString& name : names) {
        const QString path = own.path() + QLatin1Char('/') + name;
        if (path != open.filePath && isClaimed(path))
            continue;
        const RecordingFile file = RecordingFile::read(path);
        const bool isOfChannel = file.channelNo == 0 || task.channelNo == 0 || file.channelNo == task.channelNo;
        if (file.isFinished() && isOfChannel)
            parts.append({path, {file.begin, file.end}});
    }
    std::sort(parts.begin(), parts.end(), [](const Part& a, const Part& b) { return a.span.begin < b.span.begin; });
    return parts;
}

} // namespace vemo_filesCenter
