#include "BackupTaskStore.h"

#include <QDebug>
#include <QHash>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

namespace vemo_data {

namespace {

using FileInfo = BackupTaskInfo::FileInfo;

bool carryOut(QSqlQuery& query)
{
    if (query.exec())
        return true;
    qWarning().noquote() << "backup tasks:" << query.lastError().text();
    return false;
}

/// Text columns are NOT NULL, and a null QString binds as NULL.
QString text(const QString& value)
{
    return value.isNull() ? QStringLiteral("") : value;
}

/// Dates as ISO 8601, whose order as texts is that of time.
QString dayText(const QDate& date)
{
    return date.toString(Qt::ISODate);
}

QDate dayOf(const QString& text)
{
    return QDate::fromString(text, Qt::ISODate);
}

QTime timeOf(const QVariant& ms)
{
    return QTime::fromMSecsSinceStartOfDay(ms.toInt());
}

bool addRow(QSqlQuery* insert, const BackupTaskInfo& task)
{
    int column = 0;
    insert->bindValue(column++, task.taskId);
    insert->bindValue(column++, dayText(task.date));
    insert->bindValue(column++, text(task.channelId));
    insert->bindValue(column++, text(task.channelName));
    insert->bindValue(column++, text(task.deviceNo));
    insert->bindValue(column++, task.channelNo);
    return carryOut(*insert);
}

bool addSegments(QSqlDatabase& db, const BackupTaskInfo& task)
{
    QSqlQuery insert(db);
    insert.prepare(
        QStringLiteral("INSERT INTO backup_segments (task_id, place, start_ms, end_ms) VALUES (?, ?, ?, ?)"));
    for (int place = 0; place < task.timeSegments.size(); ++place) {
        insert.bindValue(0, task.taskId);
        insert.bindValue(1, place);
        insert.bindValue(2, task.timeSegments.at(place).start.msecsSinceStartOfDay());
        insert.bindValue(3, task.timeSegments.at(place).end.msecsSinceStartOfDay());
        if (!carryOut(insert))
            return false;
    }
    return true;
}

bool addFiles(QSqlDatabase& db, const QString& taskId, const QList<FileInfo>& fileInfos)
{
    QSqlQuery insert(db);
    insert.prepare(QStringLiteral("INSERT INTO backup_files (task_id, place, start_ms, end_ms, file_path, finished, "
                                  "starts_in_second_pass, ends_in_first_pass) VALUES (?, ?, ?, ?, ?, ?, ?, ?)"));
    for (int place = 0; place < fileInfos.size(); ++place) {
        const FileInfo& entry = fileInfos.at(place);
        int column = 0;
        insert.bindValue(column++, taskId);
        insert.bindValue(column++, place);
        insert.bindValue(column++, entry.startTime.msecsSinceStartOfDay());
        insert.bindValue(column++, entry.endTime.msecsSinceStartOfDay());
        insert.bindValue(column++, text(entry.filePath));
        insert.bindValue(column++, static_cast<int>(entry.finished));
        insert.bindValue(column++, static_cast<int>(entry.startsInSecondPass));
        insert.bindValue(column++, static_cast<int>(entry.endsInFirstPass));
        if (!carryOut(insert))
            return false;
    }
    return true;
}

bool isStored(QSqlDatabase& db, const QString& taskId, bool* stored)
{
    QSqlQuery query(db);
    query.prepare(QStringLiteral("SELECT 1 FROM backup_tasks WHERE task_id = ?"));
    query.addBindValue(taskId);
    if (!carryOut(query))
        return false;
    *stored = query.next();
    return true;
}

bool removeChildren(QSqlDatabase& db, const QString& table, const QString& taskId)
{
    QSqlQuery query(db);
    query.prepare(QStringLiteral("DELETE FROM %1 WHERE task_id = ?").arg(table));
    query.addBindValue(taskId);
    return carryOut(query);
}

/// Calls `take` with the row of each task of the days, in order of place.
template <typename Take>
bool children(QSqlDatabase& db, const QString& columns, const QString& table, const QString& days, Take take)
{
    QSqlQuery query(db);
    query.setForwardOnly(true);
    query.prepare(QStringLiteral("SELECT task_id, %1 FROM %2 WHERE task_id IN (SELECT task_id FROM backup_tasks "
                                 "WHERE %3) ORDER BY task_id, place")
                      .arg(columns, table, days));
    if (!carryOut(query))
        return false;
    while (query.next())
        take(query.value(0).toString(), query);
    return true;
}

/// Dates are formatted here, so nothing of a person gets into the statement.
QString daysBetween(const QDate& first, const QDate& last)
{
    QString condition = QStringLiteral("1");
    if (first.isValid())
        condition += QStringLiteral(" AND day >= '%1'").arg(dayText(first));
    if (last.isValid())
        condition += QStringLiteral(" AND day <= '%1'").arg(dayText(last));
    return condition;
}

} // namespace

bool BackupTaskStore::fits(QSqlDatabase& db, const QList<BackupTaskInfo>& tasks, int mostADay)
{
    QHash<QDate, int> wanted;
    for (const BackupTaskInfo& task : tasks) {
        bool stored = false;
        if (!isStored(db, task.taskId, &stored) || stored)
            return false;
        ++wanted[task.date];
    }
    QSqlQuery query(db);
    query.prepare(QStringLiteral("SELECT count(*) FROM backup_tasks WHERE day = ?"));
    for (auto day = wanted.cbegin(); day != wanted.cend(); ++day) {
        query.bindValue(0, dayText(day.key()));
        if (!carryOut(query) || !query.next() || query.value(0).toInt() + day.value() > mostADay)
            return false;
        query.finish();
    }
    return true;
}

bool BackupTaskStore::add(QSqlDatabase& db, const QList<BackupTaskInfo>& tasks, int mostADay)
{
    if (!fits(db, tasks, mostADay))
        return false;
    QSqlQuery insert(db);
    insert.prepare(QStringLiteral("INSERT INTO backup_tasks (task_id, day, channel_id, channel_name, device_no, "
                                  "channel_no) VALUES (?, ?, ?, ?, ?, ?)"));
    for (const BackupTaskInfo& task : tasks) {
        if (!addRow(&insert, task) || !addSegments(db, task) || !addFiles(db, task.taskId, task.fileInfos))
            return false;
    }
    return true;
}

bool BackupTaskStore::remove(QSqlDatabase& db, const QStringList& taskIds, QStringList* removed)
{
    QSqlQuery query(db);
    query.prepare(QStringLiteral("DELETE FROM backup_tasks WHERE task_id = ?"));
    for (const QString& taskId : taskIds) {
        query.bindValue(0, taskId);
        if (!carryOut(query))
            return false;
        if (query.numRowsAffected() == 1)
            removed->append(taskId);
    }
    return true;
}

bool BackupTaskStore::setResults(QSqlDatabase& db, const QString& taskId, const QList<FileInfo>& fileInfos,
                                 bool* stored)
{
    if (!isStored(db, taskId, stored))
        return false;
    return !*stored || (removeChildren(db, QStringLiteral("backup_files"), taskId) && addFiles(db, taskId, fileInfos));
}

bool BackupTaskStore::setHeld(QSqlDatabase& db, const QString& taskId, const QList<BackupSpan>& held,
                              bool countsAsEmpty)
{
    bool stored = false;
    if (!isStored(db, taskId, &stored) || !stored)
        return !stored;
    QSqlQuery mark(db);
    mark.prepare(
        QStringLiteral("UPDATE backup_tasks SET searched = 1, empty_looks = CASE ? WHEN 1 THEN empty_looks + 1 "
                       "ELSE 0 END WHERE task_id = ?"));
    mark.addBindValue(static_cast<int>(countsAsEmpty));
    mark.addBindValue(taskId);
    if (!carryOut(mark) || !removeChildren(db, QStringLiteral("backup_held"), taskId))
        return false;
    QSqlQuery insert(db);
    insert.prepare(
        QStringLiteral("INSERT INTO backup_held (task_id, place, begin_utc_ms, end_utc_ms) VALUES (?, ?, ?, ?)"));
    for (int place = 0; place < held.size(); ++place) {
        insert.bindValue(0, taskId);
        insert.bindValue(1, place);
        insert.bindValue(2, held.at(place).begin.toMSecsSinceEpoch());
        insert.bindValue(3, held.at(place).end.toMSecsSinceEpoch());
        if (!carryOut(insert))
            return false;
    }
    return true;
}

bool BackupTaskStore::addUnlisted(QSqlDatabase& db, const BackupUnlisted& file)
{
    QSqlQuery query(db);
    query.prepare(QStringLiteral("INSERT INTO backup_unlisted (file_path, device_no, channel_no, channel_name) "
                                 "VALUES (?, ?, ?, ?) ON CONFLICT (file_path) DO NOTHING"));
    query.addBindValue(file.filePath);
    query.addBindValue(text(file.deviceNo));
    query.addBindValue(file.channelNo);
    query.addBindValue(text(file.channelName));
    return carryOut(query);
}

bool BackupTaskStore::removeUnlisted(QSqlDatabase& db, const QString& filePath)
{
    QSqlQuery query(db);
    query.prepare(QStringLiteral("DELETE FROM backup_unlisted WHERE file_path = ?"));
    query.addBindValue(filePath);
    return carryOut(query);
}

bool BackupTaskStore::unlisted(QSqlDatabase& db, QList<BackupUnlisted>* files)
{
    QSqlQuery query(db);
    query.setForwardOnly(true);
    query.prepare(QStringLiteral("SELECT file_path, device_no, channel_no, channel_name FROM backup_unlisted "
                                 "ORDER BY seq"));
    if (!carryOut(query))
        return false;
    while (query.next())
        files->append(
            {query.value(0).toString(), query.value(1).toString(), query.value(2).toInt(), query.value(3).toString()});
    return true;
}

bool BackupTaskStore::between(QSqlDatabase& db, const QDate& first, const QDate& last, QList<BackupTaskInfo>* tasks)
{
    const QString days = daysBetween(first, last);
    QSqlQuery query(db);
    query.setForwardOnly(true);
    query.prepare(QStringLiteral("SELECT task_id, day, channel_id, channel_name, device_no, channel_no, searched, "
                                 "empty_looks FROM backup_tasks WHERE %1 ORDER BY day, seq")
                      .arg(days));
    if (!carryOut(query))
        return false;
    QHash<QString, int> places;
    while (query.next()) {
        BackupTaskInfo task;
        task.taskId = query.value(0).toString();
        task.date = dayOf(query.value(1).toString());
        task.channelId = query.value(2).toString();
        task.channelName = query.value(3).toString();
        task.deviceNo = query.value(4).toString();
        task.channelNo = query.value(5).toInt();
        task.searched = query.value(6).toBool();
        task.emptyLooks = query.value(7).toInt();
        places.insert(task.taskId, tasks->size());
        tasks->append(task);
    }
    const auto taskOf = [&places, tasks](const QString& taskId) -> BackupTaskInfo& {
        return (*tasks)[places.value(taskId)];
    };
    return children(db, QStringLiteral("start_ms, end_ms"), QStringLiteral("backup_segments"), days,
                    [&taskOf](const QString& taskId, const QSqlQuery& row) {
                        taskOf(taskId).timeSegments.append({timeOf(row.value(1)), timeOf(row.value(2))});
                    }) &&
           children(db,
                    QStringLiteral("start_ms, end_ms, file_path, finished, starts_in_second_pass, "
                                   "ends_in_first_pass"),
                    QStringLiteral("backup_files"), days,
                    [&taskOf](const QString& taskId, const QSqlQuery& row) {
                        taskOf(taskId).fileInfos.append({timeOf(row.value(1)), timeOf(row.value(2)),
                                                         row.value(3).toString(), row.value(4).toBool(),
                                                         row.value(5).toBool(), row.value(6).toBool()});
                    }) &&
           children(db, QStringLiteral("begin_utc_ms, end_utc_ms"), QStringLiteral("backup_held"), days,
                    [&taskOf](const QString& taskId, const QSqlQuery& row) {
                        taskOf(taskId).held.append({QDateTime::fromMSecsSinceEpoch(row.value(1).toLongLong()),
                                                    QDateTime::fromMSecsSinceEpoch(row.value(2).toLongLong())});
                    });
}

bool BackupTaskStore::days(QSqlDatabase& db, const QDate& first, const QDate& last, QList<QDate>* days)
{
    QSqlQuery query(db);
    query.setForwardOnly(true);
    query.prepare(
        QStringLiteral("SELECT DISTINCT day FROM backup_tasks WHERE %1 ORDER BY day").arg(daysBetween(first, last)));
    if (!carryOut(query))
        return false;
    while (query.next())
        days->append(dayOf(query.value(0).toString()));
    return true;
}

} // namespace vemo_data
