#include "BackupTaskData.h"

#include "BackupTaskStore.h"
#include "Database.h"
#include "DataSignals.h"

#include <QSet>

#include <algorithm>
#include <memory>

namespace vemo_data {

namespace {

constexpr int mostADay = 256;

bool isTask(const BackupTaskInfo& task)
{
    const auto isSegment = [](const BackupTimeSegment& segment) {
        return segment.start.isValid() && segment.end.isValid();
    };
    return !task.taskId.isEmpty() && task.date.isValid() && !task.channelId.isEmpty() && !task.timeSegments.isEmpty() &&
           task.timeSegments.size() <= BackupTaskData::maxSegments &&
           std::all_of(task.timeSegments.begin(), task.timeSegments.end(), isSegment);
}

bool haveOwnIds(const QList<BackupTaskInfo>& tasks)
{
    QSet<QString> ids;
    for (const BackupTaskInfo& task : tasks)
        ids.insert(task.taskId);
    return ids.size() == tasks.size();
}

} // namespace

bool isBackupCovered(const BackupTaskInfo& task)
{
    using FileInfo = BackupTaskInfo::FileInfo;
    if (task.fileInfos.isEmpty() || task.timeSegments.isEmpty())
        return false;
    const FileInfo& last = task.fileInfos.last();
    return last.endTime >= task.timeSegments.last().end && !last.endsInFirstPass &&
           std::all_of(task.fileInfos.begin(), task.fileInfos.end(),
                       [](const FileInfo& entry) { return entry.finished; });
}

BackupTaskData::BackupTaskData() = default;

BackupTaskData& BackupTaskData::instance()
{
    static BackupTaskData data;
    return data;
}

int BackupTaskData::maxBackupTasksCntOneDay()
{
    return mostADay;
}

bool BackupTaskData::addBackupTasks(const QList<BackupTaskInfo>& tasks)
{
    if (tasks.isEmpty() || !std::all_of(tasks.begin(), tasks.end(), isTask) || !haveOwnIds(tasks))
        return false;
    bool fits = false;
    const bool asked = Database::instance().run([&tasks, &fits](QSqlDatabase& db) {
        fits = BackupTaskStore::fits(db, tasks, mostADay);
        return true;
    });
    if (!asked || !fits)
        return false;
    Database::instance().post([tasks](QSqlDatabase& db) { return BackupTaskStore::add(db, tasks, mostADay); },
                              [tasks](bool ok) {
                                  if (ok)
                                      emit DataSignals::instance().signalAddBackupTasksSuccess(tasks);
                              });
    return true;
}

bool BackupTaskData::deleteBackupTasks(const QStringList& taskIds)
{
    if (taskIds.isEmpty())
        return false;
    auto removed = std::make_shared<QStringList>();
    Database::instance().post(
        [taskIds, removed](QSqlDatabase& db) { return BackupTaskStore::remove(db, taskIds, removed.get()); },
        [removed](bool ok) {
            if (ok && !removed->isEmpty())
                emit DataSignals::instance().signalDeleteBackupTasksSuccess(*removed);
        });
    return true;
}

void BackupTaskData::updateBackupResults(const QString& taskId, const QList<BackupTaskInfo::FileInfo>& fileInfos)
{
    auto stored = std::make_shared<bool>(false);
    Database::instance().post(
        [taskId, fileInfos, stored](QSqlDatabase& db) {
            return BackupTaskStore::setResults(db, taskId, fileInfos, stored.get());
        },
        [taskId, fileInfos, stored](bool ok) {
            if (ok && *stored)
                emit DataSignals::instance().signalUpdateBackupResultsSuccess(taskId, fileInfos);
        });
}

void BackupTaskData::updateBackupHeld(const QString& taskId, const QList<BackupSpan>& held, bool isDayOver)
{
    Database::instance().post([taskId, held, isDayOver](QSqlDatabase& db) {
        return BackupTaskStore::setHeld(db, taskId, held, held.isEmpty() && isDayOver);
    });
}

void BackupTaskData::addUnlisted(const BackupUnlisted& file)
{
    Database::instance().post([file](QSqlDatabase& db) { return BackupTaskStore::addUnlisted(db, file); });
}

void BackupTaskData::removeUnlisted(const QString& filePath)
{
    Database::instance().post([filePath](QSqlDatabase& db) { return BackupTaskStore::removeUnlisted(db, filePath); });
}

QList<BackupUnlisted> BackupTaskData::getUnlisted() const
{
    QList<BackupUnlisted> files;
    Database::instance().run([&files](QSqlDatabase& db) { return BackupTaskStore::unlisted(db, &files); });
    return files;
}

QList<BackupTaskInfo> BackupTaskData::getBackupTasks(const QDate& date) const
{
    QList<BackupTaskInfo> tasks;
    if (date.isValid())
        Database::instance().run(
            [&tasks, date](QSqlDatabase& db) { return BackupTaskStore::between(db, date, date, &tasks); });
    return tasks;
}

QList<int> BackupTaskData::getBackupCalendar(int year, int month) const
{
    const QDate first(year, month, 1);
    QList<QDate> days;
    if (first.isValid())
        Database::instance().run([&days, first](QSqlDatabase& db) {
            return BackupTaskStore::days(db, first, first.addMonths(1).addDays(-1), &days);
        });
    QList<int> numbers;
    for (const QDate& day : qAsConst(days))
        numbers.append(day.day());
    return numbers;
}

QList<BackupTaskInfo> BackupTaskData::getAllOpenBackupTasks(const QDate& upTo) const
{
    QList<BackupTaskInfo> tasks;
    Database::instance().run(
        [&tasks, upTo](QSqlDatabase& db) { return BackupTaskStore::between(db, QDate(), upTo, &tasks); });
    const auto isDone = [](const BackupTaskInfo& task) {
        return isBackupCovered(task) || task.emptyLooks >= mostEmptyLooks;
    };
    tasks.erase(std::remove_if(tasks.begin(), tasks.end(), isDone), tasks.end());
    return tasks;
}

QList<BackupTaskInfo> BackupTaskData::getAllBackupTasks() const
{
    QList<BackupTaskInfo> tasks;
    Database::instance().run(
        [&tasks](QSqlDatabase& db) { return BackupTaskStore::between(db, QDate(), QDate(), &tasks); });
    return tasks;
}

bool BackupTaskData::flush()
{
    return Database::instance().run([](QSqlDatabase&) { return true; });
}

} // namespace vemo_data
