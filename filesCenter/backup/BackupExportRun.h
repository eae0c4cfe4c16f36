#pragma once

#include <BackupTaskInfo.h>

#include <QList>
#include <QObject>

namespace vemo_filesCenter {

class ExportBackupFiles;

/// Exports the finished files of stored tasks without a page, one task after the other. Served by
/// vemo_contact::BackupAccess. GUI thread, owned by the module's entry.
class BackupExportRun final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(BackupExportRun)

public:
    explicit BackupExportRun(QObject* parent);
    ~BackupExportRun() override;

private:
    void run(const QStringList& taskIds, const QString& folder);
    void exportNext();

    ExportBackupFiles* m_export = nullptr; ///< while one is under way
    QList<vemo_data::BackupTaskInfo> m_tasks;
    QString m_folder;
    int m_total = 0;
    int m_succeeded = 0;
    int m_failed = 0;
};

} // namespace vemo_filesCenter
