#pragma once

#include "SdkLimits.h"
#include "SoapWorker.h"
#include "StreamFlowTable.h"
#include "StreamWorker.h"
#include "VmsTypes.h"
#include "WorkerThread.h"

#include <QHash>
#include <QObject>

#include <memory>
#include <vector>

namespace vms_sdk {

class BandwidthLimiter;

/// The open streams as the GUI thread sees them, and the network threads that carry them, one for up to eight. A stream
/// lives from its request until close(); its signals come in the order connecting, playing, data and progress, one end;
/// after close() nothing comes any more, because what is still under way finds no entry. GUI thread, except for
/// consumed().
class StreamRegistry final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(StreamRegistry)

public:
    StreamRegistry(const SdkLimits& limits, std::shared_ptr<StreamFlowTable> flows, Mailbox& mailbox,
                   QObject* parent = nullptr);
    ~StreamRegistry() override;

    quint64 openByFile(const PlaybackByFileCondition& condition);
    quint64 openByTime(const PlaybackByTimeCondition& condition);
    quint64 openLive(const LiveCondition& condition);
    void control(quint64 streamId, PlaybackCtrl ctrl);
    void setSpeed(quint64 streamId, const QString& speed);
    void seek(quint64 streamId, const QDateTime& time);
    void close(quint64 streamId);
    Error errorOf(quint64 streamId) const;
    /// Ends what plays on a device, as a failed connection.
    void closeDevice(const QString& devId);
    void takeSource(quint64 streamId, const Error& error, const StreamSource& source);
    void setBandwidthLimit(qint64 bytesPerSecond);

signals:
    void sourceWanted(quint64 streamId, const vms_sdk::StreamWish& wish);

private:
    using Network = WorkerThread<StreamWorker>;
    struct Stream
    {
        StreamWish wish;
        qint64 beginMs = 0; ///< what is asked for, since 1970 UTC
        qint64 endMs = 0;   ///< 0: open
        qint64 fileBeginMs = 0;
        qint64 fileEndMs = 0; ///< 0 when played by time
        bool isDownload = false;
        bool isConsumedByDelivery = true;
        int seeks = 0;         ///< under way: what comes is from before them
        bool isPaused = false; ///< asked for before it had a network thread
        double scale = -1;     ///< the same; -1: never set
        bool hasEnded = false;
        Error error;
        Network* network = nullptr;
    };

    quint64 open(const Stream& stream, const Error& error);
    void connectStream(quint64 streamId);
    void endStream(quint64 streamId, StreamEvent event, const Error& error);
    Network& networkForNewStream();
    void onPlaying(quint64 streamId);
    void onSought(quint64 streamId);
    void onPackets(quint64 streamId, const QByteArray& batch);
    void onProgress(quint64 streamId, qint64 lastTimeNs);
    void onEnded(quint64 streamId, rtsp::StreamOutcome end, const Error& error);
    void onCertificate(quint64 streamId, const QSslCertificate& certificate, const QByteArray& keySha256,
                       const QString& reason);
    rtsp::StreamRequest requestFor(const Stream& stream, const StreamSource& source) const;
    static StreamEvent eventOf(ErrorKind kind);

    Mailbox& m_mailbox; ///< of the GUI thread; outlives the registry
    const SdkLimits m_limits;
    const std::shared_ptr<BandwidthLimiter> m_limiter;
    QHash<quint64, Stream> m_streams;
    const std::shared_ptr<StreamFlowTable> m_flows;
    std::vector<std::unique_ptr<Network>> m_networks; ///< last: its threads end first
};

} // namespace vms_sdk
