#pragma once

#include "vms_sdk_global.h"
#include "VmsTypes.h"

#include <QObject>

namespace vms_sdk {

/// What the device client SDK tells. A process-wide object that lives on the GUI thread; every signal is delivered
/// there, and none after uninit_sdk() has returned.
class VMS_SDK_EXPORT ClientSignals final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ClientSignals)

public:
    static ClientSignals& instance();

signals:
    /// A batch of whole vav_frame packets of about 64 KiB, more when one access unit is larger.
    void signalStreamData(quint64 streamId, const QByteArray& data);
    /// For events that end a stream, stream_error() tells the cause until disconnect_stream_req().
    void signalStreamEventPush(quint64 streamId, vms_sdk::StreamEvent event);
    /// `done` and `total` in ms of the recording.
    void signalPlaybackByFileProgressPush(quint64 streamId, uint done, uint total);
    void signalPlaybackByTimeProgressPush(quint64 streamId, const QDateTime& time);

    /// `errorCode` is an ErrorKind as a number, 0 when the search succeeded.
    void signalSearchVideoRecordingsRes(const QString& requestId, int errorCode,
                                        const QList<vms_sdk::VideoRecording>& recordings);
    void signalRequestTimeout(const QString& requestId);

    /// Once a device, and again with more addresses when it answers with others.
    void signalDevDiscovered(const QString& requestId, const vms_sdk::DiscoveredDev& dev);
    /// The time is up, the request was cancelled, or no network could be asked.
    void signalDiscoveryFinished(const QString& requestId, const vms_sdk::Error& error);

    void signalDevLoginRes(const QString& devId, const vms_sdk::Error& error);
    void signalDevStatusPush(const QString& devId, vms_sdk::DevStatus status);
    void signalDevInfoPush(const vms_sdk::DevInfo& info);
    /// The peer's certificate is neither pinned nor verified: nothing was sent to it. `keySha256` is what a pin would
    /// hold.
    void signalDevCertificate(const QString& devId, const QSslCertificate& certificate, const QByteArray& keySha256,
                              const QString& reason);

private:
    explicit ClientSignals(QObject* parent = nullptr);
};

} // namespace vms_sdk
