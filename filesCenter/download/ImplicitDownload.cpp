#include "ImplicitDownload.h"

#include "DownloadEvents.h"
#include "DownloadSignals.h"
#include "DownloadWorker.h"

#include <ModuleAccess.h>
#include <SystemMsg.h>

namespace vemo_filesCenter {

ImplicitDownload::ImplicitDownload()
{
    connect(&DownloadSignals::instance(), &DownloadSignals::signalDownloadEvent, this,
            &ImplicitDownload::slotDownloadEvent);
    connect(&vemo_contact::SystemMsg::instance(), &vemo_contact::SystemMsg::signalPrepareQuitSystem, this,
            &ImplicitDownload::slotPrepareQuitSystem);
}

ImplicitDownload& ImplicitDownload::instance()
{
    static ImplicitDownload download;
    return download;
}

void ImplicitDownload::download(const QString& channelId, int location, const QString& taskId, const QString& savePath,
                                const QDateTime& begin, const QDateTime& end)
{
    if (m_implicitTaskIds.contains(taskId))
        return;
    m_implicitTaskIds.insert(taskId);

    DownloadTaskInfo task;
    task.taskId = taskId;
    task.channelId = channelId;
    task.beginTime = begin;
    task.endTime = end;
    task.downloadMode = vemo_data::DownloadByTimeRange;
    task.location = location;
    task.savePath = savePath;
    task.durationMs = vemo_data::spanMs(begin, end);
    DownloadWorker::instance().startDownloadTask(task);
}

void ImplicitDownload::slotDownloadEvent(const QString& taskId, int eventId, int progress)
{
    Q_UNUSED(progress)
    if (!m_implicitTaskIds.contains(taskId))
        return;
    switch (eventId) {
    case EventLoginFailed:
    case EventConnectFailed:
    case EventLimitReached:
    case EventAbnormal:
    case EventUnnamedFailure:
    case EventGetUrlFailed:
        answer(taskId, false);
        break;
    case EventFinished:
        answer(taskId, true);
        break;
    default:
        break;
    }
}

void ImplicitDownload::answer(const QString& taskId, bool ok)
{
    m_implicitTaskIds.remove(taskId);
    emit vemo_contact::ModuleAccess::instance().signalDownloadRecordingByTimeRangeImplicitlyResult(taskId, ok);
}

void ImplicitDownload::slotPrepareQuitSystem()
{
    const QSet<QString> taskIds = m_implicitTaskIds;
    for (const QString& taskId : taskIds) {
        DownloadWorker::instance().lastFrameTime(taskId);
        answer(taskId, false);
    }
}

} // namespace vemo_filesCenter
