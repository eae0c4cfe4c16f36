#include "TaskFactsData.h"

#include "Database.h"
#include "TaskFactsStore.h"

#include <QPointer>

#include <memory>

namespace vemo_data {

TaskFactsData::TaskFactsData() = default;

TaskFactsData& TaskFactsData::instance()
{
    static TaskFactsData data;
    return data;
}

void TaskFactsData::put(const TaskFacts& facts)
{
    TaskFacts kept = facts;
    if (kept.report.size() > reportLimitBytes)
        kept.report.clear();
    Database::instance().post([kept](QSqlDatabase& db) { return TaskFactsStore::put(db, kept); });
}

void TaskFactsData::setSha256(const QString& taskId, const QByteArray& sum, qint64 bytes, const QByteArray& marks)
{
    Database::instance().post([taskId, sum, bytes, marks](QSqlDatabase& db) {
        return TaskFactsStore::setSha256(db, taskId, sum, bytes, marks);
    });
}

void TaskFactsData::get(const QString& taskId, QObject* context, std::function<void(const TaskFacts&)> answer)
{
    auto facts = std::make_shared<TaskFacts>();
    facts->taskId = taskId;
    Database::instance().post([facts](QSqlDatabase& db) { return TaskFactsStore::get(db, facts.get()); },
                              [facts, guard = QPointer<QObject>(context), answer = std::move(answer)](bool) {
                                  if (guard)
                                      answer(*facts);
                              });
}

void TaskFactsData::getUnsummed(int limit, QObject* context, std::function<void(const QVector<UnsummedFile>&)> answer)
{
    auto files = std::make_shared<QVector<UnsummedFile>>();
    Database::instance().post(
        [limit, files](QSqlDatabase& db) { return TaskFactsStore::unsummed(db, limit, files.get()); },
        [files, guard = QPointer<QObject>(context), answer = std::move(answer)](bool) {
            if (guard)
                answer(*files);
        });
}

TaskFacts TaskFactsData::getNow(const QString& taskId)
{
    TaskFacts facts;
    facts.taskId = taskId;
    Database::instance().run([&facts](QSqlDatabase& db) { return TaskFactsStore::get(db, &facts); });
    return facts;
}

QHash<QString, TaskFacts> TaskFactsData::getAllNow()
{
    QHash<QString, TaskFacts> facts;
    Database::instance().run([&facts](QSqlDatabase& db) { return TaskFactsStore::all(db, &facts); });
    return facts;
}

} // namespace vemo_data
