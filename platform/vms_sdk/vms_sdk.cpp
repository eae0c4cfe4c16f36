#include "vms_sdk.h"

#include "device/SdkCore.h"

#include <QCoreApplication>

#include <memory>

namespace vms_sdk {

namespace {

std::unique_ptr<SdkCore>& corePointer()
{
    static std::unique_ptr<SdkCore> core;
    return core;
}

/// Outlives every core: consumers on other threads report whenever they are done.
const std::shared_ptr<StreamFlowTable>& flowTable()
{
    static const auto table = std::make_shared<StreamFlowTable>();
    return table;
}

SdkLimits& nextLimits()
{
    static SdkLimits limits;
    return limits;
}

SdkCore& core()
{
    init_sdk();
    return *corePointer();
}

} // namespace

void set_sdk_limits(const SdkLimits& limits)
{
    nextLimits() = limits;
}

void init_sdk()
{
    if (corePointer())
        return;
    ClientSignals::instance();
    corePointer() = std::make_unique<SdkCore>(nextLimits(), flowTable());
    // Threads must not outlive the application object, even when the host forgets them.
    static const bool isRegistered = [] {
        qAddPostRoutine(uninit_sdk);
        return true;
    }();
    Q_UNUSED(isRegistered)
}

void uninit_sdk()
{
    corePointer().reset();
}

void login_dev_req(const DevLogin& login)
{
    core().logIn(login);
}

void logout_dev_req(const QString& devId)
{
    core().logOut(devId);
}

DevStatus dev_status(const QString& devId)
{
    return core().devices().status(devId);
}

DevInfo dev_info(const QString& devId)
{
    return core().devices().info(devId);
}

void search_video_recordings_req(const RecsSearchCondition& condition)
{
    core().search(condition);
}

Error search_error(const QString& requestId)
{
    return core().searches().errorOf(requestId);
}

void renewal_request_id(const QString& requestId)
{
    core().searches().renew(requestId);
}

void cancel_request(const QString& requestId)
{
    core().cancelRequest(requestId);
}

void discover_devs_req(const QString& requestId, int timeoutMs)
{
    core().discover(requestId, timeoutMs);
}

quint64 playback_by_file_req(const PlaybackByFileCondition& condition)
{
    return core().streams().openByFile(condition);
}

quint64 playback_by_time_req(const PlaybackByTimeCondition& condition)
{
    return core().streams().openByTime(condition);
}

quint64 live_play_req(const LiveCondition& condition)
{
    return core().streams().openLive(condition);
}

void playback_seek_req(quint64 streamId, const QDateTime& time)
{
    core().streams().seek(streamId, time);
}

void playback_ctrl_req(quint64 streamId, PlaybackCtrl ctrl)
{
    core().streams().control(streamId, ctrl);
}

void download_speed_set_req(quint64 streamId, const QString& speed)
{
    core().streams().setSpeed(streamId, speed);
}

void disconnect_stream_req(quint64 streamId)
{
    core().streams().close(streamId);
}

Error stream_error(quint64 streamId)
{
    return core().streams().errorOf(streamId);
}

void stream_data_consumed(quint64 streamId, qint64 bytes)
{
    flowTable()->consumed(streamId, bytes);
}

void set_bandwidth_limit(qint64 bytesPerSecond)
{
    core().streams().setBandwidthLimit(bytesPerSecond);
}

} // namespace vms_sdk
