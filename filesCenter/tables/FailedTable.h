#pragma once

#include "TasksTableCommonOper.h"

#include "download/DownloadTasksTable.h"

#include <QHash>
#include <QSet>
#include <QWidget>

namespace vemo_base {
class TableWidget;
}

namespace vemo_filesCenter {

class RedownloadTimer;
class TaskPageFrame;

/// Page of the failed downloads, the newest at the top. What failed for a reason that may pass while the client runs is
/// tried again by itself, by one RedownloadTimer a task; what failed in an earlier run waits for the person. A task
/// that is tried again leaves this table at once and comes back to the downloading table by the store's announcement.
/// GUI thread, owned by the form; it works hidden as well.
class FailedTable final : public QWidget, public DownloadTasksTable
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(FailedTable)

public:
    explicit FailedTable(QWidget* parent = nullptr);
    ~FailedTable() override;

    void addTask(const DownloadTaskInfo& task, Source source) override;
    void addTasks(const QList<DownloadTaskInfo>& tasks, Source source) override;
    void updateTask(const DownloadTaskInfo& task) override;
    void removeTasks(const QSet<QString>& taskIds) override;
    bool hasTask(const QString& taskId) const override { return m_tasks.contains(taskId); }
    int taskCount() const override;
    void updateOrderNumbers() override;

    void addTaskRow(const DownloadTaskInfo& task, bool withTimer, bool renumber);
    void removeTaskRows(const QSet<QString>& keys);
    // What the buttons above the table do with the checked rows.
    void batchRedownload();
    void batchDelete();

public slots: // in this order: it is the order of their indexes
    void slotRedownloadTask(const QString& key);
    void slotCleanDownloadTask(const QString& key);
    void slotAddDownloadTaskToFailedTable(const vemo_data::DownloadTaskInfo& task);
    void slotRedownloadTimerDestroyed(const QString& key);

protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void setUpTable();
    QWidget* makeOperWt(int row);
    void fillRow(int row, const DownloadTaskInfo& task);
    void showState(int row, const DownloadTaskInfo& task);
    void setUpRetry(const DownloadTaskInfo& task);
    void discardTimer(const QString& key);
    void retriesChanged();
    void announceCount();
    void refreshSummary();
    void openRowMenu(int row, const QPoint& globalPos);
    void showToolTip(const QString& key, const QPoint& globalPos);
    QString whatComesNext(const DownloadTaskInfo& task) const;

    TaskPageFrame* m_frame;
    vemo_base::TableWidget* m_table;
    TasksTableCommonOper m_tasks;
    QHash<QString, RedownloadTimer*> m_timers;
    QSet<QString> m_armed; ///< keys whose timer will ask for a download
};

} // namespace vemo_filesCenter
