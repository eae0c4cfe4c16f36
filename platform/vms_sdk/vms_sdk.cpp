#include "vms_sdk.h"

namespace vms_sdk {

void init_sdk() {}
void uninit_sdk() {}

void login_dev_req(const DevLogin&) {}
void logout_dev_req(const QString&) {}

DevStatus dev_status(const QString&)
{
    return DevStatus::Unknown;
}

DevInfo dev_info(const QString&)
{
    return {};
}

void search_video_recordings_req(const RecsSearchCondition&) {}

Error search_error(const QString&)
{
    return {};
}

void renewal_request_id(const QString&) {}
void cancel_request(const QString&) {}

quint64 playback_by_file_req(const PlaybackByFileCondition&)
{
    return 1;
}

quint64 playback_by_time_req(const PlaybackByTimeCondition&)
{
    return 1;
}

void playback_ctrl_req(quint64, PlaybackCtrl) {}
void download_speed_set_req(quint64, const QString&) {}
void disconnect_stream_req(quint64) {}

Error stream_error(quint64)
{
    return {};
}

void stream_data_consumed(quint64, qint64) {}
void set_bandwidth_limit(qint64) {}

} // namespace vms_sdk
