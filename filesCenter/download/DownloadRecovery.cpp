#include "DownloadRecovery.h"

#include "DiskWork.h"
#include "DownloadFileName.h"
#include "DownloadWorker.h"
#include "TaskFiles.h"

#include <DownloadTaskData.h>
#include <vaws_download.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLoggingCategory>
#include <QSet>
#include <QTimer>
#include <QUuid>

#include <algorithm>
#include <iterator>
#include <memory>

namespace vemo_filesCenter {

Q_LOGGING_CATEGORY(lcRecovery, "vemo.download.recovery")

namespace {

using Piece = DownloadRecovery::Piece;

constexpr int patienceMs = 50; ///< the window's start may wait so long
constexpr int askAgainMs = 50;
constexpr qint64 secondMs = 1000;

QDateTime wholeSecond(const QDateTime& time)
{
    return time.addMSecs(-time.time().msec());
}

bool isInterrupted(const DownloadTaskInfo& task)
{
    const bool isCopy =
        task.downloadMode == vemo_data::DownloadByFile && task.location == vemo_data::LocationThisComputer;
    return !isCopy && (task.state == vemo_data::TaskWaiting || task.state == vemo_data::TaskPaused);
}

struct NameParts
{
    QString head; ///< up to the "@" in front of the span
    QString span;
    QString tail; ///< behind it, without the suffix
};

bool splitName(const QString& name, NameParts* parts)
{
    const int last = name.lastIndexOf(QLatin1Char('@'));
    const int first = last > 0 ? name.lastIndexOf(QLatin1Char('@'), last - 1) : -1;
    if (first < 0)
        return false;
    parts->head = name.left(first);
    parts->span = name.mid(first + 1, last - first - 1);
    parts->tail = QFileInfo(name.mid(last + 1)).completeBaseName();
    return true;
}

/// The files of the folders that tasks were written to, by the head of their names.
class FolderNames final
{
public:
    QStringList namesLike(const QString& folder, const QString& head)
    {
        auto found = m_folders.find(folder);
        if (found == m_folders.end()) {
            found = m_folders.insert(folder, {});
            const QStringList names = QDir(folder).entryList({QStringLiteral("*.mp4")}, QDir::Files | QDir::NoSymLinks);
            for (const QString& name : names) {
                NameParts parts;
                if (splitName(name, &parts))
                    found->insert(parts.head, name);
            }
        }
        return found->values(head);
    }

private:
    QHash<QString, QMultiHash<QString, QString>> m_folders;
};

/// Which task a path belongs to by the records.
class Owners final
{
public:
    void add(const QString& path, const QString& taskId)
    {
        if (!path.isEmpty())
            m_owners.insert(TaskFiles::comparable(path), taskId);
    }
    bool belongsToAnother(const QString& path, const DownloadTaskInfo& task) const
    {
        const QString owner = m_owners.value(TaskFiles::comparable(path));
        return !owner.isEmpty() && owner != task.taskId;
    }

private:
    QHash<QString, QString> m_owners;
};

Piece pieceOf(const QString& path)
{
    const RecordingFile file = RecordingFile::read(path);
    return {path, file.begin, file.isFinished() ? file.end : QDateTime(), file.bytes, false};
}

/// Parts of the task that got their own names already: renamed to the span that begins the task's, or closed when the
/// recording changed, which adds the span to the name.
QList<Piece> namedPieces(const DownloadTaskInfo& task, FolderNames* folders, const Owners& owners)
{
    const QFileInfo target(task.savePath);
    NameParts own;
    QList<Piece> pieces;
    if (!target.isAbsolute() || !splitName(target.fileName(), &own))
        return pieces;
    const QString begin = compactTime(task.beginTime) + QLatin1Char('~');
    const QStringList names = folders->namesLike(target.path(), own.head);
    for (const QString& name : names) {
        NameParts parts;
        splitName(name, &parts);
        const bool isRenamed = parts.span != own.span && parts.span.startsWith(begin);
        const bool isClosed = parts.span == own.span && parts.tail.startsWith(own.tail + QLatin1Char('_'));
        const QString path = target.path() + QLatin1Char('/') + name;
        if ((!isRenamed && !isClosed) || owners.belongsToAnother(path, task))
            continue;
        const Piece piece = pieceOf(path);
        if (piece.end.isValid() && wholeSecond(piece.begin) >= wholeSecond(task.beginTime))
            pieces.append(piece);
    }
    return pieces;
}

/// Pieces in the order of their begins, the longest of equal ones first, without those whose footage another one holds.
QList<Piece> withoutDoubles(QList<Piece> pieces)
{
    std::sort(pieces.begin(), pieces.end(),
              [](const Piece& a, const Piece& b) { return a.begin != b.begin ? a.begin < b.begin : a.end > b.end; });
    QList<Piece> kept;
    for (const Piece& piece : qAsConst(pieces)) {
        // One second is how far a file may start early.
        if (kept.isEmpty() || (piece.end > kept.last().end && piece.begin.addMSecs(secondMs) >= kept.last().end))
            kept.append(piece);
    }
    return kept;
}

/// Those repaired files of a task whose footage others of its files hold as a whole. What holds a moment that no other
/// file has, or can't be read, is none.
QStringList doublesOf(const DownloadTaskInfo& task, const QList<Piece>& held, const QStringList& repaired,
                      const Owners& owners)
{
    QStringList doubles;
    for (const QString& path : repaired) {
        const auto isSame = [&path](const Piece& piece) {
            return TaskFiles::comparable(piece.path) == TaskFiles::comparable(path);
        };
        if (owners.belongsToAnother(path, task) || std::any_of(held.begin(), held.end(), isSame))
            continue;
        const Piece part = pieceOf(path);
        const auto holds = [&part](const Piece& piece) {
            return piece.end.isValid() && piece.begin.addMSecs(-secondMs) <= part.begin && part.end <= piece.end;
        };
        if (part.end.isValid() && std::any_of(held.begin(), held.end(), holds))
            doubles.append(path);
    }
    return doubles;
}

QMultiHash<QString, QString> repairedPaths(const QByteArray& report)
{
    QMultiHash<QString, QString> paths;
    const QJsonArray entries = QJsonDocument::fromJson(report).array();
    for (const QJsonValue& entry : entries) {
        const QString outcome = entry[QStringLiteral("outcome")].toString();
        const QString task = entry[QStringLiteral("task")].toString();
        qCInfo(lcRecovery).noquote() << "repair:" << outcome << entry[QStringLiteral("path")].toString()
                                     << entry[QStringLiteral("error")].toString();
        if (outcome == QLatin1String("repaired") || outcome == QLatin1String("kept"))
            paths.insert(task, entry[QStringLiteral("path")].toString());
    }
    return paths;
}

QByteArray repairReport()
{
    const int length = vaws_download_repair_report(nullptr, 0);
    if (length <= 0)
        return {};
    QByteArray text(length + 1, '\0');
    vaws_download_repair_report(text.data(), static_cast<size_t>(text.size()));
    text.truncate(length);
    return text;
}

void store(const DownloadRecovery::Changes& changes)
{
    vemo_data::DownloadTaskData& data = vemo_data::DownloadTaskData::instance();
    for (const DownloadTaskInfo& task : changes.updates)
        data.removeDownloadTaskKey(task);
    if (!changes.updates.isEmpty())
        data.amendDownloadTasksByUpdate(changes.updates);
    if (!changes.adds.isEmpty())
        data.amendDownloadTasksByAdd(changes.adds);
}

/// Those that wait or are paused, and any other whose file was still to be closed: a disk that was full may have kept
/// it open after the task had failed.
QList<DownloadTaskInfo> tasksToLookAt(const QByteArray& report)
{
    vemo_data::DownloadTaskData& store = vemo_data::DownloadTaskData::instance();
    QList<DownloadTaskInfo> tasks = store.getOpenDownloadTasks();
    QSet<QString> others;
    const QJsonArray entries = QJsonDocument::fromJson(report).array();
    for (const QJsonValue& entry : entries)
        others.insert(entry[QStringLiteral("task")].toString());
    for (const DownloadTaskInfo& task : qAsConst(tasks))
        others.remove(task.taskId);
    if (!others.isEmpty()) {
        const QList<DownloadTaskInfo> all = store.getAllDownloadTasks();
        std::copy_if(all.begin(), all.end(), std::back_inserter(tasks),
                     [&others](const DownloadTaskInfo& task) { return others.contains(task.taskId); });
    }
    return tasks;
}

/// Removes those files that no record names.
void removeUnclaimed(QStringList paths, QObject* context)
{
    if (paths.isEmpty())
        return;
    QSet<QString> claimed;
    const QList<DownloadTaskInfo> tasks = vemo_data::DownloadTaskData::instance().getAllDownloadTasks();
    for (const DownloadTaskInfo& task : tasks)
        claimed.insert(TaskFiles::comparable(task.savePath));
    const auto isClaimed = [&claimed](const QString& path) { return claimed.contains(TaskFiles::comparable(path)); };
    paths.erase(std::remove_if(paths.begin(), paths.end(), isClaimed), paths.end());
    const auto remove = [paths] {
        for (const QString& path : paths)
            QFile::remove(path);
    };
    DiskWork::run(
        remove, context, [] {}, 0);
}

void recoverWhenRepaired(QObject* context, const std::function<void()>& done, int waitMs)
{
    if (!vaws_download_wait_repaired(waitMs)) {
        QTimer::singleShot(askAgainMs, context, [context, done] { recoverWhenRepaired(context, done, 0); });
        return;
    }
    const QByteArray report = repairReport();
    const QList<DownloadTaskInfo> tasks = tasksToLookAt(report);
    if (tasks.isEmpty()) {
        done();
        return;
    }
    auto changes = std::make_shared<DownloadRecovery::Changes>();
    DiskWork::run([tasks, changes, report] { *changes = DownloadRecovery::recover(tasks, report); }, context,
                  [context, changes, done] {
                      store(*changes);
                      removeUnclaimed(changes->doubles, context);
                      done();
                  },
                  patienceMs);
}

} // namespace

void DownloadRecovery::run(QObject* context, const std::function<void()>& done)
{
    DownloadWorker::instance(); // begins the repair
    recoverWhenRepaired(context, done, patienceMs);
}

DownloadRecovery::Changes DownloadRecovery::plan(const DownloadTaskInfo& task, const QList<Piece>& pieces)
{
    const bool isByFile = task.downloadMode == vemo_data::DownloadByFile;
    const QDateTime recordingBegin = isByFile ? task.endTime.addMSecs(-qint64(task.durationMs)) : task.beginTime;
    Changes changes;
    QDateTime reached = task.beginTime;
    DownloadTaskInfo rest = task;
    for (const Piece& piece : pieces) {
        QDateTime end = isByFile ? piece.end : wholeSecond(piece.end);
        // A span that was broken off ends on a whole second; anything else is the end of what there is.
        const bool isWhole = piece.isLast && (isByFile ? end.msecsTo(task.endTime) < secondMs : end != piece.end);
        end = isWhole ? task.endTime : qMin(end, task.endTime);
        if (end <= reached || piece.begin >= task.endTime)
            continue;
        DownloadTaskInfo finished = task;
        finished.taskId = changes.updates.isEmpty() ? task.taskId : QUuid::createUuid().toString();
        finished.beginTime = reached;
        finished.endTime = end;
        finished.state = vemo_data::TaskSucceeded;
        finished.progress = 100;
        finished.downloadedSize = piece.bytes;
        finished.downloadedMs = isByFile ? vemo_data::spanMs(recordingBegin, end) : -1;
        finished.savePath = piece.path;
        rest.downloadedMs = finished.downloadedMs;
        (changes.updates.isEmpty() ? changes.updates : changes.adds).append(finished);
        reached = end;
    }
    if (changes.updates.isEmpty() || reached >= task.endTime)
        return changes;
    rest.taskId = QUuid::createUuid().toString();
    rest.beginTime = reached;
    rest.progress = 0;
    rest.downloadedSize = 0;
    rest.savePath = TaskFiles::makeSegmentFileName(task.savePath, reached, task.endTime, false);
    changes.adds.append(rest);
    return changes;
}

DownloadRecovery::Changes DownloadRecovery::recover(const QList<DownloadTaskInfo>& tasks, const QByteArray& report)
{
    const QMultiHash<QString, QString> repaired = repairedPaths(report);
    Owners owners;
    for (auto it = repaired.begin(); it != repaired.end(); ++it)
        owners.add(it.value(), it.key());
    for (const DownloadTaskInfo& task : tasks)
        owners.add(task.savePath, task.taskId);
    FolderNames folders;
    Changes all;
    for (const DownloadTaskInfo& task : tasks) {
        if (task.state == vemo_data::TaskSucceeded) {
            if (repaired.contains(task.taskId))
                all.doubles += doublesOf(task, {pieceOf(task.savePath)}, repaired.values(task.taskId), owners);
            continue;
        }
        if (!isInterrupted(task) && !repaired.contains(task.taskId))
            continue;
        QList<Piece> pieces = namedPieces(task, &folders, owners);
        QStringList paths = repaired.values(task.taskId);
        if (QFileInfo(task.savePath).isAbsolute())
            paths.append(task.savePath);
        for (const QString& path : qAsConst(paths)) {
            const bool isThere =
                std::any_of(pieces.begin(), pieces.end(), [&path](const Piece& piece) { return piece.path == path; });
            Piece piece = isThere || owners.belongsToAnother(path, task) ? Piece() : pieceOf(path);
            piece.isLast = true;
            if (piece.end.isValid())
                pieces.append(piece);
        }
        pieces = withoutDoubles(pieces);
        for (int i = 0; i + 1 < pieces.size(); ++i)
            pieces[i].isLast = false;
        for (const Piece& piece : qAsConst(pieces))
            owners.add(piece.path, task.taskId);
        all.doubles += doublesOf(task, pieces, repaired.values(task.taskId), owners);

        Changes changes = plan(task, pieces);
        for (QList<DownloadTaskInfo>* records : {&changes.updates, &changes.adds}) {
            for (DownloadTaskInfo& record : *records) {
                const bool isPart = record.beginTime != task.beginTime || record.endTime != task.endTime;
                if (record.state == vemo_data::TaskSucceeded && isPart)
                    record.savePath =
                        TaskFiles::makeSegmentFileName(record.savePath, record.beginTime, record.endTime, true);
            }
        }
        all.updates += changes.updates;
        all.adds += changes.adds;
    }
    return all;
}

} // namespace vemo_filesCenter
