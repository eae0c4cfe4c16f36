#pragma once

#include "EndedTasksTable.h"

#include <QPointer>

class QTableWidgetItem;

namespace vemo_base {
class LocalPlaybackDlg;
}

namespace vemo_filesCenter {

/// Page of the finished downloads, the newest at the top. Shows what is on the disk: a record whose file is not there
/// gets no row, though it stays stored. Many files are looked for off the GUI thread; until the disk has answered their
/// rows stand. GUI thread, owned by the form; it works hidden as well.
class SuccessTable final : public EndedTasksTable
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SuccessTable)

public:
    explicit SuccessTable(QWidget* parent = nullptr);
    ~SuccessTable() override;

    void addTask(const DownloadTaskInfo& task, Source source) override;
    void addTasks(const QList<DownloadTaskInfo>& tasks, Source source) override;
    void updateTask(const DownloadTaskInfo& task) override;

    /// False when the file is not there: no row then.
    bool addTaskRow(const DownloadTaskInfo& task, bool renumber);
    /// Adds the row and writes the log, or takes over the record of a row that is there.
    void addFinishedTask(const DownloadTaskInfo& task);
    void openDownloadFolder();

public slots: // in this order: it is the order of their indexes
    void slotOpenDownloadFile(const QString& key);
    void slotOpenDownloadFolder(const QString& key);
    void slotCleanDownloadTask(const QString& key);
    void slotPlaybackDlgClosed(const QString& path);
    void slotTableItemDoubleClicked(QTableWidgetItem* item);

protected:
    void showEvent(QShowEvent* event) override;
    QWidget* makeOperWt(const DownloadTaskInfo& task) override;
    void fillEnd(int row, const DownloadTaskInfo& task) override;
    QString endText(const DownloadTaskInfo& task) const override;
    void showEndToolTip(const QString& key, const QPoint& globalPos) override;
    QString summary(int count) const override;
    void emitCount(int count) override;
    void activate(const QString& key) override { slotOpenDownloadFile(key); }
    void clean(const QString& key) override { slotCleanDownloadTask(key); }
    void fillMenu(QMenu* menu, const QString& key) override;
    void letGo(const QString& key) override;

private:
    void refreshChannels();
    void takeSize(const QString& taskId, const QByteArray& sha256, qint64 bytes);
    /// Takes away the rows of these tasks whose files are gone; before it returns when the disk answers within a
    /// moment.
    void dropMissing(const QList<DownloadTaskInfo>& tasks);
    void tellMissing(const QString& key);

    QPointer<vemo_base::LocalPlaybackDlg> m_playbackDlg;
};

} // namespace vemo_filesCenter
