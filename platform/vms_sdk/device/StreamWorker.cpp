#include "StreamWorker.h"

#include "BandwidthLimiter.h"

#include <algorithm>
#include <vector>

namespace vms_sdk {

namespace {

constexpr int paceMs = 20;
constexpr int progressMs = 500;
// How long a stopped client may take to send its goodbye.
constexpr int goodbyeMs = 1000;
// Credit of a stream under a bandwidth limit: a tenth of a second of it, but enough for the device to send at all.
constexpr qint64 minPacedCreditBytes = 128 * 1024;

} // namespace

StreamWorker::StreamWorker(std::shared_ptr<BandwidthLimiter> limiter)
    : m_limiter(std::move(limiter))
    , m_paceTimer(this)
    , m_progressTimer(this)
{
    m_paceTimer.setInterval(paceMs);
    m_paceTimer.setTimerType(Qt::PreciseTimer);
    m_progressTimer.setInterval(progressMs);
    connect(&m_paceTimer, &QTimer::timeout, this, &StreamWorker::giveBackAll);
    connect(&m_progressTimer, &QTimer::timeout, this, &StreamWorker::showProgress);
}

StreamWorker::~StreamWorker()
{
    for (auto& [streamId, stream] : m_streams) {
        stream.client->disconnect(this);
        stream.client->stop();
        delete stream.client;
    }
}

StreamWorker::Stream* StreamWorker::find(quint64 streamId)
{
    const auto found = m_streams.find(streamId);
    return found == m_streams.end() ? nullptr : &found->second;
}

void StreamWorker::start(quint64 streamId, rtsp::StreamRequest request, bool isLimited,
                         StreamFlowTable::Counter consumedBytes)
{
    Stream stream;
    stream.consumedBytes = std::move(consumedBytes);
    stream.isUnthrottled = !request.rateControl;
    stream.isLimited = isLimited;
    if (isLimited && m_limiter->isActive()) {
        // The rest of the credit is held and given as the limit allows.
        const qint64 paced = qBound(minPacedCreditBytes, m_limiter->limit() / 10, request.creditBytes);
        stream.heldBytes = request.creditBytes - paced;
        request.creditBytes = paced;
        m_paceTimer.start();
    }
    auto* client = new rtsp::StreamClient(std::move(request), this);
    stream.client = client;
    m_streams[streamId] = stream;
    connect(client, &rtsp::StreamClient::playing, this, [this, streamId] {
        if (Stream* playingStream = find(streamId)) {
            playingStream->isPlaying = true;
            emit playing(streamId);
        }
    });
    connect(client, &rtsp::StreamClient::packets, this, [this, streamId](const QByteArray& batch) {
        if (Stream* source = find(streamId)) {
            source->receivedBytes += batch.size();
            emit packets(streamId, batch);
        }
    });
    connect(client, &rtsp::StreamClient::ended, this, [this, streamId](rtsp::StreamOutcome end, const Error& error) {
        if (Stream* ending = find(streamId)) {
            const qint64 lastTimeNs = ending->client->lastTimeNs();
            letGo(*ending);
            m_streams.erase(streamId);
            if (lastTimeNs > 0)
                emit progress(streamId, lastTimeNs);
            emit ended(streamId, end, error);
        }
    });
    connect(client, &rtsp::StreamClient::certificateRefused, this,
            [this, streamId](const QSslCertificate& certificate, const QByteArray& keySha256, const QString& reason) {
                emit certificateRefused(streamId, certificate, keySha256, reason);
            });
    if (!m_progressTimer.isActive())
        m_progressTimer.start();
    client->start();
}

void StreamWorker::control(quint64 streamId, PlaybackCtrl ctrl)
{
    if (Stream* stream = find(streamId))
        ctrl == PlaybackPause ? stream->client->pause() : stream->client->resume();
}

void StreamWorker::setScale(quint64 streamId, double scale)
{
    Stream* stream = find(streamId);
    if (stream == nullptr || (scale <= 0 && stream->isUnthrottled))
        return;
    stream->isUnthrottled = scale <= 0;
    stream->client->setScale(scale);
}

void StreamWorker::seek(quint64 streamId, qint64 beginNs)
{
    if (Stream* stream = find(streamId)) {
        stream->client->seek(beginNs);
        emit sought(streamId);
    }
}

void StreamWorker::stop(quint64 streamId)
{
    if (Stream* stream = find(streamId)) {
        stream->client->disconnect(this);
        stream->client->stop();
        letGo(*stream);
        m_streams.erase(streamId);
    }
}

void StreamWorker::letGo(Stream& stream)
{
    QTimer::singleShot(goodbyeMs, stream.client, &QObject::deleteLater);
}

void StreamWorker::takeConsumed(quint64 streamId)
{
    if (Stream* stream = find(streamId)) {
        stream->heldBytes += stream->consumedBytes->exchange(0, std::memory_order_acq_rel);
        giveBack(*stream);
    }
}

void StreamWorker::giveBack(Stream& stream)
{
    // A client does not save up credit: never more than it has spent.
    const qint64 wanted = qMin(stream.heldBytes, stream.receivedBytes - stream.returnedBytes);
    if (wanted <= 0)
        return;
    const qint64 granted = stream.isLimited ? m_limiter->take(wanted) : wanted;
    if (granted < wanted && !m_paceTimer.isActive())
        m_paceTimer.start();
    if (granted <= 0)
        return;
    stream.heldBytes -= granted;
    stream.returnedBytes += granted;
    stream.client->returnCredit(granted);
}

void StreamWorker::giveBackAll()
{
    // A client may end inside the call, so not over the map itself.
    std::vector<quint64> holding;
    for (const auto& [streamId, stream] : m_streams) {
        if (stream.heldBytes > 0)
            holding.push_back(streamId);
    }
    // The one that was served last comes first next time: under a limit the first takes what there is.
    if (!holding.empty())
        std::rotate(holding.begin(), holding.begin() + m_turn++ % holding.size(), holding.end());
    for (const quint64 streamId : holding) {
        if (Stream* stream = find(streamId))
            giveBack(*stream);
    }
    if (holding.empty() && !m_limiter->isActive())
        m_paceTimer.stop();
}

void StreamWorker::showProgress()
{
    if (m_streams.empty()) {
        m_progressTimer.stop();
        m_paceTimer.stop();
        return;
    }
    for (auto& [streamId, stream] : m_streams) {
        const qint64 lastTimeNs = stream.client->lastTimeNs();
        if (!stream.isPlaying || lastTimeNs == stream.shownTimeNs)
            continue;
        stream.shownTimeNs = lastTimeNs;
        emit progress(streamId, lastTimeNs);
    }
}

} // namespace vms_sdk
