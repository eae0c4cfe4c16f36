#pragma once

#include <BackupTaskInfo.h>

#include <QHash>
#include <QObject>

namespace vemo_filesCenter {

class BackupSearch;

/// The way from the wish to start a backup task to the BackupWorker: the check of its device, the search of its day,
/// the start with what was found. One object a process, on the GUI thread; the rows of the page and the run without a
/// page share it, so a task whose row is gone from view starts all the same. A task that is deleted, and every task
/// when the client is about to quit, is let go.
class BackupStarts final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(BackupStarts)

public:
    ~BackupStarts() override;

    static BackupStarts& instance();

    /// False when the device does not allow it, which is then the task's message. One that is searching already stays
    /// at that.
    bool start(const vemo_data::BackupTaskInfo& task);
    void abandon(const QString& taskId);
    bool isSearching(const QString& taskId) const { return m_searches.contains(taskId); }

signals:
    void signalSearching(const QString& taskId);
    /// The search is over and the worker has the task.
    void signalStarted(const QString& taskId);
    /// The search is over without a start, as the task's message tells; `isEmpty`: nothing was found.
    void signalNotStarted(const QString& taskId, bool isEmpty);

private:
    BackupStarts();

    void found(const QString& taskId, const QList<vms_sdk::VideoRecording>& recordings);
    void failed(const QString& taskId, const QString& message, bool isEmpty);
    vemo_data::BackupTaskInfo take(const QString& taskId);

    struct Wish
    {
        vemo_data::BackupTaskInfo task;
        BackupSearch* search = nullptr;
    };

    QHash<QString, Wish> m_searches;
};

} // namespace vemo_filesCenter
