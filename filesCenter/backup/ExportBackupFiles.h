#pragma once

#include <BackupTaskInfo.h>

#include <QObject>
#include <QStringList>

namespace VCOMMON {
class VCopyLocalFiles;
}

namespace vemo_filesCenter {

/// Copies the finished backup files of one task into a folder of the person's choice, as
/// "<folder>/<day>/<channel@device_number>/<file>". Lives on the GUI thread, owned by its parent; asks the disk on
/// other threads.
///
/// Each copy is read back from the disk, then listed in the manifest beside it, so that `sha256sum -c` checks the
/// folder later on; a file that is not any more what it was when it was backed up counts as failed. Originals are only
/// read, nothing is overwritten, and what fails leaves nothing. Every accepted export ends in exactly one
/// signalExportFinished. Room on the target's disk is the caller's to check. Destroying the object ends the copy in
/// hand; whole ones stay.
class ExportBackupFiles final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ExportBackupFiles)

public:
    explicit ExportBackupFiles(QObject* parent = nullptr);
    ~ExportBackupFiles() override;

    /// False when an export is running already. `destination` must be there.
    bool exportTask(const vemo_data::BackupTaskInfo& task, const QString& destination);
    /// Ends a running export soon, with the files that are whole; the others count neither as success nor as failure.
    void cancel();

signals:
    /// `progress` is the percentage of all files' bytes.
    void signalExportProgress(qint64 curSize, int finishedCnt, int progress);
    void signalExportFinished(int totalCnt, int successCnt, int failureCnt);
    /// The original's path.
    void signalExportFileFailed(const QString& filePath);

private:
    struct Copied
    {
        QString source;
        QString target;
        QByteArray sha256;
    };
    struct Listing;

    void begin(const QStringList& sources, qint64 totalBytes);
    void takeBytes(qint64 doneOfFile, qint64 sizeOfFile, int finishedCnt);
    void takeEnd(int failed);
    void finish(const QStringList& damaged);
    void tellFailure(const QString& source, const QString& reason);

    VCOMMON::VCopyLocalFiles* const m_copier;
    bool m_isWorking = false;
    bool m_isCancelled = false;
    vemo_data::BackupTaskInfo m_task;
    QString m_destination;
    QString m_folder; ///< of the copies
    qint64 m_totalBytes = 0;
    qint64 m_doneBytes = 0; ///< of whole copies
    QList<Copied> m_copied;
    int m_failed = 0;
};

} // namespace vemo_filesCenter
