#pragma once

#include "rtsp/StreamClient.h"
#include "StreamFlowTable.h"
#include "VmsTypes.h"

#include <QObject>
#include <QTimer>

#include <map>

namespace vms_sdk {

class BandwidthLimiter;

/// The object of one network thread: the replay clients of up to eight streams. Its functions are called there, by
/// queued calls; answers are signals. Credit goes back to a client when its bytes were consumed and the bandwidth limit
/// allows more. Destroyed with its thread, in the middle of whatever runs.
class StreamWorker final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(StreamWorker)

public:
    explicit StreamWorker(std::shared_ptr<BandwidthLimiter> limiter);
    ~StreamWorker() override;

    /// `isLimited`: under the bandwidth limit.
    void start(quint64 streamId, rtsp::StreamRequest request, bool isLimited, StreamFlowTable::Counter consumedBytes);
    void control(quint64 streamId, PlaybackCtrl ctrl);
    /// 0: no rate control.
    void setScale(quint64 streamId, double scale);
    /// Answered by sought(), before the first batch from there.
    void seek(quint64 streamId, qint64 beginNs);
    /// Says goodbye to the device without waiting for it.
    void stop(quint64 streamId);
    void takeConsumed(quint64 streamId);

signals:
    void playing(quint64 streamId);
    void sought(quint64 streamId);
    void packets(quint64 streamId, const QByteArray& batch);
    void progress(quint64 streamId, qint64 lastTimeNs);
    void ended(quint64 streamId, vms_sdk::rtsp::StreamOutcome end, const vms_sdk::Error& error);
    void certificateRefused(quint64 streamId, const QSslCertificate& certificate, const QByteArray& keySha256,
                            const QString& reason);

private:
    struct Stream
    {
        rtsp::StreamClient* client = nullptr; ///< child of the worker
        StreamFlowTable::Counter consumedBytes;
        qint64 receivedBytes = 0;
        qint64 returnedBytes = 0;
        qint64 heldBytes = 0; ///< consumed, but not yet given back
        bool isLimited = false;
        bool isPlaying = false;
        bool isUnthrottled = false;
        qint64 shownTimeNs = 0;
    };

    Stream* find(quint64 streamId);
    void giveBack(Stream& stream);
    void giveBackAll();
    void showProgress();
    void letGo(Stream& stream);

    const std::shared_ptr<BandwidthLimiter> m_limiter;
    std::map<quint64, Stream> m_streams;
    std::size_t m_turn = 0; ///< whose turn it is first when a limit is shared out
    QTimer m_paceTimer;
    QTimer m_progressTimer;
};

} // namespace vms_sdk
