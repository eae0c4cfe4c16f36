#pragma once

#include "TaskFactsData.h"

class QSqlDatabase;

namespace vemo_data {

/// Facts of download tasks as rows of the database. Plain functions on an open connection, called on the database's
/// thread inside a transaction; each returns false after a failed statement.
class TaskFactsStore final
{
public:
    TaskFactsStore() = delete;

    static bool put(QSqlDatabase& db, const TaskFacts& facts);
    static bool setSha256(QSqlDatabase& db, const QString& taskId, const QByteArray& sum, qint64 bytes,
                          const QByteArray& marks);
    /// Fills what belongs to `facts->taskId`; nothing when nothing is stored.
    static bool get(QSqlDatabase& db, TaskFacts* facts);
    static bool unsummed(QSqlDatabase& db, int limit, QVector<UnsummedFile>* files);
    static bool all(QSqlDatabase& db, QHash<QString, TaskFacts>* facts);
};

} // namespace vemo_data
