#pragma once

#include "ClientSignals.h"
#include "SdkLimits.h"
#include "vms_sdk_global.h"
#include "VmsTypes.h"

/// Device client SDK: discovery, sessions to recorders, device information, recording search, playback and live
/// streams. Open standards only: WS-Discovery, ONVIF (device, media, recording search, replay) over SOAP 1.2, RTSP 1.0
/// with RTP interleaved on TCP. Requests
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
/// Searches and discoveries.
VMS_SDK_EXPORT void cancel_request(const QString& requestId);

/// Asks all networks of this computer which devices there are: signalDevDiscovered as they answer, then
/// signalDiscoveryFinished once. `timeoutMs` between 500 and 60,000.
VMS_SDK_EXPORT void discover_devs_req(const QString& requestId, int timeoutMs);

/// Opens a stream and returns its id, never 0; what becomes of it comes as stream events.
VMS_SDK_EXPORT quint64 playback_by_file_req(const PlaybackByFileCondition& condition);
VMS_SDK_EXPORT quint64 playback_by_time_req(const PlaybackByTimeCondition& condition);
/// A live stream, with the events of a playback: frames carry the UTC time of the device's clock.
VMS_SDK_EXPORT quint64 live_play_req(const LiveCondition& condition);
VMS_SDK_EXPORT void playback_ctrl_req(quint64 streamId, PlaybackCtrl ctrl);
/// Playback goes on at `time`, at the key frame at or before it, and is paused no longer. No data from before the seek
/// comes after this has returned (what was dropped counts as consumed); the first frame is marked as a discontinuity.
/// Nothing happens to a live stream, and to one that has ended.
VMS_SDK_EXPORT void playback_seek_req(quint64 streamId, const QDateTime& time);
/// `speed` as "1X", "4X", "0.5X"; "100X" and above asks for no rate control at all. A playback at "8X" and above sends
/// key frames only, where the device can. Nothing happens to a live stream.
VMS_SDK_EXPORT void download_speed_set_req(quint64 streamId, const QString& speed);
/// No signal of the stream comes after this returns.
VMS_SDK_EXPORT void disconnect_stream_req(quint64 streamId);
VMS_SDK_EXPORT Error stream_error(quint64 streamId);

/// Flow control: a playback with the download flag or `flowControl` may have `streamCreditBytes` signalled that nobody
/// has consumed; then its socket is not read until consumed bytes are reported here. A live stream beyond
/// `liveCreditBytes` is read on, and drops what comes until the consumer has caught up. Other streams count a batch as
/// consumed once its signal was delivered. Any thread.
VMS_SDK_EXPORT void stream_data_consumed(quint64 streamId, qint64 bytes);
/// Upper limit for all streams with the download flag together, bytes a second, 0: none.
VMS_SDK_EXPORT void set_bandwidth_limit(qint64 bytesPerSecond);

} // namespace vms_sdk
