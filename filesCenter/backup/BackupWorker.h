#pragma once

#include <BackupTaskInfo.h>

#include <QHash>
#include <QObject>
#include <QSet>
#include <QStringList>
#include <QTimer>

#include <functional>

namespace vemo_filesCenter {

using vemo_data::BackupTaskInfo;

/// Carries out backup tasks, piece by piece, by downloads that are in no list. One object a process, on the GUI thread.
///
/// At most five tasks run at once, the others wait in the order of arrival; a task that failed waits for three to five
/// minutes and is tried again without limit, as long as its channel is in the client. What becomes of each piece is
/// kept in vemo_data::BackupTaskData, each step is written to the files-center log, and each day's folder gets a
/// manifest. Only events of its own tasks are handled. When the client is about to quit all tasks are stopped, what was
/// written of a piece stays.
class BackupWorker final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(BackupWorker)

public:
    static constexpr int mostRunning = 5;

    static BackupWorker& instance();

    /// Stores or refreshes the record, then runs or queues it. `recordings` are those found on the device for its day.
    void startTask(const BackupTaskInfo& task);
    void stopTask(const QString& taskId);
    /// Ends its download, the file of the piece in hand included, and forgets the task.
    void deleteTask(const QString& taskId);

    bool contains(const QString& taskId) const { return m_tasks.contains(taskId); }
    /// The record as it is now; false when the task was never started.
    bool task(const QString& taskId, BackupTaskInfo* info) const;
    int state(const QString& taskId) const;       ///< a BackupTaskState
    QString message(const QString& taskId) const; ///< with its time, empty: none
    QTime curTime(const QString& taskId) const;   ///< up to where the task is fetched, invalid: unknown
    /// Sets the line that the task's row shows; also of a task that was never started. With `log` a text goes to the
    /// files-center log, under `task`'s channel.
    void setTaskMessage(const BackupTaskInfo& task, const QString& text, bool log);
    void setTaskMessage(const QString& taskId, const QString& text, bool log);

    /// Tasks that run, wait or are to be tried again.
    int busyCount() const;

signals: // in this order
    void signalBackupProgress(const QString& taskId, const QTime& curTime);
    void signalTaskStateChanged(const QString& taskId, int state);
    void signalBackupError(const QString& taskId, const QString& errorMsg);

private:
    BackupWorker();

    QHash<QString, BackupTaskInfo> m_tasks;
    QSet<QString> m_running;
    QStringList m_waiting;
    QHash<QString, QString> m_messages;
    QTimer m_timer;
};

} // namespace vemo_filesCenter
