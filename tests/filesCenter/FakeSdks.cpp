#include "FakeSdks.h"

#include <vms_sdk.h>

#include <QDateTime>

#include <cstring>
#include <thread>

namespace {

FakeSdks& fake()
{
    return FakeSdks::instance();
}

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

QString at(const QDateTime& time)
{
    return time.toString(QStringLiteral("yyyyMMddhhmmss"));
}

int give(const QByteArray& report, char* text, size_t size)
{
    if (size > 0)
        qstrncpy(text, report.constData(), static_cast<uint>(size));
    return report.size();
}

void onAnotherThread(const std::function<void()>& call)
{
    std::thread(call).join();
}

} // namespace

FakeSdks& FakeSdks::instance()
{
    static FakeSdks sdks;
    return sdks;
}

void FakeSdks::reset()
{
    m_calls.clear();
    startResult = VAWS_OK;
    status = VAWS_STATUS_RUNNING;
    stopCount = 0;
    stopTime.clear();
    isRepaired = true;
    repairReport = "[]";
    reports.clear();
    pausedTasks.clear();
}

QStringList FakeSdks::takeCalls()
{
    return std::exchange(m_calls, {});
}

void FakeSdks::note(const QString& call)
{
    m_calls.append(call);
}

void FakeSdks::libraryEvent(const QByteArray& taskId, int event, int value) const
{
    onAnotherThread([=] { onEvent(taskId.constData(), event, value); });
}

void FakeSdks::fileToggle(const QByteArray& taskId, const QByteArray& fileName, int offset,
                          const QByteArray& time) const
{
    onAnotherThread([=] { onFileToggle(taskId.constData(), fileName.constData(), offset, time.constData()); });
}

void FakeSdks::bitRate(int kbitPerSecond) const
{
    onAnotherThread([=] { onBitRate(kbitPerSecond); });
}

void FakeSdks::consumed(const QByteArray& taskId, qint64 bytes) const
{
    onAnotherThread([=] { onConsumed(taskId.constData(), bytes); });
}

extern "C" {

int vaws_download_init_sdk(const char* temp_dir)
{
    fake().tempDir = text(temp_dir);
    return VAWS_OK;
}

void vaws_download_register_event_callback(vaws_event_callback callback)
{
    fake().onEvent = callback;
}

void vaws_download_register_file_toggle_callback(vaws_file_toggle_callback callback)
{
    fake().onFileToggle = callback;
}

void vaws_download_register_bitrate_callback(vaws_bitrate_callback callback)
{
    fake().onBitRate = callback;
}

int vaws_download_set_whole_seconds(int)
{
    return VAWS_OK;
}

void vaws_download_register_consumed_callback(vaws_consumed_callback callback)
{
    fake().onConsumed = callback;
}

int vaws_download_file(const char* source, int downloaded_ms, const char* save_path, const char* task_id)
{
    fake().note(
        QStringLiteral("file %1 %2 %3 %4").arg(text(source)).arg(downloaded_ms).arg(text(save_path), text(task_id)));
    return fake().startResult;
}

int vaws_download_time_range(const char* source, const char* begin, const char* end, const char* save_path,
                             const char* task_id)
{
    fake().note(QStringLiteral("time_range %1 %2 %3 %4 %5")
                    .arg(text(source), text(begin), text(end), text(save_path), text(task_id)));
    return fake().startResult;
}

int vaws_download_push_vavframe(const char* task_id, const void* data, size_t size)
{
    fake().note(QStringLiteral("push %1 %2")
                    .arg(text(task_id), QString::fromLatin1(static_cast<const char*>(data), static_cast<int>(size))));
    return VAWS_OK;
}

int vaws_download_push_player_event(const char* task_id, int player_event)
{
    fake().note(QStringLiteral("player_event %1 %2").arg(text(task_id)).arg(player_event));
    return VAWS_OK;
}

int vaws_download_pause(const char* task_id)
{
    fake().note(QStringLiteral("pause ") + text(task_id));
    fake().pausedTasks.insert(task_id);
    return VAWS_OK;
}

int vaws_download_resume(const char* task_id)
{
    fake().note(QStringLiteral("resume ") + text(task_id));
    fake().pausedTasks.remove(task_id);
    return VAWS_OK;
}

int vaws_download_cancel(const char* task_id)
{
    fake().note(QStringLiteral("cancel ") + text(task_id));
    return VAWS_OK;
}

int vaws_download_stop(const char* task_id, int64_t* count, char* time_text)
{
    fake().note(QStringLiteral("stop ") + text(task_id));
    *count = fake().stopCount;
    std::memcpy(time_text, fake().stopTime.constData(), static_cast<size_t>(fake().stopTime.size()));
    return VAWS_OK;
}

int vaws_download_get_status(const char* task_id)
{
    return fake().pausedTasks.contains(task_id) ? int(VAWS_STATUS_PAUSED) : fake().status;
}

int vaws_download_wait_repaired(int)
{
    return fake().isRepaired ? 1 : 0;
}

int vaws_download_repair_report(char* text, size_t size)
{
    return give(fake().repairReport, text, size);
}

int vaws_download_get_report(const char* task_id, char* text, size_t size)
{
    const QByteArray report = fake().reports.value(task_id);
    return report.isEmpty() ? int(VAWS_UNKNOWN_TASK) : give(report, text, size);
}

const char* vaws_download_text(int)
{
    return "";
}

void vaws_download_shutdown(void) {}

} // extern "C"

namespace vms_sdk {

quint64 playback_by_file_req(const PlaybackByFileCondition& condition)
{
    fake().note(QStringLiteral("playback_by_file %1 %2 %3 location=%4 from=%5 flag=%6")
                    .arg(condition.devId)
                    .arg(condition.channelNo)
                    .arg(condition.fileName)
                    .arg(condition.location)
                    .arg(condition.downloadedMs)
                    .arg(condition.downloadFlag));
    return fake().nextStreamId++;
}

quint64 playback_by_time_req(const PlaybackByTimeCondition& condition)
{
    fake().note(QStringLiteral("playback_by_time %1 %2 %3 %4 location=%5 flag=%6")
                    .arg(condition.devId)
                    .arg(condition.channelNo)
                    .arg(at(condition.beginTime), at(condition.endTime))
                    .arg(condition.location)
                    .arg(condition.downloadFlag));
    return fake().nextStreamId++;
}

void playback_ctrl_req(quint64 streamId, PlaybackCtrl ctrl)
{
    fake().note(QStringLiteral("playback_ctrl %1 %2").arg(streamId).arg(static_cast<int>(ctrl)));
}

void download_speed_set_req(quint64 streamId, const QString& speed)
{
    fake().note(QStringLiteral("speed %1 %2").arg(streamId).arg(speed));
}

void disconnect_stream_req(quint64 streamId)
{
    fake().note(QStringLiteral("disconnect %1").arg(streamId));
}

void stream_data_consumed(quint64 streamId, qint64 bytes)
{
    fake().note(QStringLiteral("consumed %1 %2").arg(streamId).arg(bytes));
}

} // namespace vms_sdk
