#include "DownloadAccess.h"

#include "DownloadFileName.h"
#include "ImplicitDownload.h"

#include <BaseTools.h>
#include <DictDef.h>
#include <DownloadTaskData.h>
#include <FormsMgr.h>
#include <ModuleAccess.h>
#include <SystemAssistant.h>
#include <SystemWorker.h>

#include <QUuid>

#include <utility>

namespace vemo_filesCenter {

namespace {

constexpr int batchMs = 200;

} // namespace

DownloadAccess::DownloadAccess()
    : m_batchTimer(this)
{
    m_batchTimer.setSingleShot(true);

    using vemo_contact::ModuleAccess;
    const ModuleAccess& access = ModuleAccess::instance();
    connect(&access, &ModuleAccess::signalDownloadRecordingByFile, this, &DownloadAccess::slotDownloadRecordingByFile);
    connect(&access, &ModuleAccess::signalDownloadRecordingByTimeRange, this,
            &DownloadAccess::slotDownloadRecordingByTimeRange);
    connect(&access, &ModuleAccess::signalDownloadRecordingByTimeRangeImplicitly, this,
            &DownloadAccess::slotDownloadRecordingByTimeRangeImplicitly);
    connect(&m_batchTimer, &QTimer::timeout, this, &DownloadAccess::slotTimeout);
}

DownloadAccess& DownloadAccess::instance()
{
    static DownloadAccess access;
    return access;
}

/// Whether the current user may download; when so, the form that shows downloads is there afterwards.
bool DownloadAccess::admit()
{
    if (!vemo_worker::SystemWorker::instance().isCurUserHasPower(vemo_worker::PowerDownload)) {
        vemo_worker::SystemAssistant::instance().messageAlert(
            vemo_worker::DictDef::titleAlert(),
            tr("No download recording permission, please contact the administrator"));
        return false;
    }
    if (!vemo_base::FormsMgr::isFormsCntToLimit(vemo_base::FilesCenterFormType))
        emit vemo_contact::ModuleAccess::instance().signalCreateModuleForm(vemo_base::FilesCenterFormType);
    return true;
}

void DownloadAccess::slotDownloadRecordingByFile(QWidget* parent, const QString& channelId, int location,
                                                 const QString& fileName, const QDateTime& begin, const QDateTime& end)
{
    Q_UNUSED(parent)
    if (!admit())
        return;

    const vemo_base::BaseTools& tools = vemo_base::BaseTools::instance();
    const QPair<QString, int> channel = tools.formatChannelId(channelId);
    DownloadTaskInfo task;
    task.taskId = QUuid::createUuid().toString();
    task.channelId = channelId;
    task.channelName = tools.getChannelName(channelId);
    task.devLabel = tools.getDevInfo(channel.first).name;
    task.channelNo = channel.second;
    task.beginTime = begin;
    task.endTime = end;
    task.durationMs = vemo_data::spanMs(begin, end);
    task.downloadMode = fileName.isEmpty() ? vemo_data::DownloadByTimeRange : vemo_data::DownloadByFile;
    task.state = vemo_data::TaskWaiting;
    task.location = location;
    task.fileName = fileName;
    task.savePath = downloadFileName(task);

    m_pendingTasks.append(task);
    m_batchTimer.start(batchMs);
}

void DownloadAccess::slotDownloadRecordingByTimeRange(QWidget* parent, const QString& channelId, int location,
                                                      const QDateTime& begin, const QDateTime& end)
{
    slotDownloadRecordingByFile(parent, channelId, location, QString(), begin, end);
}

void DownloadAccess::slotTimeout()
{
    if (m_pendingTasks.isEmpty())
        return;
    const QList<DownloadTaskInfo> tasks = std::exchange(m_pendingTasks, {});
    vemo_data::DownloadTaskData::instance().addDownloadTasks(tasks);
}

void DownloadAccess::slotDownloadRecordingByTimeRangeImplicitly(const QString& channelId, int location,
                                                                const QString& taskId, const QString& savePath,
                                                                const QDateTime& begin, const QDateTime& end)
{
    if (admit())
        ImplicitDownload::instance().download(channelId, location, taskId, savePath, begin, end);
}

} // namespace vemo_filesCenter
