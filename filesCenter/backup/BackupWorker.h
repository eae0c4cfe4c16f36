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
/// kept in vemo_data::BackupTaskData, each step is written to the files-center log, and finished files get into the
/// manifest of their folder. Only events of its own tasks are handled. When the client is about to quit all tasks are
/// stopped, what was written of a piece stays. What a crash left of a piece is taken over when its task starts again.
/// A file that stands where a piece is to be written and is not the task's own is never overwritten: it gets another
/// name, or the piece does when that is a backup of another task.
class BackupWorker final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(BackupWorker)

public:
    static constexpr int mostRunning = 5;

    /// What the passing of time and chance are asked from.
    struct Seams
    {
        std::function<QDateTime()> now;
        std::function<quint64()> random;
    };

    explicit BackupWorker(const Seams& seams, QObject* parent = nullptr);
    ~BackupWorker() override;

    static BackupWorker& instance();

    /// The message of a task that is stopped because its next piece has not been recorded yet.
    static QString aheadText();

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

    /// Tasks that run or wait for others; those that wait to be tried again are not among them.
    int busyCount() const { return m_running.size() + m_waiting.size(); }

signals: // in this order
    void signalBackupProgress(const QString& taskId, const QTime& curTime);
    void signalTaskStateChanged(const QString& taskId, int state);
    void signalBackupError(const QString& taskId, const QString& errorMsg);

private:
    using FileInfo = BackupTaskInfo::FileInfo;
    using Task = BackupTaskInfo;

    void downloadEvent(const QString& taskId, int eventId, int value);
    void fileToggle(const QString& taskId, const QString& fileName, const QDateTime& time);
    void fillFreeSlots();
    void runNextPiece(const QString& taskId);
    /// The current entry's, into its file.
    void startDownload(Task* task);
    /// Whether the SDK has repaired what a crash left, so that the unfinished entry could be looked after.
    bool takeOverLeftovers(Task* task);
    /// Where the piece may be written, the task's own leftovers gone.
    QString freePath(const Task& task, const FileInfo& piece, const QString& ownPath);

    void progressed(Task* task, int percent);
    void pieceFinished(const QString& taskId);
    void pieceFailed(const QString& taskId, int eventId);
    void armRetry(const QString& taskId);
    void finishTask(const QString& taskId);
    void stopWithMessage(const QString& taskId, const QString& text);

    /// The entry ends with the file that it has, which is moved to the name of its times.
    void settleEntry(Task* task, int index);
    void discardFile(FileInfo* entry);
    QDateTime exactMoment(const QDateTime& local, const QString& filePath) const;
    QDateTime stopDownload(const Task& task);
    void store(const Task& task) const;
    void log(const Task& task, const QString& text) const;
    void logEnd(const Task& task, const FileInfo& entry) const;
    void changeState(Task* task, int state);

    const Seams m_seams;
    QHash<QString, Task> m_tasks;
    QSet<QString> m_running;
    QStringList m_waiting;
    QHash<QString, QString> m_messages;
    QTimer m_timer; ///< single shot: free slots are filled
};

} // namespace vemo_filesCenter
