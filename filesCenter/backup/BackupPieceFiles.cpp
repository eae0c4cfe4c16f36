#include "BackupPieceFiles.h"

#include "BackupLeftovers.h"
#include "BackupPaths.h"
#include "download/TaskFiles.h"

#include <BackupDay.h>
#include <ToolsCollection.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <functional>

namespace vemo_filesCenter {

namespace BackupDay = vemo_data::BackupDay;
using vemo_data::BackupTaskInfo;

namespace {

bool isThere(const QString& path)
{
    const QFileInfo file(path);
    return file.exists() || file.isSymLink();
}

bool isClaimed(const QStringList& claimed, const QString& path)
{
    const QString own = TaskFiles::comparable(path);
    return std::any_of(claimed.cbegin(), claimed.cend(),
                       [&own](const QString& other) { return TaskFiles::comparable(other) == own; });
}

/// Where the file is afterwards.
QString nameByTimes(const FileInfo& entry)
{
    const QString named =
        QFileInfo(entry.filePath).path() % QLatin1Char('/') % BackupPaths::fileName(entry.startTime, entry.endTime);
    return named != entry.filePath && QFile::rename(entry.filePath, named) ? named : entry.filePath;
}

/// The parts in place of the entry, each file under the name of its times; `taken` is told each path of before.
BackupPieceFiles::Leftovers settled(BackupTaskInfo* task, int index, const QList<BackupLeftovers::Part>& parts,
                                    const std::function<void(const QString&)>& taken)
{
    BackupLeftovers::settle(task, index, parts);
    BackupPieceFiles::Leftovers left{task->fileInfos, 0};
    for (int place = index; place < left.entries.size() && left.taken < parts.size(); ++place) {
        FileInfo& entry = left.entries[place];
        if (!entry.finished)
            break;
        taken(entry.filePath);
        entry.filePath = nameByTimes(entry);
        ++left.taken;
    }
    return left;
}

} // namespace

BackupPieceFiles::Room BackupPieceFiles::makeRoom(const QString& ownPath, const QString& path)
{
    if (!ownPath.isEmpty() && isThere(ownPath) && !QFile::remove(ownPath))
        return Room::Stuck;
    if (BackupPaths::leadsElsewhere(path))
        return Room::Stuck;
    QDir().mkpath(QFileInfo(path).path());
    return isThere(path) ? Room::Taken : Room::Free;
}

QString BackupPieceFiles::makeOtherRoom(const QString& path, const QStringList& claimed)
{
    const QString other = VCOMMON::ToolsCollection::freeFileName(path);
    return !isClaimed(claimed, path) && QFile::rename(path, other) ? path : other;
}

BackupPieceFiles::Ended BackupPieceFiles::finish(const FileInfo& entry)
{
    Ended ended{entry, {}};
    ended.entry.finished = QFileInfo(entry.filePath).isFile();
    ended.entry.filePath = ended.entry.finished ? nameByTimes(entry) : QString();
    return ended;
}

BackupPieceFiles::Ended BackupPieceFiles::cutOff(const QDate& date, const FileInfo& entry, const QDateTime& reached)
{
    const QDateTime begin = BackupDay::startOf(date, entry.startTime, entry.startsInSecondPass);
    const QDateTime end = BackupDay::endOf(date, entry.endTime, entry.endsInFirstPass);
    const QDateTime moment = exactMoment(reached, entry.filePath);
    FileInfo left = entry;
    if (moment.isValid() && moment > begin) {
        BackupDay::setEnd(&left, qMin(moment, end));
        left = finish(left).entry;
        if (left.finished)
            return {left, moment};
    } else if (!entry.filePath.isEmpty()) {
        QFile::remove(entry.filePath);
    }
    left = entry;
    left.filePath.clear();
    return {left, moment};
}

BackupPieceFiles::Leftovers BackupPieceFiles::takeOver(BackupTaskInfo task, int index, const QStringList& claimed)
{
    const QString own = task.fileInfos.at(index).filePath;
    const QList<BackupLeftovers::Part> parts =
        BackupLeftovers::find(task, index, [&claimed](const QString& path) { return isClaimed(claimed, path); });
    bool isOwnTaken = false;
    const Leftovers left =
        settled(&task, index, parts, [&](const QString& path) { isOwnTaken = isOwnTaken || path == own; });
    // No entry will name it any more. It goes, unless it is whole and holds what the others don't.
    const auto part = std::find_if(parts.begin(), parts.end(), [&own](const auto& each) { return each.path == own; });
    const auto holdsMore = [&] {
        return part != parts.end() && part->span.end > BackupDay::endOf(task, left.entries.at(index + left.taken - 1));
    };
    if (left.taken > 0 && !isOwnTaken && isThere(own) && !holdsMore())
        QFile::remove(own);
    return left;
}

BackupPieceFiles::Leftovers BackupPieceFiles::adopt(BackupTaskInfo task, int index, const FileInfo& piece,
                                                    const QStringList& claimed)
{
    if (index < task.fileInfos.size())
        task.fileInfos[index] = piece;
    else
        task.fileInfos.append(piece);
    const QList<BackupLeftovers::Part> parts =
        BackupLeftovers::find(task, index, [&claimed](const QString& path) { return isClaimed(claimed, path); });
    return settled(&task, index, parts, [](const QString&) {});
}

QDateTime BackupPieceFiles::exactMoment(const QDateTime& local, const QString& filePath)
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
