#pragma once

#include <BackupTaskInfo.h>

#include <QTimer>
#include <QWidget>

class QVBoxLayout;

namespace vemo_data {
class BackupSafety;
}

namespace vemo_filesCenter {

class BackupExport;
class BackupTaskTimeAxisWt;

/// The rows of a day's backup tasks, in a layout that ends in a stretch. It follows the store: tasks that were added
/// get a row, deleted ones lose theirs, results refresh one row; the other rows stay as they are. GUI thread; lives in
/// the page's scroll area.
class BackupTasksBox final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(BackupTasksBox)

public:
    explicit BackupTasksBox(QWidget* parent = nullptr);

    /// Drops all rows and makes those of the day.
    void setTasks(const QDate& date, const QList<vemo_data::BackupTaskInfo>& tasks);
    int rowCount() const;
    BackupTaskTimeAxisWt* row(int index) const;
    vemo_data::BackupSafety safety() const;

    // Of the whole day.
    void startAll();
    void stopAll();
    void deleteAll();
    void exportAll();
    void cancelExport();
    void applyTo(const QDate& day);
    /// The day or one of its rows.
    bool isExporting() const;

    /// Rows that are far from view give their pictures back.
    void keepPicturesNear(const QRect& visible);

signals:
    void signalBatchExportStarted();
    void signalBatchExportProgress(int progress);
    void signalBatchExportFinished(int totalCnt, int successCnt, int failureCnt);
    /// Rows came or went.
    void signalRowsChanged();
    void signalSafetyChanged();

private:
    void addRow(const vemo_data::BackupTaskInfo& task);
    void takeAdded(const QList<vemo_data::BackupTaskInfo>& tasks);
    void takeDeleted(const QStringList& taskIds);
    void takeResults(const QString& taskId, const QList<vemo_data::BackupTaskInfo::FileInfo>& fileInfos);
    QList<vemo_data::BackupTaskInfo> tasks() const;

    QDate m_date;
    QVBoxLayout* m_layout;
    BackupExport* m_export;
    QTimer m_nowTimer;
};

} // namespace vemo_filesCenter
