#pragma once

#include "DownloadTaskInfo.h"

#include <QMap>
#include <QSet>

class QSqlDatabase;

namespace vemo_data {

/// Download tasks as rows of the database. Plain functions on an open connection, called on the database's thread
/// inside a transaction; each returns false after a failed statement.
class DownloadTaskStore final
{
public:
    DownloadTaskStore() = delete;

    /// What becomes of a task whose request key another waiting or running task holds.
    enum class Duplicates { Drop, Keep };

    /// In the order of their adding.
    static bool all(QSqlDatabase& db, QList<DownloadTaskInfo>* tasks);
    static bool count(QSqlDatabase& db, int* tasks);
    static bool countWaiting(QSqlDatabase& db, int* tasks);
    static bool pauseWaiting(QSqlDatabase& db);
    /// Those that wait, run or are paused, in the same order.
    static bool open(QSqlDatabase& db, QList<DownloadTaskInfo>* tasks);
    /// `added` receives what was stored; a task whose id is stored already is left out.
    static bool add(QSqlDatabase& db, const QList<DownloadTaskInfo>& tasks, Duplicates duplicates,
                    QList<DownloadTaskInfo>* added);
    /// Tasks that are not stored are left out of `updated`.
    static bool update(QSqlDatabase& db, const QList<DownloadTaskInfo>& tasks, QList<DownloadTaskInfo>* updated);
    static bool remove(QSqlDatabase& db, const QList<DownloadTaskInfo>& tasks,
                       QMap<int, QSet<QString>>* removedByState);
    static bool forgetRequestKey(QSqlDatabase& db, const QString& taskId);
    static bool setChannelId(QSqlDatabase& db, const QString& taskId, const QString& channelId);

    /// What makes two requests the same: channel, span, location and file name.
    static QString requestKey(const DownloadTaskInfo& task);
};

} // namespace vemo_data
