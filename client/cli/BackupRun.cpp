#include "BackupRun.h"

#include "BackupListing.h"
#include "Terminal.h"

#include <BackupAccess.h>
#include <BackupTaskData.h>
#include <Database.h>
#include <DataSignals.h>
#include <DeviceLogins.h>
#include <DevsMgrData.h>
#include <DiskManager.h>
#include <FilesCenterInit.h>
#include <SystemConfig.h>
#include <SystemMsg.h>
#include <SystemWorker.h>

#include <QFileInfo>
#include <QJsonDocument>

#include <algorithm>

namespace vemo_client {

namespace {

using vemo_contact::BackupAccess;
using vemo_data::BackupTaskData;
using vemo_data::BackupTaskInfo;

constexpr qint64 megabyte = 1024 * 1024;

QString outcomeName(int outcome)
{
    switch (outcome) {
    case BackupAccess::Covered:
        return QStringLiteral("finished");
    case BackupAccess::Ahead:
        return QStringLiteral("ahead");
    case BackupAccess::Empty:
        return QStringLiteral("empty");
    case BackupAccess::Stopped:
        return QStringLiteral("stopped");
    default:
        return QStringLiteral("failed");
    }
}

BackupTaskInfo storedTask(const QString& taskId)
{
    const QList<BackupTaskInfo> tasks = BackupTaskData::instance().getAllBackupTasks();
    const auto found = std::find_if(tasks.begin(), tasks.end(),
                                    [&taskId](const BackupTaskInfo& task) { return task.taskId == taskId; });
    return found == tasks.end() ? BackupTaskInfo() : *found;
}

} // namespace

BackupRun::BackupRun(const CliCommand& command, QObject* parent)
    : QObject(parent)
    , m_command(command)
{
    const BackupAccess& access = BackupAccess::instance();
    connect(&access, &BackupAccess::signalTaskOver, this, &BackupRun::taskOver);
    connect(&access, &BackupAccess::signalRunOver, this, &BackupRun::runOver);
    connect(&access, &BackupAccess::signalExportOver, this, &BackupRun::exportOver);
    connect(&access, &BackupAccess::signalExportFileFailed, this,
            [](const QString& path) { Terminal::error(tr("Failed to export file:%1").arg(path)); });
    connect(&vemo_data::DataSignals::instance(), &vemo_data::DataSignals::signalStoreNotice, this,
            [](const QString& text) { Terminal::error(text); });
    connect(&m_stop, &BackupStop::signalStop, this, [this] {
        if (m_begun) {
            emit BackupAccess::instance().signalStopRun();
        } else {
            m_stopped = m_taskIds.size();
            runOver();
        }
    });
}

void BackupRun::run()
{
    if (!BackupTaskData::instance().flush()) {
        leave(ExitCode::Disk); // the store has told why
        return;
    }
    vemo_filesCenter::FilesCenterInit::instance().moduleInit();
    m_taskIds = wantedTasks();
    if (m_command.backup.action == BackupOptions::Action::Export) {
        beginExport();
        return;
    }
    vemo_worker::SystemConfig& config = vemo_worker::SystemConfig::instance();
    config.getVideoFilePath(true);
    const QString root = config.getRecordingBackupPath();
    if (!vemo_worker::DiskManager::instance().isPathAvailable(root, true)) {
        leave(ExitCode::Disk, tr("The folder for backups, %1, is not there or can't be written.").arg(root));
        return;
    }
    m_stop.listen();
    logIn();
}

/// In the order of their days.
QStringList BackupRun::wantedTasks() const
{
    const BackupTaskData& store = BackupTaskData::instance();
    const QDate date = m_command.backup.date;
    const QList<BackupTaskInfo> tasks =
        date.isValid() ? store.getBackupTasks(date) : store.getAllOpenBackupTasks(QDate::currentDate());
    QStringList taskIds;
    for (const BackupTaskInfo& task : tasks) {
        if (m_command.channels.isEmpty() || m_command.channels.contains(task.channelNo))
            taskIds.append(task.taskId);
    }
    return taskIds;
}

void BackupRun::logIn()
{
    vemo_data::DevsMgrData::instance().load();
    vemo_worker::DeviceLogins& logins = vemo_worker::DeviceLogins::instance();
    connect(&logins, &vemo_worker::DeviceLogins::signalStarted, this, &BackupRun::begin);
    logins.start();
}

void BackupRun::begin()
{
    if (m_begun || m_exit.isOver())
        return;
    m_begun = true;
    emit BackupAccess::instance().signalRun(m_taskIds, m_command.backup.tries);
}

void BackupRun::beginExport()
{
    vemo_worker::DiskManager& disks = vemo_worker::DiskManager::instance();
    const QString to = m_command.backup.to;
    if (!disks.isPathAvailable(to, true)) {
        leave(ExitCode::Disk, tr("The folder %1 is not there or can't be written.").arg(to));
        return;
    }
    qint64 bytes = 0;
    for (const QString& taskId : qAsConst(m_taskIds)) {
        const BackupTaskInfo task = storedTask(taskId);
        for (const BackupTaskInfo::FileInfo& entry : task.fileInfos)
            bytes += entry.finished && !entry.filePath.isEmpty() ? QFileInfo(entry.filePath).size() : 0;
    }
    const qint64 neededMb = bytes / megabyte + 1;
    const qint64 freeMb = vemo_worker::SystemWorker::instance().getDiskFreeSpace(to);
    if (bytes > 0 && neededMb > freeMb) {
        leave(ExitCode::Disk, tr("The disk space is insufficient, total file size:%1M, disk free space:%2M, disk "
                                 "name:%3")
                                  .arg(neededMb)
                                  .arg(freeMb)
                                  .arg(disks.getDiskName(to)));
        return;
    }
    emit BackupAccess::instance().signalExport(m_taskIds, to);
}

void BackupRun::taskOver(const QString& taskId, int outcome, const QString& message)
{
    m_failed += outcome == BackupAccess::Failed ? 1 : 0;
    m_stopped += outcome == BackupAccess::Stopped ? 1 : 0;
    const BackupTaskInfo task = storedTask(taskId);
    if (m_command.json) {
        QJsonObject object = BackupListing::object(task);
        object.insert(QStringLiteral("outcome"), outcomeName(outcome));
        object.insert(QStringLiteral("message"), message);
        Terminal::out(QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact)));
    } else {
        const QString told = outcome == BackupAccess::Covered ? QString() : QLatin1String("  ") % message;
        Terminal::out(BackupListing::row(task) % told);
    }
}

void BackupRun::runOver()
{
    if (m_failed > 0)
        leave(ExitCode::Incomplete, tr("%1 tasks failed; see vemo_client backup list.").arg(m_failed));
    else if (m_stopped > 0)
        leave(ExitCode::Incomplete, tr("Stopped; what had arrived is kept, and the rest is fetched by the next run."));
    else
        leave(ExitCode::Done);
}

void BackupRun::exportOver(int totalCnt, int successCnt, int failureCnt)
{
    const QString summary = tr("Export backup files finished, files total count:%1, success count:%2, failure count:%3")
                                .arg(totalCnt)
                                .arg(successCnt)
                                .arg(failureCnt);
    leave(failureCnt > 0 ? ExitCode::Incomplete : ExitCode::Done, summary);
}

void BackupRun::interrupt()
{
    leave(ExitCode::Interrupted, tr("Interrupted; what had arrived is kept, and the rest is fetched by the next run."));
}

void BackupRun::leave(ExitCode code, const QString& sentence)
{
    if (!m_exit.leave(code, sentence))
        return;
    emit vemo_contact::SystemMsg::instance().signalPrepareQuitSystem();
    BackupTaskData::instance().flush();
}

} // namespace vemo_client
