#pragma once

#include "TasksTableCommonOper.h"

#include "download/DownloadTasksTable.h"

#include <QPointer>
#include <QSet>
#include <QWidget>

class QTableWidgetItem;

namespace vemo_base {
class LocalPlaybackDlg;
class TableWidget;
} // namespace vemo_base

namespace vemo_filesCenter {

class TaskPageFrame;

/// Page of the finished downloads, the newest at the top. Shows what is on the disk: a record whose file is not there
/// gets no row, though it stays stored. Many files are looked for off the GUI thread; until the disk has answered their
/// rows stand. GUI thread, owned by the form; it works hidden as well.
class SuccessTable final : public QWidget, public DownloadTasksTable
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SuccessTable)

public:
    explicit SuccessTable(QWidget* parent = nullptr);
    ~SuccessTable() override;

    void addTask(const DownloadTaskInfo& task, Source source) override;
    void addTasks(const QList<DownloadTaskInfo>& tasks, Source source) override;
    void updateTask(const DownloadTaskInfo& task) override;
    void removeTasks(const QSet<QString>& taskIds) override;
    bool hasTask(const QString& taskId) const override { return m_tasks.contains(taskId); }
    int taskCount() const override;
    void updateOrderNumbers() override;

    /// False when the file is not there: no row then.
    bool addTaskRow(const DownloadTaskInfo& task, bool renumber);
    /// Adds the row and writes the log, or takes over the record of a row that is there.
    void addFinishedTask(const DownloadTaskInfo& task);
    void removeTaskRows(const QSet<QString>& keys);
    void openDownloadFolder();
    void batchDelete();

public slots: // in this order: it is the order of their indexes
    void slotOpenDownloadFile(const QString& key);
    void slotOpenDownloadFolder(const QString& key);
    void slotCleanDownloadTask(const QString& key);
    void slotPlaybackDlgClosed(const QString& path);
    void slotTableItemDoubleClicked(QTableWidgetItem* item);

protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void setUpTable();
    QWidget* makeOperWt(int row);
    void fillRow(int row, const DownloadTaskInfo& task);
    void refreshChannels();
    /// Takes away the rows of these tasks whose files are gone; before it returns when the disk answers within a
    /// moment.
    void dropMissing(const QList<DownloadTaskInfo>& tasks);
    void announceCount();
    void refreshSummary();
    void tellMissing(const QString& key);
    void openRowMenu(int row, const QPoint& globalPos);

    TaskPageFrame* m_frame;
    vemo_base::TableWidget* m_table;
    TasksTableCommonOper m_tasks;
    QPointer<vemo_base::LocalPlaybackDlg> m_playbackDlg;
};

} // namespace vemo_filesCenter
