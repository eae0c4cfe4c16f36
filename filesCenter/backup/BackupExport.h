#pragma once

#include <BackupTaskInfo.h>

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace vemo_filesCenter {

class ExportBackupFiles;

/// The export of one or several tasks' finished files as a person asks for it: chooses the folder, checks it against
/// the files' size, copies task by task and tells the outcome. The disk is asked on another thread. Child of the widget
/// that asks; GUI thread.
class BackupExport final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(BackupExport)

public:
    explicit BackupExport(QWidget* asker);

    /// Nothing happens while one is working.
    void start(const QList<vemo_data::BackupTaskInfo>& tasks);
    bool isWorking() const { return m_isWorking; }
    /// Ends it soon; copies that are whole stay.
    void cancel();

signals:
    /// The copying begins.
    void signalStarted();
    /// `curSize` bytes and `finishedCnt` files of this task; `progress` percent of all tasks.
    void signalProgress(const QString& taskId, int finishedCnt, qint64 curSize, int progress);
    /// Nothing is working any more, whether or not anything was copied.
    void signalFinished(int totalCnt, int successCnt, int failureCnt);

private:
    struct Target
    {
        bool isAvailable = false;
        QString diskName;
        qint64 freeMb = -1;
        QList<qint64> taskBytes; ///< of each task's files that are there
    };

    QString askFolder() const;
    void check();
    void takeTarget(const Target& target);
    void exportNext();
    void takeTaskEnd(int totalCnt, int successCnt, int failureCnt);
    void finish();

    QWidget* m_asker;
    ExportBackupFiles* m_copier;
    bool m_isWorking = false;
    bool m_isCancelled = false;
    QList<vemo_data::BackupTaskInfo> m_tasks;
    QString m_folder;
    QList<qint64> m_taskBytes;
    qint64 m_allBytes = 0;
    qint64 m_doneBytes = 0; ///< of the tasks that are through
    int m_current = -1;
    int m_total = 0;
    int m_succeeded = 0;
    int m_failed = 0;
    QStringList m_failedFiles;
};

} // namespace vemo_filesCenter
