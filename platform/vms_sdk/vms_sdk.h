#pragma once

#include "ClientSignals.h"
#include "SdkLimits.h"
#include "vms_sdk_global.h"
#include "VmsTypes.h"

/// Device client SDK: sessions to recorders, device information, recording search, playback streams. Open standards
/// only: ONVIF (device, media, recording search, replay) over SOAP 1.2, RTSP 1.0 with RTP interleaved on TCP. Requests
/// return at once and are called on the GUI thread unless said otherwise; answers come as signals of ClientSignals.
namespace vms_sdk {

/// Starts the library's threads; called by the first request when it was not called before.
VMS_SDK_EXPORT void init_sdk();
/// Limits other than the defaults, for the next init_sdk().
VMS_SDK_EXPORT void set_sdk_limits(const SdkLimits& limits);
/// Ends all streams, requests and sessions and joins the threads. Safe with work in flight; not from inside a signal.
VMS_SDK_EXPORT void uninit_sdk();

/// Makes the device known, or changes how it is reached, and logs in: signalDevLoginRes, signalDevStatusPush, and on
/// success signalDevInfoPush. Needed before any other request for the device; streams and searches log in by themselves
/// when the session was lost.
VMS_SDK_EXPORT void login_dev_req(const DevLogin& login);
VMS_SDK_EXPORT void logout_dev_req(const QString& devId);
VMS_SDK_EXPORT DevStatus dev_status(const QString& devId);
/// What is known of the device; an empty devId when it is not known.
VMS_SDK_EXPORT DevInfo dev_info(const QString& devId);

/// Searches the recordings of a channel that touch the span. Answered by signalSearchVideoRecordingsRes or, after 30 s
/// without renewal, by signalRequestTimeout, exactly once.
VMS_SDK_EXPORT void search_video_recordings_req(const RecsSearchCondition& condition);
/// The cause behind a failed search, until the next 64 searches.
VMS_SDK_EXPORT Error search_error(const QString& requestId);
VMS_SDK_EXPORT void renewal_request_id(const QString& requestId);
VMS_SDK_EXPORT void cancel_request(const QString& requestId);

/// Opens a stream and returns its id, never 0; what becomes of it comes as stream events.
VMS_SDK_EXPORT quint64 playback_by_file_req(const PlaybackByFileCondition& condition);
VMS_SDK_EXPORT quint64 playback_by_time_req(const PlaybackByTimeCondition& condition);
VMS_SDK_EXPORT void playback_ctrl_req(quint64 streamId, PlaybackCtrl ctrl);
/// `speed` as "1X", "4X", "0.5X"; "100X" and above asks for no rate control at all.
VMS_SDK_EXPORT void download_speed_set_req(quint64 streamId, const QString& speed);
/// No signal of the stream comes after this returns.
VMS_SDK_EXPORT void disconnect_stream_req(quint64 streamId);
VMS_SDK_EXPORT Error stream_error(quint64 streamId);

/// Flow control: a stream with the download flag may have `creditBytes` signalled that nobody has consumed; then its
/// socket is not read until consumed bytes are reported here. Other streams count a batch as consumed once its signal
/// was delivered. Any thread.
VMS_SDK_EXPORT void stream_data_consumed(quint64 streamId, qint64 bytes);
/// Upper limit for the whole SDK, bytes a second, 0: none.
VMS_SDK_EXPORT void set_bandwidth_limit(qint64 bytesPerSecond);

} // namespace vms_sdk
