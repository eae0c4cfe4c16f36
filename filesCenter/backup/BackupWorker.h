#pragma once

#include "BackupPieceFiles.h"
#include "RecorderClocks.h"

#include <BackupTaskInfo.h>

#include <QHash>
#include <QObject>
#include <QSet>
#include <QStringList>
#include <QTimer>

#include <functional>
#include <memory>

namespace vemo_filesCenter {

class BackupDisk;

using vemo_data::BackupTaskInfo;

/// Carries out backup tasks, piece by piece, by downloads that are in no list. One object a process, on the GUI thread.
///
/// At most five tasks run at once, the others wait in the order of arrival; a task that failed waits for three to five
/// minutes, however clocks are set, and is tried again without limit, as long as its channel is in the client. What
/// becomes of each piece is kept in vemo_data::BackupTaskData, each step is written to the files-center log, and
/// finished files get into the manifest of their folder. Only events of its own tasks are handled. When the client is
/// about to quit all tasks are stopped, what was written of a piece stays. What a crash left of a piece is taken over
/// when its task starts again. A file that stands where a piece is to be written and is not the task's own is never
/// overwritten: it gets another name, or the piece does when that is a backup of another task.
///
/// Files are looked for, named and removed on the module's thread for disks. A task that is "at the disk" has its
/// outcome stored when that is done; until then it does not start again. A folder that is not there, or lies on another
/// disk than before, gets nothing, and a piece whose file is not in it is not settled.
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
    /// When a task that failed is tried again, by the clock as it is set now; invalid when it does not wait for that.
    QDateTime retryTime(const QString& taskId) const;
    /// Up to when the task's device can have recorded.
    QDateTime recordedUpTo(const BackupTaskInfo& task) const;
    /// Sets the line that the task's row shows; also of a task that was never started. With `log` a text goes to the
    /// files-center log, under `task`'s channel.
    void setTaskMessage(const BackupTaskInfo& task, const QString& text, bool log);
    void setTaskMessage(const QString& taskId, const QString& text, bool log);

    /// It has one of the slots: its download runs, or is about to.
    bool isGoingOn(const QString& taskId) const { return m_running.contains(taskId); }
    /// Tasks that run or wait for others; those that wait to be tried again are not among them.
    int busyCount() const { return m_running.size() + m_waiting.size(); }
    bool isAtDisk() const { return !m_atDisk.isEmpty(); }

signals: // in this order
    void signalBackupProgress(const QString& taskId, const QTime& curTime);
    void signalTaskStateChanged(const QString& taskId, int state);
    void signalBackupError(const QString& taskId, const QString& errorMsg);
    /// No task is at the disk any more.
    void signalFilesSettled();

private:
    using Task = BackupTaskInfo;

    static constexpr int afterStopMs = 1000; ///< until free slots are filled

    using Ended = BackupPieceFiles::Ended;

    void downloadEvent(const QString& taskId, int eventId, int value);
    void fileToggle(const QString& taskId, const QString& fileName, const QDateTime& time);
    void fillFreeSlots();

    // From a free slot to a download, in BackupWorkerPieces.cpp.
    void runNextPiece(const QString& taskId);
    /// False while the SDK repairs what a crash left, or the task is at the disk: it is tried again in a moment.
    bool isReady(const BackupTaskInfo& task) const;
    void takeOverLeftovers(const QString& taskId, int open);
    void settle(const QString& taskId, int index, const BackupPieceFiles::Leftovers& left);
    void choosePiece(const QString& taskId);
    void findRoom(const QString& taskId, int index, const FileInfo& piece);
    void findOtherRoom(const QString& taskId, int index, const FileInfo& piece);
    void startDownload(const QString& taskId, int index, const FileInfo& piece);
    QStringList claimedPaths(const Task& task, int except) const;

    /// Runs `job` on the thread for disks, unless the folder for backups is not there, then `done` here.
    void atDisk(const QString& taskId, std::function<void()> job, std::function<void(bool isDiskThere)> done);

    static QString abnormalText();
    static QString diskText();

    void progressed(Task* task, int percent);
    void pieceFinished(const QString& taskId);
    void pieceFailed(const QString& taskId, int eventId);
    void tryLater(const QString& taskId, const QString& text);
    void cancelRetry(const QString& taskId);
    void finishTask(const QString& taskId);
    void stopWithMessage(const QString& taskId, const QString& text);

    /// Puts the entry as it came from the disk into the task, if that is still there.
    void takeEnded(const QString& taskId, int index, const Ended& ended);
    QDateTime stopDownload(const QString& taskId);
    void store(const Task& task) const;
    void log(const Task& task, const QString& text) const;
    void logEnd(const Task& task, const FileInfo& entry) const;
    void changeState(Task* task, int state);

    const Seams m_seams;
    QHash<QString, Task> m_tasks;
    QSet<QString> m_running;     ///< with a slot: a download, or at the disk before or behind one
    QSet<QString> m_downloading; ///< of these, those with a download
    QHash<QString, int> m_atDisk;
    std::shared_ptr<BackupDisk> m_disk; ///< the thread's for disks
    QHash<QString, QTimer*> m_retries;
    RecorderClocks m_recorderClocks;
    QStringList m_waiting;
    QHash<QString, QString> m_messages;
    QTimer m_timer; ///< single shot: free slots are filled
};

} // namespace vemo_filesCenter
