#pragma once

#include "EndedTasksTable.h"

#include <QHash>
#include <QSet>

namespace vemo_filesCenter {

class RedownloadTimer;

/// Page of the failed downloads, the newest at the top. What failed for a reason that may pass while the client runs is
/// tried again by itself, by one RedownloadTimer a task; what failed in an earlier run waits for the person. A task
/// that is tried again leaves this table at once and comes back to the downloading table by the store's announcement.
/// GUI thread, owned by the form; it works hidden as well.
class FailedTable final : public EndedTasksTable
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(FailedTable)

public:
    explicit FailedTable(QWidget* parent = nullptr);
    ~FailedTable() override;

    void addTask(const DownloadTaskInfo& task, Source source) override;
    void addTasks(const QList<DownloadTaskInfo>& tasks, Source source) override;
    void updateTask(const DownloadTaskInfo& task) override;

    void addTaskRow(const DownloadTaskInfo& task, bool withTimer, bool renumber);
    void batchRedownload();

public slots: // in this order: it is the order of their indexes
    void slotRedownloadTask(const QString& key);
    void slotCleanDownloadTask(const QString& key);
    void slotAddDownloadTaskToFailedTable(const vemo_data::DownloadTaskInfo& task);
    void slotRedownloadTimerDestroyed(const QString& key);

protected:
    QWidget* makeOperWt(const DownloadTaskInfo& task) override;
    void fillEnd(int row, const DownloadTaskInfo& task) override;
    QString endText(const DownloadTaskInfo& task) const override;
    void showEndToolTip(const QString& key, const QPoint& globalPos) override;
    QString summary(int count) const override;
    void emitCount(int count) override;
    void activate(const QString& key) override { slotRedownloadTask(key); }
    void clean(const QString& key) override { slotCleanDownloadTask(key); }
    void fillMenu(QMenu* menu, const QString& key) override;
    void letGo(const QString& key) override { discardTimer(key); }

private:
    void setUpRetry(const DownloadTaskInfo& task);
    void discardTimer(const QString& key);
    void retriesChanged();
    QString whatComesNext(const DownloadTaskInfo& task) const;

    QHash<QString, RedownloadTimer*> m_timers;
    QSet<QString> m_armed; ///< keys whose timer will ask for a download
};

} // namespace vemo_filesCenter
