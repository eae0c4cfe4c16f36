#include "DownloadWorker.h"

#include "DownloadEvents.h"
#include "DownloadFileName.h"
#include "DownloadSignals.h"
#include "LocalRecordingsQuery.h"

#include <BaseTools.h>
#include <ClientSignals.h>
#include <ModuleAccess.h>
#include <SysPaths.h>
#include <SystemMsg.h>
#include <vaws_download.h>
#include <VCopyLocalFile.h>
#include <vms_sdk.h>

#include <QDir>
#include <QLoggingCategory>

#include <array>
#include <limits>

namespace vemo_filesCenter {

Q_LOGGING_CATEGORY(lcDownload, "vemo.download")

namespace {

const char* const frameSource = "vavFrame";
constexpr std::size_t timeTextBytes = 24;

QString fullSpeed()
{
    return QStringLiteral("100X");
}

QString now()
{
    return QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz"));
}

void tellEvent(const QString& taskId, int eventId, int progress)
{
    emit DownloadSignals::instance().signalDownloadEvent(taskId, eventId, progress);
}

} // namespace

DownloadWorker::DownloadWorker()
{
    DownloadSignals::instance(); // on this thread, whoever emits first
    qRegisterMetaType<vms_sdk::StreamEvent>("vms_sdk::StreamEvent");

    vaws_download_init_sdk(QDir(vemo_worker::SysPaths::tempDir()).absolutePath().toUtf8().constData());
    vaws_download_set_whole_seconds(1);
    vaws_download_register_event_callback(&DownloadWorker::onLibraryEvent);
    vaws_download_register_file_toggle_callback(&DownloadWorker::onFileToggle);
    vaws_download_register_bitrate_callback(&DownloadWorker::onBitRate);
    vaws_download_register_consumed_callback(&DownloadWorker::onConsumed);

    using vms_sdk::ClientSignals;
    const ClientSignals& client = ClientSignals::instance();
    connect(&client, &ClientSignals::signalStreamData, this, &DownloadWorker::slotStreamData);
    connect(&client, &ClientSignals::signalStreamEventPush, this, &DownloadWorker::slotStreamEventPush);
    connect(&client, &ClientSignals::signalPlaybackByFileProgressPush, this,
            &DownloadWorker::slotPlaybackByFileProgressPush);
    connect(&client, &ClientSignals::signalPlaybackByTimeProgressPush, this,
            &DownloadWorker::slotPlaybackByTimeProgressPush);
}

DownloadWorker::~DownloadWorker()
{
    // The callbacks refer to this object, so the SDK's threads end before it does; a host that did so already loses
    // nothing.
    vaws_download_shutdown();
}

DownloadWorker& DownloadWorker::instance()
{
    static DownloadWorker worker;
    return worker;
}

void DownloadWorker::startDownloadTask(const DownloadTaskInfo& task)
{
    const QPair<QString, int> channel = vemo_base::BaseTools::instance().formatChannelId(task.channelId);
    const bool isLocal = task.location == vemo_data::LocationThisComputer;
    if (isCopyTask(task.taskId) || m_runs.run(task.taskId).number != 0)
        qCWarning(lcDownload).noquote() << now() << "download task runs already, task id:" << task.taskId;
    else if (task.downloadMode == vemo_data::DownloadByFile && isLocal)
        startCopy(task);
    else if (task.downloadMode == vemo_data::DownloadByFile)
        startByFile(task, channel.first, channel.second);
    else if (isLocal)
        startLocalTimeRange(task, channel.first, channel.second);
    else
        startByTimeRange(task, channel.first, channel.second);
    emit vemo_contact::ModuleAccess::instance().signalDownloadRecordingTrigger(
        channel.first, channel.second, task.beginTime, task.endTime, task.location);
}

void DownloadWorker::startCopy(const DownloadTaskInfo& task)
{
    using VCOMMON::VCopyLocalFile;
    auto* job = new VCopyLocalFile(task.taskId, this);
    m_copyJobs.insert(task.taskId, job);
    connect(job, &VCopyLocalFile::signalCopyFileProgress, this, &DownloadWorker::slotCopyFileProgress);
    connect(job, &VCopyLocalFile::signalCopyFileFinished, this, &DownloadWorker::slotCopyFileFinished);
    connect(job, &VCopyLocalFile::signalCopyFileCancelled, job, &QObject::deleteLater);
    job->copyFile(task.fileName, task.savePath);
}

void DownloadWorker::startByFile(const DownloadTaskInfo& task, const QString& devId, int channelNo)
{
    m_runs.begin(task.taskId);
    const int result = vaws_download_file(frameSource, task.downloadedMs, task.savePath.toUtf8().constData(),
                                          task.taskId.toUtf8().constData());
    if (!acceptLibraryResult(task.taskId, result))
        return;
    vms_sdk::PlaybackByFileCondition condition;
    condition.devId = devId;
    condition.channelNo = channelNo;
    condition.fileName = task.fileName;
    condition.location = task.location;
    condition.downloadedMs = task.downloadedMs;
    condition.downloadFlag = 1;
    followStream(task.taskId, vms_sdk::playback_by_file_req(condition));
}

void DownloadWorker::startByTimeRange(const DownloadTaskInfo& task, const QString& devId, int channelNo)
{
    m_runs.begin(task.taskId);
    const int result = vaws_download_time_range(frameSource, unmistakableTime(task.beginTime).toUtf8().constData(),
                                                unmistakableTime(task.endTime).toUtf8().constData(),
                                                task.savePath.toUtf8().constData(), task.taskId.toUtf8().constData());
    if (!acceptLibraryResult(task.taskId, result))
        return;
    vms_sdk::PlaybackByTimeCondition condition;
    condition.devId = devId;
    condition.channelNo = channelNo;
    condition.beginTime = task.beginTime;
    condition.endTime = task.endTime; // an end of the stream at or past it is the end of what was asked for
    condition.location = task.location;
    condition.downloadFlag = 1;
    followStream(task.taskId, vms_sdk::playback_by_time_req(condition));
}

void DownloadWorker::startLocalTimeRange(const DownloadTaskInfo& task, const QString& devId, int channelNo)
{
    const quint64 run = m_runs.begin(task.taskId);
    QList<VCOMMON::LocalRecordingIndexInfo> records;
    const bool answered = findLocalRecordings(devId, channelNo, task.beginTime, task.endTime, &records, this);
    if (!isCurrentRun(task.taskId, run))
        return; // cancelled while the index was read
    if (!answered) {
        m_runs.end(task.taskId);
        return; // the application ends
    }
    const int result = vaws_download_time_range(cuttingList(task.beginTime, task.endTime, records).constData(),
                                                compactTime(task.beginTime).toUtf8().constData(),
                                                compactTime(task.endTime).toUtf8().constData(),
                                                task.savePath.toUtf8().constData(), task.taskId.toUtf8().constData());
    acceptLibraryResult(task.taskId, result);
}

bool DownloadWorker::acceptLibraryResult(const QString& taskId, int result)
{
    if (result >= 0)
        return true;
    m_runs.end(taskId);
    qCWarning(lcDownload).noquote() << now() << "download not started, task id:" << taskId << "result:" << result
                                    << vaws_download_text(result);
    tellEvent(taskId, result == VAWS_REFUSED ? EventDiskLow : EventAbnormal, 0);
    return false;
}

void DownloadWorker::followStream(const QString& taskId, quint64 streamId)
{
    m_streamByTaskId.insert(taskId, streamId);
    m_taskIdByStream.insert(streamId, taskId);
    m_runs.setStream(taskId, streamId);
}

void DownloadWorker::endStream(const QString& taskId)
{
    const auto found = m_streamByTaskId.constFind(taskId);
    if (found == m_streamByTaskId.constEnd())
        return;
    const quint64 streamId = *found;
    vms_sdk::disconnect_stream_req(streamId);
    m_streamByTaskId.remove(taskId);
    m_taskIdByStream.remove(streamId);
    m_runs.setStream(taskId, 0);
}

void DownloadWorker::slotStreamData(quint64 streamId, const QByteArray& data)
{
    const auto found = m_taskIdByStream.constFind(streamId);
    if (found == m_taskIdByStream.constEnd())
        return;
    vaws_download_push_vavframe(found->toUtf8().constData(), data.constData(), static_cast<size_t>(data.size()));
}

void DownloadWorker::slotStreamEventPush(quint64 streamId, vms_sdk::StreamEvent event)
{
    const auto found = m_taskIdByStream.constFind(streamId);
    if (found == m_taskIdByStream.constEnd())
        return;
    const QString taskId = *found;
    qCDebug(lcDownload).noquote().nospace()
        << now() << " slot stream event push, stream id:" << streamId << " stream event:" << static_cast<int>(event);

    const int playerEvent = playerEventOf(event);
    const bool isOver = endsStream(event);
    if (isOver)
        vms_sdk::disconnect_stream_req(streamId);
    if (event == vms_sdk::StreamPlaying)
        vms_sdk::download_speed_set_req(streamId, fullSpeed());

    qCDebug(lcDownload).noquote().nospace()
        << now() << " vaws_download_push_player_event:" << taskId << " player event:" << playerEvent;
    vaws_download_push_player_event(taskId.toUtf8().constData(), playerEvent);

    if (isOver) {
        m_streamByTaskId.remove(taskId);
        m_taskIdByStream.remove(streamId);
        m_runs.setStream(taskId, 0);
    }
}

// Progress comes from the media download SDK, which knows what is in the file.
void DownloadWorker::slotPlaybackByFileProgressPush(quint64, uint, uint) {}

void DownloadWorker::slotPlaybackByTimeProgressPush(quint64, const QDateTime&) {}

void DownloadWorker::slotCopyFileProgress(const QString& taskId, qint64 done, qint64 total)
{
    if (total > 0)
        tellEvent(taskId, EventProgress, static_cast<int>(done * 100 / total));
}

void DownloadWorker::slotCopyFileFinished(const QString& source, const QString& taskId, bool ok)
{
    if (VCOMMON::VCopyLocalFile* job = m_copyJobs.take(taskId)) {
        if (!ok)
            qCWarning(lcDownload).noquote() << now() << "copy of" << source << "failed:" << job->errorText();
        job->deleteLater();
    }
    tellEvent(taskId, ok ? EventFinished : EventAbnormal, ok ? 100 : -1);
}

void DownloadWorker::controlTask(const QString& taskId, int op)
{
    VCOMMON::VCopyLocalFile* job = m_copyJobs.value(taskId);
    const quint64 streamId = m_streamByTaskId.value(taskId);
    const QByteArray id = taskId.toUtf8();
    switch (op) {
    case ControlResume:
        if (job) {
            job->continueCopyFile();
            break;
        }
        if (streamId != 0) {
            vms_sdk::playback_ctrl_req(streamId, vms_sdk::PlaybackResume);
            vms_sdk::download_speed_set_req(streamId, fullSpeed());
        }
        vaws_download_resume(id.constData());
        break;
    case ControlPause:
        if (job) {
            job->pauseCopyFile();
            break;
        }
        if (streamId != 0)
            vms_sdk::playback_ctrl_req(streamId, vms_sdk::PlaybackPause);
        vaws_download_pause(id.constData());
        break;
    case ControlCancel:
        cancel(taskId);
        break;
    default:
        break;
    }
}

void DownloadWorker::cancel(const QString& taskId)
{
    if (VCOMMON::VCopyLocalFile* job = m_copyJobs.take(taskId)) {
        // It goes by itself when its thread has let go of the files; finished meanwhile or not, no one is told.
        disconnect(job, nullptr, this, nullptr);
        connect(job, &VCOMMON::VCopyLocalFile::signalCopyFileFinished, job, &QObject::deleteLater);
        job->cancelCopyFile();
        return;
    }
    endStream(taskId);
    m_runs.end(taskId);
    vaws_download_cancel(taskId.toUtf8().constData());
}

bool DownloadWorker::isTaskPaused(const QString& taskId) const
{
    if (const VCOMMON::VCopyLocalFile* job = m_copyJobs.value(taskId))
        return job->isCopyPausing();
    return vaws_download_get_status(taskId.toUtf8().constData()) == VAWS_STATUS_PAUSED;
}

bool DownloadWorker::isCopyTask(const QString& taskId) const
{
    return m_copyJobs.contains(taskId);
}

DownloadWorker::Stopped DownloadWorker::stop(const QString& taskId)
{
    endStream(taskId);
    m_runs.end(taskId);
    int64_t count = 0;
    std::array<char, timeTextBytes> timeText{};
    vaws_download_stop(taskId.toUtf8().constData(), &count, timeText.data());
    return {count, QString::fromUtf8(timeText.data(), static_cast<int>(qstrnlen(timeText.data(), timeTextBytes)))};
}

int DownloadWorker::downloadedMsecs(const QString& taskId)
{
    constexpr qint64 limit = std::numeric_limits<int>::max();
    return static_cast<int>(qBound<qint64>(0, stop(taskId).downloadedMs, limit));
}

QDateTime DownloadWorker::lastFrameTime(const QString& taskId)
{
    const QString text = stop(taskId).lastFrameTime;
    return text.isEmpty() ? QDateTime(QDate(-1, -1, -1), QTime()) : fromCompactTime(text);
}

bool DownloadWorker::isCurrentRun(const QString& taskId, quint64 run) const
{
    return run != 0 && m_runs.run(taskId).number == run;
}

void DownloadWorker::libraryEvent(const QString& taskId, int event, int value)
{
    if (endsTask(event)) {
        endStream(taskId);
        m_runs.end(taskId);
    }
    tellEvent(taskId, downloadEventOf(event), value);
}

void DownloadWorker::onLibraryEvent(const char* taskId, int event, int value)
{
    DownloadWorker& worker = instance();
    const QString id = QString::fromUtf8(taskId);
    if (event != VAWS_EVENT_PROGRESS)
        qCDebug(lcDownload).noquote().nospace()
            << now() << " download event callback, task id:" << id << " event type:" << event;
    const quint64 run = worker.m_runs.run(taskId).number;
    QMetaObject::invokeMethod(
        &worker,
        [&worker, id, run, event, value] {
            if (worker.isCurrentRun(id, run))
                worker.libraryEvent(id, event, value);
        },
        Qt::QueuedConnection);
}

void DownloadWorker::onFileToggle(const char* taskId, const char* fileName, int offset, const char* toggleTime)
{
    DownloadWorker& worker = instance();
    const quint64 run = worker.m_runs.run(taskId).number;
    QMetaObject::invokeMethod(
        &worker,
        [&worker, id = QString::fromUtf8(taskId), run, name = QString::fromUtf8(fileName), offset,
         time = fromCompactTime(QString::fromUtf8(toggleTime))] {
            if (worker.isCurrentRun(id, run))
                emit DownloadSignals::instance().signalDownloadFileToggle(id, name, offset, time);
        },
        Qt::QueuedConnection);
}

void DownloadWorker::onBitRate(int kbitPerSecond)
{
    emit vemo_contact::SystemMsg::instance().signalDownloadBitRate(kbitPerSecond);
}

void DownloadWorker::onConsumed(const char* taskId, int64_t bytes)
{
    const quint64 streamId = instance().m_runs.run(taskId).streamId;
    if (streamId != 0)
        vms_sdk::stream_data_consumed(streamId, bytes);
}

} // namespace vemo_filesCenter
