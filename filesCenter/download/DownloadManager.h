#pragma once

#include "DownloadTasksTable.h"

#include <DownloadTaskInfo.h>

#include <QMap>
#include <QObject>
#include <QQueue>
#include <QSet>
#include <QTimer>

#include <functional>

namespace vemo_filesCenter {

/// Keeps the three download tables in step with the stored tasks: every task goes to the table of its state, states
/// without a table to none, and a table whose task got another table's state lets go of it. One object a process, on
/// the GUI thread. The tables belong to the form; one that is not set is passed over.
class DownloadManager final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DownloadManager)

public:
    static DownloadManager& instance();

    /// The tables register themselves in their constructors; null takes one away.
    void setDownloadingTable(DownloadTasksTable* table);
    void setFailedTable(DownloadTasksTable* table);
    void setSuccessTable(DownloadTasksTable* table);

    /// For a table that goes; nothing when another one has taken its place.
    void forget(const DownloadTasksTable* table);

    /// Hands every stored task to its table and announces the three counts; many are handed out in slices, and the
    /// counts come last. The first time in a process what a crash left is put right before. When that, or the store,
    /// takes longer than a moment the tasks are handed out by the event loop, and what the store announces until then
    /// is handed out with them.
    void loadTasks();

private slots:
    void slotQuitSystem();
    void slotAddDownloadTasksToLocalDB(const QList<vemo_data::DownloadTaskInfo>& tasks);
    void slotDeleteDownloadTasksFromLocalDB(const QMap<int, QSet<QString>>& idsByState);
    void slotUpdateDownloadTaskskInLocalDB(const QList<vemo_data::DownloadTaskInfo>& tasks);

private:
    DownloadManager();

    enum class Loading { RecoveryDue, UnderWay, Recovered };

    DownloadTasksTable* tableOf(int state) const;
    void readTasks();
    void handOut(const QList<vemo_data::DownloadTaskInfo>& tasks);
    void tellHandedOut(bool isEmpty);
    void add(const QList<vemo_data::DownloadTaskInfo>& tasks);
    void update(const QList<vemo_data::DownloadTaskInfo>& tasks);
    /// At once, or, when there are many, some at a time by the event loop, in order with all other changes.
    void inSlices(const QList<vemo_data::DownloadTaskInfo>& tasks,
                  const std::function<void(const QList<vemo_data::DownloadTaskInfo>&)>& change);
    /// At once unless earlier changes still wait.
    void carryOut(const std::function<void()>& change);
    void carryOutLater(const std::function<void()>& change);
    void carryOutNext();

    DownloadTasksTable* m_downloadingTable = nullptr;
    DownloadTasksTable* m_failedTable = nullptr;
    DownloadTasksTable* m_successTable = nullptr;
    Loading m_loading = Loading::RecoveryDue;
    QQueue<std::function<void()>> m_changes; ///< slices of long announcements, and what came behind them
    QTimer m_sliceTimer;
};

} // namespace vemo_filesCenter
