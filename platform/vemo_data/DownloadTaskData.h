#pragma once

#include "DownloadTaskInfo.h"
#include "vemo_data_global.h"

#include <QObject>

#include <functional>

namespace vemo_data {

/// The persisted download tasks. One object a process, used on the GUI thread; writes go to the database's thread and
/// return at once, and what they did is announced by DataSignals after it is on disk. Writes called in one turn of the
/// event loop are stored by one commit: a crash keeps all of them or none, so that a task which is updated and added to
/// in one slot is never found half done. A write that fails changes nothing and is told by
/// DataSignals::signalStoreNotice.
class VEMO_DATA_EXPORT DownloadTaskData final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DownloadTaskData)

public:
    static DownloadTaskData& instance();

    /// Every stored task in the order of adding, all earlier writes included. Waits for the database.
    QList<DownloadTaskInfo> getAllDownloadTasks();
    /// The same without a long wait: `answer` is called on the GUI thread, before this returns when few are stored,
    /// else by the event loop, behind the announcements of everything that the list holds; not once `context` is gone.
    void getAllDownloadTasks(QObject* context, const std::function<void(const QList<DownloadTaskInfo>&)>& answer);
    /// How many wait and would go on by themselves; `answer` is called later on the GUI thread, not once `context` is
    /// gone.
    void countWaiting(QObject* context, const std::function<void(int count)>& answer);
    /// Has those that wait come back paused. Announces nothing: for the start, before anyone has read the tasks.
    void pauseWaiting();
    /// Those that wait, run or are paused. Waits for the database.
    QList<DownloadTaskInfo> getOpenDownloadTasks();

    /// Stores and announces the tasks as one change. A request that is already waiting or running (same channel, span,
    /// location and file name) is left out.
    void addDownloadTasks(const QList<DownloadTaskInfo>& tasks);
    /// Stores the tasks' new values; announces the update when `announce` is true.
    void updateDownloadTasks(const QList<DownloadTaskInfo>& tasks, bool announce);
    void amendDownloadTasksByUpdate(const QList<DownloadTaskInfo>& tasks); ///< stores and announces an update
    void amendDownloadTasksByAdd(const QList<DownloadTaskInfo>& tasks);    ///< stores and announces an add
    /// Stores `finished` under its id and adds `rest` as one change, or neither; announces the update, then the add.
    void splitDownloadTask(const DownloadTaskInfo& finished, const DownloadTaskInfo& rest);
    void deleteDownloadTasks(const QList<DownloadTaskInfo>& tasks);
    /// From now on the same request may be queued again while this task exists.
    void removeDownloadTaskKey(const DownloadTaskInfo& task);
    void updateDownloadTaskChannelId(const DownloadTaskInfo& task, const QString& channelId);

    /// After a store was lost: stores and announces the finished downloads that lie in the folder, by their names.
    /// Files that a record already claims are left out. Returns at once.
    void adoptFinishedFiles(const QString& folder);

    /// Waits until everything written before is on disk; for the end of the program. Announcements of these writes
    /// still come by the event loop. False when the store can't be written.
    bool flush();

private:
    DownloadTaskData();
};

} // namespace vemo_data
