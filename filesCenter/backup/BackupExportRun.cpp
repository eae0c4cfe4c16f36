#include "BackupExportRun.h"

#include "ExportBackupFiles.h"

#include <BackupAccess.h>
#include <BackupTaskData.h>

#include <algorithm>

namespace vemo_filesCenter {

using vemo_contact::BackupAccess;

BackupExportRun::BackupExportRun(QObject* parent)
    : QObject(parent)
{
    connect(&BackupAccess::instance(), &BackupAccess::signalExport, this, &BackupExportRun::run);
}

BackupExportRun::~BackupExportRun() = default;

void BackupExportRun::run(const QStringList& taskIds, const QString& folder)
{
    if (m_export)
        return;
    m_export = new ExportBackupFiles(this);
    connect(m_export, &ExportBackupFiles::signalExportFileFailed, &BackupAccess::instance(),
            &BackupAccess::signalExportFileFailed);
    connect(m_export, &ExportBackupFiles::signalExportFinished, this, [this](int total, int succeeded, int failed) {
        m_total += total;
        m_succeeded += succeeded;
        m_failed += failed;
        QMetaObject::invokeMethod(this, &BackupExportRun::exportNext, Qt::QueuedConnection);
    });
    m_folder = folder;
    m_total = m_succeeded = m_failed = 0;
    m_tasks = vemo_data::BackupTaskData::instance().getAllBackupTasks();
    m_tasks.erase(
        std::remove_if(m_tasks.begin(), m_tasks.end(),
                       [&taskIds](const vemo_data::BackupTaskInfo& task) { return !taskIds.contains(task.taskId); }),
        m_tasks.end());
    exportNext();
}

void BackupExportRun::exportNext()
{
    if (!m_tasks.isEmpty()) {
        m_export->exportTask(m_tasks.takeFirst(), m_folder);
        return;
    }
    m_export->deleteLater();
    m_export = nullptr;
    emit BackupAccess::instance().signalExportOver(m_total, m_succeeded, m_failed);
}

} // namespace vemo_filesCenter
