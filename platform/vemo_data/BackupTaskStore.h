#pragma once

#include "BackupTaskInfo.h"

#include <QStringList>

class QSqlDatabase;

namespace vemo_data {

/// Backup tasks as rows of the database. Plain functions on an open connection, called on the database's thread inside
/// a transaction; each returns false after a failed statement.
class BackupTaskStore final
{
public:
    BackupTaskStore() = delete;

    /// False also when an id is stored already or a day would have more than `mostADay` tasks.
    static bool add(QSqlDatabase& db, const QList<BackupTaskInfo>& tasks, int mostADay);
    /// Whether add() would find room and no id twice.
    static bool fits(QSqlDatabase& db, const QList<BackupTaskInfo>& tasks, int mostADay);
    static bool remove(QSqlDatabase& db, const QStringList& taskIds, QStringList* removed);
    /// `stored` tells whether the task was there.
    static bool setResults(QSqlDatabase& db, const QString& taskId, const QList<BackupTaskInfo::FileInfo>& fileInfos,
                           bool* stored);
    /// `countsAsEmpty`: one more look that found nothing; else their count begins anew.
    static bool setHeld(QSqlDatabase& db, const QString& taskId, const QList<BackupSpan>& held, bool countsAsEmpty);

    static bool addUnlisted(QSqlDatabase& db, const BackupUnlisted& file);
    static bool removeUnlisted(QSqlDatabase& db, const QString& filePath);
    static bool unlisted(QSqlDatabase& db, QList<BackupUnlisted>* files); ///< in the order of adding

    /// An invalid date does not restrict on its side. Oldest day first, each day in the order of adding.
    static bool between(QSqlDatabase& db, const QDate& first, const QDate& last, QList<BackupTaskInfo>* tasks);
    static bool days(QSqlDatabase& db, const QDate& first, const QDate& last, QList<QDate>* days);
};

} // namespace vemo_data
