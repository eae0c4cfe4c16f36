#pragma once

#include "DownloadingRows.h"
#include "DownloadPace.h"
#include "DownloadQueue.h"
#include "TasksTableCommonOper.h"

#include "download/DownloadTasksTable.h"

#include <QElapsedTimer>
#include <QHash>
#include <QTimer>
#include <QWidget>

namespace vemo_base {
class TableWidget;
}

namespace vemo_filesCenter {

class TaskPageFrame;

/// Page of the downloads that wait, run or are paused, and their scheduler: at most five start or run at a time. GUI
/// thread, owned by the form; it works hidden as well.
///
/// A row lives from the store's announcement of its task to its end: what ends is stored first, and the store's
/// announcement brings the record to the table of its state. Records leave this table in one commit with the parts that
/// they become.
class DownloadingTable final : public QWidget, public DownloadTasksTable
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DownloadingTable)

public:
    explicit DownloadingTable(QWidget* parent = nullptr);
    ~DownloadingTable() override;

    void addTask(const DownloadTaskInfo& task, Source source) override;
    void addTasks(const QList<DownloadTaskInfo>& tasks, Source source) override;
    void updateTask(const DownloadTaskInfo& task) override;
    void removeTasks(const QSet<QString>& taskIds) override;
    bool hasTask(const QString& taskId) const override { return m_tasks.contains(taskId); }
    int taskCount() const override;
    void updateOrderNumbers() override;
    void startDownloading() override;
    /// Splits what runs as at a failure, its rest waiting or paused as the task was, and waits until that is stored.
    void stopAllDownloads() override;

    void addTaskRow(const DownloadTaskInfo& task, bool tryNow, bool renumber);
    void removeTaskRows(const QSet<QString>& keys);
    void refreshTaskChannels();
    // What the buttons above the table do with the checked rows.
    void batchStart();
    void batchStop();
    void batchCancel();

    const DownloadQueue& queue() const { return m_queue; }

public slots: // in this order: it is the order of their indexes
    void slotStartDownloading(const QString& key);
    void slotStopDownloading(const QString& key);
    void slotOpenDownloadFolder(const QString& key);
    void slotCleanDownloadTask(const QString& key);
    void slotDownloadEvent(const QString& key, int event, int progress);
    void slotDownloadFileToggle(const QString& key, const QString& filePath, int msecs, const QDateTime& time);
    void slotTryDownloadTimeout();
    void slotAddDownloadTaskToDownloadingTable(const vemo_data::DownloadTaskInfo& task);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void setUpConnections();
    void settleRow(const DownloadTaskInfo& task, QList<DownloadTaskInfo>* paused);
    void announceCount();
    void countsChanged();

    void tryStartTask(const QString& key);
    void startTask(const QString& key);
    void pauseTask(const QString& key);
    /// False when the task was paused already; nothing is stored.
    bool pauseWithoutStoring(const QString& key);
    bool isDownloadPathThere();
    void requeue(const QString& key);
    void endedByWorker(const QString& key, int failureState);
    void setTaskState(const QString& key, int state);
    void cancelInWorker(const QString& key);

    void refreshSummary();
    qint64 secondsLeft() const;
    void tellTimeLeft();
    void openRowMenu(int row, const QPoint& globalPos);
    void activateRow(int row);
    QString toolTipOf(const QString& key) const;
    QStringList checkedKeys() const;
    static bool isChannelOfKnownDevice(const QString& devId, int channelNo);

    TaskPageFrame* m_frame;
    vemo_base::TableWidget* m_table;
    TasksTableCommonOper m_tasks;
    DownloadingRows m_rows;
    DownloadQueue m_queue;
    DownloadPace m_pace;
    QElapsedTimer m_clock;
    qint64 m_toldSecondsLeft = -1;
    QSet<QString> m_paused;           ///< keys whose records have state 2
    QHash<QString, int> m_ownUpdates; ///< announcements to come of changes that were made here
    QTimer m_tryDownloadTimer;
    QTimer m_refreshTimer;
};

} // namespace vemo_filesCenter
