#include "DownloadTaskStore.h"

#include "LocalClock.h"
#include "SqlRows.h"

#include <QDebug>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QTimeZone>
#include <QVariant>

#include <utility>

namespace vemo_data {

namespace {

QVariant utcMs(const QDateTime& time)
{
    return time.isValid() ? QVariant(time.toMSecsSinceEpoch()) : QVariant(QVariant::LongLong);
}

/// Local times from the database. One task often ends where the next begins, so the last time is remembered.
class LocalTimes final
{
public:
    QDateTime at(const SqlRows& rows, int column)
    {
        if (rows.isNull(column))
            return {};
        const qint64 utcMs = rows.number(column);
        if (!m_last.isValid() || utcMs != m_lastUtcMs) {
            m_last = m_clock.toLocal(utcMs);
            m_lastUtcMs = utcMs;
        }
        return m_last;
    }

private:
    LocalClock m_clock;
    qint64 m_lastUtcMs = 0;
    QDateTime m_last;
};

bool isUnderWay(int state)
{
    return state == TaskWaiting || state == TaskDownloading || state == TaskPaused;
}

QVariant keyToHold(const DownloadTaskInfo& task)
{
    return isUnderWay(task.state) ? QVariant(DownloadTaskStore::requestKey(task)) : QVariant(QVariant::String);
}

/// Text columns are NOT NULL, and a null QString binds as NULL.
QString text(const QString& value)
{
    return value.isNull() ? QStringLiteral("") : value;
}

bool carryOut(QSqlQuery& query)
{
    if (query.exec())
        return true;
    qWarning().noquote() << "download tasks:" << query.lastError().text();
    return false;
}

QString zoneOfThisComputer()
{
    return text(QString::fromLatin1(QTimeZone::systemTimeZoneId()));
}

void bind(QSqlQuery& query, const DownloadTaskInfo& task, const QString& zone)
{
    const auto put = [&query](const char* name, const QVariant& value) {
        query.bindValue(QString::fromLatin1(name), value);
    };
    put(":task_id", task.taskId);
    put(":channel_id", text(task.channelId));
    put(":channel_name", text(task.channelName));
    put(":dev_label", text(task.devLabel));
    put(":channel_no", task.channelNo);
    put(":begin_utc_ms", utcMs(task.beginTime));
    put(":end_utc_ms", utcMs(task.endTime));
    put(":zone", zone);
    put(":download_mode", task.downloadMode);
    put(":state", task.state);
    put(":location", task.location);
    put(":progress", task.progress);
    put(":downloaded_bytes", task.downloadedSize);
    put(":file_name", text(task.fileName));
    put(":save_path", text(task.savePath));
    put(":downloaded_ms", task.downloadedMs);
    put(":duration_ms", task.durationMs);
    put(":request_key", keyToHold(task));
}

/// Makes the task in its place in the list.
void appendTask(const SqlRows& rows, LocalTimes* times, QList<DownloadTaskInfo>* tasks)
{
    tasks->append(DownloadTaskInfo());
    DownloadTaskInfo& task = tasks->last();
    int column = 0;
    task.taskId = rows.text(column++);
    task.channelId = rows.text(column++);
    task.channelName = rows.text(column++);
    task.devLabel = rows.text(column++);
    task.channelNo = rows.smallNumber(column++);
    task.beginTime = times->at(rows, column++);
    task.endTime = times->at(rows, column++);
    task.downloadMode = rows.smallNumber(column++);
    task.state = rows.smallNumber(column++);
    task.location = rows.smallNumber(column++);
    task.progress = rows.smallNumber(column++);
    task.downloadedSize = rows.number(column++);
    task.fileName = rows.text(column++);
    task.savePath = rows.text(column++);
    task.downloadedMs = rows.smallNumber(column++);
    task.durationMs = rows.smallNumber(column++);
}

/// The key that a row may hold: none while another row holds it.
const char* const freeKey =
    "CASE WHEN EXISTS (SELECT 1 FROM download_tasks other WHERE other.request_key = :request_key"
    " AND other.task_id <> :task_id) THEN NULL ELSE :request_key END";

bool select(QSqlDatabase& db, const QByteArray& condition, QList<DownloadTaskInfo>* tasks)
{
    const QByteArray statement =
        "SELECT task_id, channel_id, channel_name, dev_label, channel_no, begin_utc_ms, end_utc_ms, download_mode, "
        "state, location, progress, downloaded_bytes, file_name, save_path, downloaded_ms, duration_ms "
        "FROM download_tasks " +
        condition + "ORDER BY seq";
    SqlRows rows(db, statement.constData());
    LocalTimes times;
    if (!rows.run())
        return false;
    while (rows.next())
        appendTask(rows, &times, tasks);
    return rows.isGood();
}

} // namespace

QString DownloadTaskStore::requestKey(const DownloadTaskInfo& task)
{
    const QChar separator(0x1f);
    return task.channelId + separator + QString::number(task.beginTime.toMSecsSinceEpoch()) + separator +
           QString::number(task.endTime.toMSecsSinceEpoch()) + separator + QString::number(task.location) + separator +
           task.fileName;
}

bool DownloadTaskStore::all(QSqlDatabase& db, QList<DownloadTaskInfo>* tasks)
{
    return select(db, {}, tasks);
}

bool DownloadTaskStore::count(QSqlDatabase& db, int* tasks)
{
    QSqlQuery query(db);
    query.prepare(QStringLiteral("SELECT count(*) FROM download_tasks"));
    if (!carryOut(query) || !query.next())
        return false;
    *tasks = query.value(0).toInt();
    return true;
}

bool DownloadTaskStore::countWaiting(QSqlDatabase& db, int* tasks)
{
    QSqlQuery query(db);
    query.prepare(QStringLiteral("SELECT count(*) FROM download_tasks WHERE state = %1").arg(TaskWaiting));
    if (!carryOut(query) || !query.next())
        return false;
    *tasks = query.value(0).toInt();
    return true;
}

bool DownloadTaskStore::pauseWaiting(QSqlDatabase& db)
{
    QSqlQuery query(db);
    query.prepare(
        QStringLiteral("UPDATE download_tasks SET state = %1 WHERE state = %2").arg(TaskPaused).arg(TaskWaiting));
    return carryOut(query);
}

bool DownloadTaskStore::open(QSqlDatabase& db, QList<DownloadTaskInfo>* tasks)
{
    static_assert(TaskWaiting == 0 && TaskPaused == 2);
    return select(db, "WHERE state BETWEEN 0 AND 2 ", tasks);
}

bool DownloadTaskStore::add(QSqlDatabase& db, const QList<DownloadTaskInfo>& tasks, Duplicates duplicates,
                            QList<DownloadTaskInfo>* added)
{
    QSqlQuery held(db);
    held.prepare(QStringLiteral("SELECT 1 FROM download_tasks WHERE request_key = ?"));
    QSqlQuery insert(db);
    insert.prepare(
        QLatin1String("INSERT INTO download_tasks (task_id, channel_id, channel_name, dev_label, channel_no, "
                      "begin_utc_ms, end_utc_ms, zone, download_mode, state, location, progress, downloaded_bytes, "
                      "file_name, save_path, downloaded_ms, duration_ms, request_key) VALUES (:task_id, :channel_id, "
                      ":channel_name, :dev_label, :channel_no, :begin_utc_ms, :end_utc_ms, :zone, :download_mode, "
                      ":state, :location, :progress, :downloaded_bytes, :file_name, :save_path, :downloaded_ms, "
                      ":duration_ms, ") %
        QLatin1String(freeKey) % QLatin1String(") ON CONFLICT (task_id) DO NOTHING"));
    const QString zone = zoneOfThisComputer();
    for (const DownloadTaskInfo& task : tasks) {
        const QVariant key = keyToHold(task);
        if (duplicates == Duplicates::Drop && !key.isNull()) {
            held.bindValue(0, key);
            if (!carryOut(held))
                return false;
            const bool isHeld = held.next();
            held.finish();
            if (isHeld)
                continue;
        }
        bind(insert, task, zone);
        if (!carryOut(insert))
            return false;
        if (insert.numRowsAffected() == 1)
            added->append(task);
    }
    return true;
}

bool DownloadTaskStore::update(QSqlDatabase& db, const QList<DownloadTaskInfo>& tasks, QList<DownloadTaskInfo>* updated)
{
    QSqlQuery query(db);
    query.prepare(QLatin1String("UPDATE download_tasks SET channel_id = :channel_id, channel_name = :channel_name, "
                                "dev_label = :dev_label, channel_no = :channel_no, begin_utc_ms = :begin_utc_ms, "
                                "end_utc_ms = :end_utc_ms, zone = :zone, download_mode = :download_mode, "
                                "state = :state, location = :location, progress = :progress, "
                                "downloaded_bytes = :downloaded_bytes, file_name = :file_name, save_path = :save_path, "
                                "downloaded_ms = :downloaded_ms, duration_ms = :duration_ms, request_key = ") %
                  QLatin1String(freeKey) % QLatin1String(" WHERE task_id = :task_id"));
    const QString zone = zoneOfThisComputer();
    for (const DownloadTaskInfo& task : tasks) {
        bind(query, task, zone);
        if (!carryOut(query))
            return false;
        if (query.numRowsAffected() == 1)
            updated->append(task);
    }
    return true;
}

bool DownloadTaskStore::remove(QSqlDatabase& db, const QList<DownloadTaskInfo>& tasks,
                               QMap<int, QSet<QString>>* removedByState)
{
    QSqlQuery state(db);
    state.prepare(QStringLiteral("SELECT state FROM download_tasks WHERE task_id = ?"));
    QSqlQuery remove(db);
    remove.prepare(QStringLiteral("DELETE FROM download_tasks WHERE task_id = ?"));
    for (const DownloadTaskInfo& task : tasks) {
        state.bindValue(0, task.taskId);
        if (!carryOut(state))
            return false;
        if (!state.next())
            continue;
        const int storedState = state.value(0).toInt();
        state.finish();
        remove.bindValue(0, task.taskId);
        if (!carryOut(remove))
            return false;
        (*removedByState)[storedState].insert(task.taskId);
    }
    return true;
}

bool DownloadTaskStore::forgetRequestKey(QSqlDatabase& db, const QString& taskId)
{
    QSqlQuery query(db);
    query.prepare(QStringLiteral("UPDATE download_tasks SET request_key = NULL WHERE task_id = ?"));
    query.bindValue(0, taskId);
    return carryOut(query);
}

bool DownloadTaskStore::setChannelId(QSqlDatabase& db, const QString& taskId, const QString& channelId)
{
    QSqlQuery query(db);
    query.prepare(QStringLiteral("UPDATE download_tasks SET channel_id = ? WHERE task_id = ?"));
    query.bindValue(0, text(channelId));
    query.bindValue(1, taskId);
    return carryOut(query);
}

} // namespace vemo_data
