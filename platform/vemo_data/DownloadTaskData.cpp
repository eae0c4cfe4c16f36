#include "DownloadTaskData.h"

#include "Database.h"
#include "DataSignals.h"
#include "DownloadTaskStore.h"
#include "FinishedFiles.h"

#include <QPointer>
#include <QSet>

#include <algorithm>
#include <memory>

namespace vemo_data {

namespace {

using Tasks = QList<DownloadTaskInfo>;
using TasksSignal = void (DataSignals::*)(const Tasks&);

/// Runs `write`, which fills the list of what it stored, and announces that list by `announcement` (null: not at all).
template <typename Write>
void store(Write write, TasksSignal announcement)
{
    auto stored = std::make_shared<Tasks>();
    Database::instance().post([write, stored](QSqlDatabase& db) { return write(db, stored.get()); },
                              [stored, announcement](bool ok) {
                                  if (ok && announcement && !stored->isEmpty())
                                      (DataSignals::instance().*announcement)(*stored);
                              });
}

constexpr int mostReadAtOnce = 1000; ///< some 10 ms

} // namespace

DownloadTaskData::DownloadTaskData() = default;

DownloadTaskData& DownloadTaskData::instance()
{
    static DownloadTaskData data;
    return data;
}

QList<DownloadTaskInfo> DownloadTaskData::getAllDownloadTasks()
{
    Tasks tasks;
    Database::instance().run([&tasks](QSqlDatabase& db) { return DownloadTaskStore::all(db, &tasks); });
    return tasks;
}

QList<DownloadTaskInfo> DownloadTaskData::getOpenDownloadTasks()
{
    Tasks tasks;
    Database::instance().run([&tasks](QSqlDatabase& db) { return DownloadTaskStore::open(db, &tasks); });
    return tasks;
}

void DownloadTaskData::countWaiting(QObject* context, const std::function<void(int)>& answer)
{
    const auto count = std::make_shared<int>(0);
    Database::instance().post([count](QSqlDatabase& db) { return DownloadTaskStore::countWaiting(db, count.get()); },
                              [count, guard = QPointer<QObject>(context), answer](bool isRead) {
                                  if (isRead && guard)
                                      answer(*count);
                              });
}

void DownloadTaskData::pauseWaiting()
{
    Database::instance().post([](QSqlDatabase& db) { return DownloadTaskStore::pauseWaiting(db); });
}

void DownloadTaskData::getAllDownloadTasks(QObject* context,
                                           const std::function<void(const QList<DownloadTaskInfo>&)>& answer)
{
    int count = 0;
    Database::instance().run([&count](QSqlDatabase& db) { return DownloadTaskStore::count(db, &count); });
    if (count <= mostReadAtOnce) {
        answer(getAllDownloadTasks());
        return;
    }
    auto tasks = std::make_shared<Tasks>();
    Database::instance().post([tasks](QSqlDatabase& db) { return DownloadTaskStore::all(db, tasks.get()); },
                              [tasks, answer, guard = QPointer<QObject>(context)](bool) {
                                  if (guard)
                                      answer(*tasks);
                              });
}

void DownloadTaskData::addDownloadTasks(const QList<DownloadTaskInfo>& tasks)
{
    store(
        [tasks](QSqlDatabase& db, Tasks* added) {
            return DownloadTaskStore::add(db, tasks, DownloadTaskStore::Duplicates::Drop, added);
        },
        &DataSignals::signalAddDownloadTasksToLocalDB);
}

void DownloadTaskData::updateDownloadTasks(const QList<DownloadTaskInfo>& tasks, bool announce)
{
    store([tasks](QSqlDatabase& db, Tasks* updated) { return DownloadTaskStore::update(db, tasks, updated); },
          announce ? &DataSignals::signalUpdateDownloadTasksInLocalDB : nullptr);
}

void DownloadTaskData::amendDownloadTasksByUpdate(const QList<DownloadTaskInfo>& tasks)
{
    updateDownloadTasks(tasks, true);
}

void DownloadTaskData::amendDownloadTasksByAdd(const QList<DownloadTaskInfo>& tasks)
{
    store(
        [tasks](QSqlDatabase& db, Tasks* added) {
            return DownloadTaskStore::add(db, tasks, DownloadTaskStore::Duplicates::Keep, added);
        },
        &DataSignals::signalAddDownloadTasksToLocalDB);
}

void DownloadTaskData::splitDownloadTask(const DownloadTaskInfo& finished, const DownloadTaskInfo& rest)
{
    struct Stored
    {
        Tasks updated;
        Tasks added;
    };
    auto stored = std::make_shared<Stored>();
    Database::instance().post(
        [finished, rest, stored](QSqlDatabase& db) {
            return DownloadTaskStore::update(db, {finished}, &stored->updated) &&
                   DownloadTaskStore::add(db, {rest}, DownloadTaskStore::Duplicates::Keep, &stored->added);
        },
        [stored](bool ok) {
            if (ok && !stored->updated.isEmpty())
                emit DataSignals::instance().signalUpdateDownloadTasksInLocalDB(stored->updated);
            if (ok && !stored->added.isEmpty())
                emit DataSignals::instance().signalAddDownloadTasksToLocalDB(stored->added);
        });
}

void DownloadTaskData::adoptFinishedFiles(const QString& folder)
{
    store(
        [folder](QSqlDatabase& db, Tasks* added) {
            Tasks known;
            if (!DownloadTaskStore::all(db, &known))
                return false;
            QSet<QString> claimed;
            for (const DownloadTaskInfo& task : qAsConst(known))
                claimed.insert(task.savePath);
            Tasks found = FinishedFiles::scan(folder);
            const auto isClaimed = [&claimed](const DownloadTaskInfo& task) { return claimed.contains(task.savePath); };
            found.erase(std::remove_if(found.begin(), found.end(), isClaimed), found.end());
            return DownloadTaskStore::add(db, found, DownloadTaskStore::Duplicates::Keep, added);
        },
        &DataSignals::signalAddDownloadTasksToLocalDB);
}

bool DownloadTaskData::flush()
{
    return Database::instance().run([](QSqlDatabase&) { return true; });
}

void DownloadTaskData::deleteDownloadTasks(const QList<DownloadTaskInfo>& tasks)
{
    auto removed = std::make_shared<QMap<int, QSet<QString>>>();
    Database::instance().post(
        [tasks, removed](QSqlDatabase& db) { return DownloadTaskStore::remove(db, tasks, removed.get()); },
        [removed](bool ok) {
            if (ok && !removed->isEmpty())
                emit DataSignals::instance().signalDeleteDownloadTasksFromLocalDB(*removed);
        });
}

void DownloadTaskData::removeDownloadTaskKey(const DownloadTaskInfo& task)
{
    Database::instance().post(
        [taskId = task.taskId](QSqlDatabase& db) { return DownloadTaskStore::forgetRequestKey(db, taskId); });
}

void DownloadTaskData::updateDownloadTaskChannelId(const DownloadTaskInfo& task, const QString& channelId)
{
    Database::instance().post([taskId = task.taskId, channelId](QSqlDatabase& db) {
        return DownloadTaskStore::setChannelId(db, taskId, channelId);
    });
}

} // namespace vemo_data
