#pragma once

#include "Error.h"
#include "VmsTypes.h"

#include <QObject>
#include <QUrl>

#include <memory>

namespace vms_sdk::rtsp {

/// What a stream is asked for. Times are UTC, nanoseconds since 1970; 0 means open.
struct StreamRequest
{
    QUrl url; ///< rtsp or rtsps, without user and password
    QString user;
    QString password;
    TlsPolicy tls;
    qint64 beginNs = 0;
    qint64 endNs = 0; ///< end of what is wanted: a silence or an end at or past it is the end of the recording
    qint64 recordingBeginNs = 0; ///< what the recorder told of the recording, for the stream-info packet; 0 unknown
    qint64 recordingEndNs = 0;
    QString channelName;
    QString deviceName;
    bool replay = true;                   ///< Require: onvif-replay and Range; false: live
    bool rateControl = true;              ///< false: Rate-Control: no, as fast as the network goes
    qint64 clockSkewNs = 0;               ///< the device's clock minus ours, for live frames before it told its time
    qint64 creditBytes = 8 * 1024 * 1024; ///< signalled and not yet returned, at most
    bool audio = true;
    int connectTimeoutMs = 10'000;
    int answerTimeoutMs = 30'000;
    int silenceTimeoutMs = 9'500; ///< without a byte while playing and not held back by credit: broken off
};

/// How a stream ended; comes exactly once.
enum class StreamOutcome : int {
    Unknown = 0,
    Failed = 1,         ///< before any frame: the error tells why
    EndOfRecording = 2, ///< everything up to endNs came
    EndByDevice = 3,    ///< the device ended it in order (T bit, BYE, TEARDOWN) before endNs
    Broken = 4,         ///< broke off after it played
};

/// One RTSP session that plays a recording (RFC 2326, ONVIF Streaming clause 6) or shows a channel live, and turns what
/// comes into batches of vav_frame packets. A replay without credit stops reading; live pictures without credit are
/// read and dropped, in whole groups. Lives on a network thread together with its socket; functions are called there.
/// Owned by its maker. The life: start(), playing(), any number of packets(), ended() once; after stop() no signal
/// comes any more. It never logs a password.
class StreamClient final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(StreamClient)

public:
    explicit StreamClient(StreamRequest request, QObject* parent = nullptr);
    ~StreamClient() override;

    void start();
    void pause();
    void resume();
    void setScale(double speed); ///< 0: no rate control
    /// Plays on from there, and is not paused any more. Packets after this call are from the new place.
    void seek(qint64 beginNs);
    void stop(); ///< TEARDOWN without waiting for its answer
    void returnCredit(qint64 bytes);

    qint64 bytesReceived() const;
    qint64 lastTimeNs() const; ///< presentation time of the newest frame, 0 before the first

signals:
    void playing();
    void packets(const QByteArray& batch);
    void ended(vms_sdk::rtsp::StreamOutcome end, const vms_sdk::Error& error);
    /// The peer's certificate was neither pinned nor verified; ended(Failed) follows.
    void certificateRefused(const QSslCertificate& certificate, const QByteArray& keySha256, const QString& reason);

private:
    class Private;
    std::unique_ptr<Private> d;
};

} // namespace vms_sdk::rtsp
