#include "TaskFactsStore.h"

#include "DownloadTaskInfo.h"

#include <QDebug>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

namespace vemo_data {

namespace {

constexpr int sumBytes = 32;

bool carryOut(QSqlQuery& query)
{
    if (query.exec())
        return true;
    qWarning().noquote() << "task facts:" << query.lastError().text();
    return false;
}

QVariant sumOrNull(const QByteArray& sum)
{
    return sum.size() == sumBytes ? QVariant(sum) : QVariant(QVariant::ByteArray);
}

/// From columns report, reason, sha256, sha256_bytes, seconds, sha256_marks.
void read(const QSqlQuery& query, TaskFacts* facts)
{
    facts->report = query.value(0).toString().toUtf8();
    facts->reason = query.value(1).toString();
    facts->sha256 = query.value(2).toByteArray();
    facts->sha256Bytes = query.value(3).toLongLong();
    facts->seconds = query.value(4).toDouble();
    facts->marks = query.value(5).toByteArray();
}

} // namespace

bool TaskFactsStore::put(QSqlDatabase& db, const TaskFacts& facts)
{
    QSqlQuery query(db);
    query.prepare(QStringLiteral(
        "INSERT INTO task_facts (task_id, report, reason, sha256, sha256_bytes, seconds) VALUES (?, ?, ?, ?, ?, ?) "
        "ON CONFLICT (task_id) DO UPDATE SET report = excluded.report, reason = excluded.reason, "
        "seconds = excluded.seconds, sha256 = coalesce(excluded.sha256, sha256), "
        "sha256_bytes = iif(excluded.sha256 IS NULL, sha256_bytes, excluded.sha256_bytes)"));
    query.addBindValue(facts.taskId);
    query.addBindValue(QString::fromUtf8(facts.report.isNull() ? QByteArray("") : facts.report));
    query.addBindValue(facts.reason.isNull() ? QStringLiteral("") : facts.reason);
    query.addBindValue(sumOrNull(facts.sha256));
    query.addBindValue(facts.sha256Bytes);
    query.addBindValue(facts.seconds);
    return carryOut(query);
}

bool TaskFactsStore::setSha256(QSqlDatabase& db, const QString& taskId, const QByteArray& sum, qint64 bytes,
                               const QByteArray& marks)
{
    QSqlQuery query(db);
    query.prepare(
        QStringLiteral("INSERT INTO task_facts (task_id, sha256, sha256_bytes, sha256_marks) VALUES (?, ?, ?, ?) "
                       "ON CONFLICT (task_id) DO UPDATE SET sha256 = excluded.sha256, "
                       "sha256_bytes = excluded.sha256_bytes, sha256_marks = excluded.sha256_marks"));
    query.addBindValue(taskId);
    query.addBindValue(sumOrNull(sum));
    query.addBindValue(sum.size() == sumBytes ? bytes : 0);
    query.addBindValue(marks);
    return carryOut(query);
}

bool TaskFactsStore::get(QSqlDatabase& db, TaskFacts* facts)
{
    QSqlQuery query(db);
    query.prepare(QStringLiteral(
        "SELECT report, reason, sha256, sha256_bytes, seconds, sha256_marks FROM task_facts WHERE task_id = ?"));
    query.addBindValue(facts->taskId);
    if (!carryOut(query))
        return false;
    if (!query.next())
        return true;
    read(query, facts);
    return true;
}

bool TaskFactsStore::unsummed(QSqlDatabase& db, int limit, QVector<UnsummedFile>* files)
{
    QSqlQuery query(db);
    query.setForwardOnly(true);
    query.prepare(QStringLiteral("SELECT task_id, save_path FROM download_tasks LEFT JOIN task_facts USING (task_id) "
                                 "WHERE state = ? AND sha256 IS NULL ORDER BY seq DESC LIMIT ?"));
    query.addBindValue(static_cast<int>(TaskSucceeded));
    query.addBindValue(limit);
    if (!carryOut(query))
        return false;
    while (query.next())
        files->append({query.value(0).toString(), query.value(1).toString()});
    return true;
}

bool TaskFactsStore::all(QSqlDatabase& db, QHash<QString, TaskFacts>* facts)
{
    QSqlQuery query(db);
    query.setForwardOnly(true);
    query.prepare(
        QStringLiteral("SELECT report, reason, sha256, sha256_bytes, seconds, NULL, task_id FROM task_facts"));
    if (!carryOut(query))
        return false;
    while (query.next()) {
        TaskFacts each;
        each.taskId = query.value(6).toString();
        read(query, &each);
        facts->insert(each.taskId, each);
    }
    return true;
}

} // namespace vemo_data
