#include "StreamRegistry.h"

#include "BandwidthLimiter.h"
#include "ClientSignals.h"
#include "onvif/RecordingFileName.h"

#include <algorithm>

namespace vms_sdk {

namespace {

constexpr int streamsANetworkThread = 8;
constexpr qint64 nsAMs = 1'000'000;
// From this speed on the device sends as fast as it can.
constexpr double unthrottledSpeed = 100;
// A seek leaves at least that much to play.
constexpr qint64 shortestSpanMs = 1000;

} // namespace

StreamRegistry::StreamRegistry(const SdkLimits& limits, std::shared_ptr<StreamFlowTable> flows, Mailbox& mailbox,
                               QObject* parent)
    : QObject(parent)
    , m_mailbox(mailbox)
    , m_limits(limits)
    , m_limiter(std::make_shared<BandwidthLimiter>())
    , m_flows(std::move(flows))
{}

StreamRegistry::~StreamRegistry()
{
    m_streams.clear();
    m_flows->clear(); // before the workers that its entries point to
}

quint64 StreamRegistry::openByFile(const PlaybackByFileCondition& condition)
{
    Stream stream;
    stream.wish.devId = condition.devId;
    stream.wish.channelNo = condition.channelNo;
    stream.isDownload = condition.downloadFlag == 1;
    stream.isConsumedByDelivery = !stream.isDownload && !condition.flowControl;
    const auto name = onvif::RecordingFileName::decode(condition.fileName);
    if (!name)
        return open(stream, {ErrorKind::NotFound, tr("The recording's name is not one that a search gave."), {}});
    stream.wish.recordingToken = name->recordingToken;
    stream.fileBeginMs = name->beginMs;
    stream.fileEndMs = name->endMs;
    stream.beginMs = name->beginMs + qMax(condition.downloadedMs, 0);
    stream.endMs = name->endMs;
    if (stream.beginMs >= stream.endMs)
        return open(stream, {ErrorKind::NotFound, tr("The recording ends before the place to play from."), {}});
    return open(stream, {});
}

quint64 StreamRegistry::openByTime(const PlaybackByTimeCondition& condition)
{
    Stream stream;
    stream.wish.devId = condition.devId;
    stream.wish.channelNo = condition.channelNo;
    stream.isDownload = condition.downloadFlag == 1;
    stream.isConsumedByDelivery = !stream.isDownload && !condition.flowControl;
    if (!condition.beginTime.isValid())
        return open(stream, {ErrorKind::NotFound, tr("The time to play from is not a time."), {}});
    stream.beginMs = condition.beginTime.toMSecsSinceEpoch();
    stream.endMs = condition.endTime.isValid() ? condition.endTime.toMSecsSinceEpoch() : 0;
    if (stream.endMs != 0 && stream.endMs <= stream.beginMs)
        return open(stream, {ErrorKind::NotFound, tr("The end of the time span lies before its begin."), {}});
    return open(stream, {});
}

quint64 StreamRegistry::openLive(const LiveCondition& condition)
{
    Stream stream;
    stream.wish.devId = condition.devId;
    stream.wish.channelNo = condition.channelNo;
    stream.wish.isLive = true;
    stream.wish.profile = condition.profile;
    stream.isConsumedByDelivery = !condition.flowControl;
    return open(stream, {});
}

quint64 StreamRegistry::open(const Stream& stream, const Error& error)
{
    // Counted over the lives of the library: a late report of consumed bytes must not meet another stream.
    static quint64 lastId = 0;
    const quint64 streamId = ++lastId;
    m_streams.insert(streamId, stream);
    QMetaObject::invokeMethod(
        this,
        [this, streamId, error] {
            connectStream(streamId);
            if (error)
                endStream(streamId, eventOf(error.kind), error);
            else if (m_streams.contains(streamId))
                emit sourceWanted(streamId, m_streams[streamId].wish);
        },
        Qt::QueuedConnection);
    return streamId;
}

void StreamRegistry::connectStream(quint64 streamId)
{
    if (m_streams.contains(streamId))
        emit ClientSignals::instance().signalStreamEventPush(streamId, StreamConnecting);
}

StreamEvent StreamRegistry::eventOf(ErrorKind kind)
{
    switch (kind) {
    case ErrorKind::LoginRefused:
    case ErrorKind::AccountLocked:
        return StreamLoginRefused;
    case ErrorKind::LimitReached:
        return StreamLimitReached;
    case ErrorKind::NoReplay:
        return StreamNoReplayAddress;
    default:
        return StreamConnectFailed;
    }
}

rtsp::StreamRequest StreamRegistry::requestFor(const Stream& stream, const StreamSource& source) const
{
    rtsp::StreamRequest request;
    request.url = source.url;
    request.user = source.login.user;
    request.password = source.login.password;
    request.tls = source.login.tls;
    request.channelName = source.channelName;
    request.deviceName = source.deviceName;
    request.rateControl = !stream.isDownload;
    request.creditBytes = m_limits.streamCreditBytes;
    request.connectTimeoutMs = m_limits.connectTimeoutMs;
    request.answerTimeoutMs = m_limits.answerTimeoutMs;
    request.silenceTimeoutMs = m_limits.silenceTimeoutMs;
    if (stream.wish.isLive) {
        request.replay = false;
        request.clockSkewNs = source.clockSkewMs * nsAMs;
        request.creditBytes = m_limits.liveCreditBytes;
        return request;
    }
    request.beginNs = stream.beginMs * nsAMs;
    request.endNs = stream.endMs * nsAMs;
    request.recordingBeginNs = stream.fileBeginMs * nsAMs;
    request.recordingEndNs = stream.fileEndMs * nsAMs;
    return request;
}

void StreamRegistry::takeSource(quint64 streamId, const Error& error, const StreamSource& source)
{
    const auto found = m_streams.find(streamId);
    if (found == m_streams.end() || found->hasEnded)
        return;
    if (error) {
        endStream(streamId, eventOf(error.kind), error);
        return;
    }
    const rtsp::StreamRequest request = requestFor(*found, source);
    Network& network = networkForNewStream();
    found->network = &network;
    const StreamFlowTable::Counter counter = m_flows->add(streamId, [&network, streamId] {
        network.post([streamId](StreamWorker& worker) { worker.takeConsumed(streamId); });
    });
    const bool isLimited = found->isDownload;
    network.post([streamId, request, isLimited, counter](StreamWorker& worker) {
        worker.start(streamId, request, isLimited, counter);
    });
    if (found->isPaused)
        control(streamId, PlaybackPause);
    if (found->scale >= 0) {
        const double scale = found->scale;
        network.post([streamId, scale](StreamWorker& worker) { worker.setScale(streamId, scale); });
    }
}

StreamRegistry::Network& StreamRegistry::networkForNewStream()
{
    for (const std::unique_ptr<Network>& network : m_networks) {
        const auto streams = std::count_if(m_streams.cbegin(), m_streams.cend(), [&](const Stream& stream) {
            return stream.network == network.get() && !stream.hasEnded;
        });
        if (streams < streamsANetworkThread)
            return *network;
    }
    m_networks.push_back(
        std::make_unique<Network>(QStringLiteral("vms-network-%1").arg(m_networks.size() + 1), m_limiter));
    StreamWorker* worker = m_networks.back()->worker();
    connect(worker, &StreamWorker::playing, worker, delivery(m_mailbox, *this, &StreamRegistry::onPlaying),
            Qt::DirectConnection);
    connect(worker, &StreamWorker::sought, worker, delivery(m_mailbox, *this, &StreamRegistry::onSought),
            Qt::DirectConnection);
    connect(worker, &StreamWorker::packets, worker, delivery(m_mailbox, *this, &StreamRegistry::onPackets),
            Qt::DirectConnection);
    connect(worker, &StreamWorker::progress, worker, delivery(m_mailbox, *this, &StreamRegistry::onProgress),
            Qt::DirectConnection);
    connect(worker, &StreamWorker::ended, worker, delivery(m_mailbox, *this, &StreamRegistry::onEnded),
            Qt::DirectConnection);
    connect(worker, &StreamWorker::certificateRefused, worker,
            delivery(m_mailbox, *this, &StreamRegistry::onCertificate), Qt::DirectConnection);
    m_networks.back()->start();
    return *m_networks.back();
}

void StreamRegistry::onPlaying(quint64 streamId)
{
    if (m_streams.contains(streamId))
        emit ClientSignals::instance().signalStreamEventPush(streamId, StreamPlaying);
}

void StreamRegistry::onSought(quint64 streamId)
{
    const auto found = m_streams.find(streamId);
    if (found != m_streams.end() && found->seeks > 0)
        --found->seeks;
}

void StreamRegistry::onPackets(quint64 streamId, const QByteArray& batch)
{
    const auto found = m_streams.constFind(streamId);
    if (found == m_streams.constEnd())
        return;
    const bool isFromBeforeSeek = found->seeks > 0;
    const bool isConsumed = found->isConsumedByDelivery || isFromBeforeSeek;
    if (!isFromBeforeSeek)
        emit ClientSignals::instance().signalStreamData(streamId, batch);
    if (isConsumed)
        m_flows->consumed(streamId, batch.size());
}

void StreamRegistry::onProgress(quint64 streamId, qint64 lastTimeNs)
{
    const auto found = m_streams.constFind(streamId);
    if (found == m_streams.constEnd() || lastTimeNs <= 0 || found->wish.isLive || found->seeks > 0)
        return;
    const qint64 lastMs = lastTimeNs / nsAMs;
    if (found->fileEndMs == 0) {
        emit ClientSignals::instance().signalPlaybackByTimeProgressPush(streamId,
                                                                        QDateTime::fromMSecsSinceEpoch(lastMs));
        return;
    }
    const qint64 total = found->fileEndMs - found->fileBeginMs;
    const qint64 done = qBound<qint64>(0, lastMs - found->fileBeginMs, total);
    emit ClientSignals::instance().signalPlaybackByFileProgressPush(streamId, static_cast<uint>(done),
                                                                    static_cast<uint>(total));
}

void StreamRegistry::onEnded(quint64 streamId, rtsp::StreamOutcome end, const Error& error)
{
    switch (end) {
    case rtsp::StreamOutcome::EndOfRecording:
        endStream(streamId, StreamEndOfRecording, error);
        break;
    case rtsp::StreamOutcome::EndByDevice:
        endStream(streamId, StreamEndByDevice, error);
        break;
    case rtsp::StreamOutcome::Broken:
        endStream(streamId, StreamBroken, error);
        break;
    default:
        endStream(streamId, eventOf(error.kind), error);
        break;
    }
}

void StreamRegistry::onCertificate(quint64 streamId, const QSslCertificate& certificate, const QByteArray& keySha256,
                                   const QString& reason)
{
    const auto found = m_streams.constFind(streamId);
    if (found != m_streams.constEnd())
        emit ClientSignals::instance().signalDevCertificate(found->wish.devId, certificate, keySha256, reason);
}

void StreamRegistry::endStream(quint64 streamId, StreamEvent event, const Error& error)
{
    const auto found = m_streams.find(streamId);
    if (found == m_streams.end() || found->hasEnded)
        return;
    found->hasEnded = true;
    found->error = error;
    m_flows->remove(streamId);
    emit ClientSignals::instance().signalStreamEventPush(streamId, event);
}

void StreamRegistry::control(quint64 streamId, PlaybackCtrl ctrl)
{
    const auto found = m_streams.find(streamId);
    if (found == m_streams.end())
        return;
    found->isPaused = ctrl == PlaybackPause;
    if (found->network != nullptr)
        found->network->post([streamId, ctrl](StreamWorker& worker) { worker.control(streamId, ctrl); });
}

void StreamRegistry::setSpeed(quint64 streamId, const QString& speed)
{
    const auto found = m_streams.find(streamId);
    if (found == m_streams.end() || found->wish.isLive)
        return;
    QString number = speed.trimmed();
    if (number.endsWith(QLatin1Char('X'), Qt::CaseInsensitive))
        number.chop(1);
    bool isNumber = false;
    const double factor = number.toDouble(&isNumber);
    if (!isNumber || !(factor > 0))
        return;
    const double scale = factor >= unthrottledSpeed ? 0 : factor;
    found->scale = scale;
    if (found->network != nullptr)
        found->network->post([streamId, scale](StreamWorker& worker) { worker.setScale(streamId, scale); });
}

void StreamRegistry::seek(quint64 streamId, const QDateTime& time)
{
    const auto found = m_streams.find(streamId);
    if (found == m_streams.end() || found->hasEnded || found->wish.isLive || !time.isValid())
        return;
    found->beginMs = time.toMSecsSinceEpoch();
    if (found->fileEndMs != 0)
        found->beginMs = qMax(found->beginMs, found->fileBeginMs);
    if (found->endMs != 0)
        found->beginMs = qMin(found->beginMs, found->endMs - shortestSpanMs);
    found->isPaused = false;
    if (found->network == nullptr)
        return; // it will begin there
    ++found->seeks;
    const qint64 beginNs = found->beginMs * nsAMs;
    found->network->post([streamId, beginNs](StreamWorker& worker) { worker.seek(streamId, beginNs); });
}

void StreamRegistry::close(quint64 streamId)
{
    const auto found = m_streams.find(streamId);
    if (found == m_streams.end())
        return;
    Network* network = found->network;
    m_streams.erase(found);
    m_flows->remove(streamId);
    if (network != nullptr)
        network->post([streamId](StreamWorker& worker) { worker.stop(streamId); });
}

void StreamRegistry::closeDevice(const QString& devId)
{
    QList<quint64> ids;
    for (auto stream = m_streams.cbegin(); stream != m_streams.cend(); ++stream) {
        if (stream->wish.devId == devId && !stream->hasEnded)
            ids.append(stream.key());
    }
    for (const quint64 streamId : qAsConst(ids)) {
        const auto found = m_streams.find(streamId);
        if (found == m_streams.end())
            continue;
        if (found->network != nullptr)
            found->network->post([streamId](StreamWorker& worker) { worker.stop(streamId); });
        endStream(streamId, StreamConnectFailed, {ErrorKind::Cancelled, tr("The device was logged out."), {}});
    }
}

Error StreamRegistry::errorOf(quint64 streamId) const
{
    return m_streams.value(streamId).error;
}

void StreamRegistry::setBandwidthLimit(qint64 bytesPerSecond)
{
    m_limiter->setLimit(bytesPerSecond);
}

} // namespace vms_sdk
