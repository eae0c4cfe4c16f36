#include "BackupExport.h"

#include "ExportBackupFiles.h"

#include <BaseTools.h>
#include <DictDef.h>
#include <DiskManager.h>
#include <SystemAssistant.h>
#include <SystemWorker.h>
#include <UiSettings.h>
#include <VFileDialog.h>
#include <VMessageBox.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <QStandardPaths>
#include <QThreadPool>

#include <algorithm>

namespace vemo_filesCenter {

using vemo_data::BackupTaskInfo;

namespace {

constexpr qint64 megabyte = 1048576;
constexpr int whole = 100;
constexpr int mostFailuresTold = 10;
constexpr int pieceOfNews = 1;

QString folderKey()
{
    return QStringLiteral("backup_export_folder");
}

bool hasFile(const BackupTaskInfo& task)
{
    return std::any_of(task.fileInfos.cbegin(), task.fileInfos.cend(), [](const BackupTaskInfo::FileInfo& entry) {
        return entry.finished && !entry.filePath.isEmpty();
    });
}

qint64 bytesOf(const BackupTaskInfo& task)
{
    qint64 bytes = 0;
    for (const BackupTaskInfo::FileInfo& entry : task.fileInfos) {
        if (entry.finished && !entry.filePath.isEmpty())
            bytes += QFileInfo(entry.filePath).size();
    }
    return bytes;
}

void alert(const QString& text)
{
    vemo_worker::SystemAssistant::instance().messageAlert(vemo_worker::DictDef::titleAlert(), text);
}

} // namespace

BackupExport::BackupExport(QWidget* asker)
    : QObject(asker)
    , m_asker(asker)
    , m_copier(new ExportBackupFiles(this))
{
    connect(m_copier, &ExportBackupFiles::signalExportProgress, this, [this](qint64 curSize, int finishedCnt, int) {
        const int percent =
            m_allBytes > 0 ? int(qMin<qint64>(whole, (m_doneBytes + curSize) * whole / m_allBytes)) : whole;
        emit signalProgress(m_tasks.at(m_current).taskId, finishedCnt, curSize, percent);
    });
    connect(m_copier, &ExportBackupFiles::signalExportFileFailed, this,
            [this](const QString& path) { m_failedFiles.append(path); });
    connect(m_copier, &ExportBackupFiles::signalExportFinished, this, &BackupExport::takeTaskEnd);
}

QString BackupExport::askFolder() const
{
    vemo_worker::UiSettings& settings = vemo_worker::UiSettings::instance();
    QString start = settings.value(folderKey()).toString();
    if (start.isEmpty())
        start = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    const QString folder = VCOMMON::VFileDialog::getExistingDirectory(
        vemo_base::BaseTools::instance().getRootParentWt(m_asker), tr("Select Export Path"), start);
    if (!folder.isEmpty())
        settings.setValue(folderKey(), folder);
    return folder;
}

void BackupExport::start(const QList<BackupTaskInfo>& tasks)
{
    if (m_isWorking)
        return;
    m_tasks.clear();
    std::copy_if(tasks.cbegin(), tasks.cend(), std::back_inserter(m_tasks), hasFile);
    if (m_tasks.isEmpty()) {
        alert(tr("No backup files available for export"));
        return;
    }
    m_folder = askFolder();
    if (m_folder.isEmpty())
        return;
    m_isWorking = true;
    m_isCancelled = false;
    m_total = m_succeeded = m_failed = 0;
    m_failedFiles.clear();
    m_doneBytes = 0;
    m_current = -1;
    check();
}

void BackupExport::cancel()
{
    m_isCancelled = m_isWorking;
    m_copier->cancel();
}

void BackupExport::check()
{
    const QPointer<BackupExport> self(this);
    vemo_worker::DiskManager& disks = vemo_worker::DiskManager::instance();
    vemo_worker::SystemWorker& system = vemo_worker::SystemWorker::instance();
    QThreadPool::globalInstance()->start([self, &disks, &system, folder = m_folder, tasks = m_tasks] {
        Target target;
        target.isAvailable = disks.isPathAvailable(folder, true);
        target.diskName = disks.getDiskName(folder);
        target.freeMb = system.getDiskFreeSpace(folder);
        for (const BackupTaskInfo& task : tasks)
            target.taskBytes.append(bytesOf(task));
        QMetaObject::invokeMethod(
            qApp,
            [self, target] {
                if (self)
                    self->takeTarget(target);
            },
            Qt::QueuedConnection);
    });
}

void BackupExport::takeTarget(const Target& target)
{
    m_taskBytes = target.taskBytes;
    m_allBytes = 0;
    for (const qint64 bytes : target.taskBytes)
        m_allBytes += bytes;
    const qint64 neededMb = m_allBytes / megabyte + 1;
    if (target.isAvailable && target.freeMb >= neededMb) {
        emit signalStarted();
        exportNext();
        return;
    }
    m_isWorking = false;
    emit signalFinished(0, 0, 0);
    if (!target.isAvailable)
        alert(tr("Files can't be written to %1, please select another folder").arg(m_folder));
    else if (target.freeMb < 0)
        alert(tr("Disk not detected, please try again later, disk name:%1").arg(target.diskName));
    else
        vemo_base::VMessageBox::question(
            vemo_base::BaseTools::instance().getRootParentWt(m_asker),
            tr("The disk space is insufficient, total file size:%1M, disk free space:%2M, disk name:%3")
                .arg(neededMb)
                .arg(target.freeMb)
                .arg(target.diskName),
            pieceOfNews, true);
}

void BackupExport::exportNext()
{
    ++m_current;
    if (m_current < m_tasks.size() && !m_isCancelled)
        m_copier->exportTask(m_tasks.at(m_current), m_folder);
    else
        finish();
}

void BackupExport::takeTaskEnd(int totalCnt, int successCnt, int failureCnt)
{
    m_total += totalCnt;
    m_succeeded += successCnt;
    m_failed += failureCnt;
    m_doneBytes += m_taskBytes.value(m_current);
    // The copier is telling this; the next task begins when it has returned.
    QMetaObject::invokeMethod(this, &BackupExport::exportNext, Qt::QueuedConnection);
}

void BackupExport::finish()
{
    m_isWorking = false;
    emit signalFinished(m_total, m_succeeded, m_failed);
    QStringList failures;
    for (const QString& path : m_failedFiles.mid(0, mostFailuresTold))
        failures.append(tr("Failed to export file:%1").arg(path));
    if (m_failedFiles.size() > mostFailuresTold)
        failures.append(tr("and %1 more").arg(m_failedFiles.size() - mostFailuresTold));
    if (!failures.isEmpty())
        alert(failures.join(QLatin1Char('\n')));
    if (m_isCancelled)
        alert(tr("Export backup files cancelled, files that were exported before:%1").arg(m_succeeded));
    else
        alert(tr("Export backup files finished, files total count:%1, success count:%2, failure count:%3")
                  .arg(m_total)
                  .arg(m_succeeded)
                  .arg(m_failed));
}

} // namespace vemo_filesCenter
