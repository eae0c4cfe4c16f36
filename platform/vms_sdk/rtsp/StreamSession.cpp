#include "StreamSession.h"

#include "AccessUnitAssembler.h"
#include "RtspHeaders.h"
#include "RtspRefusal.h"

#include <QDateTime>

#include <algorithm>
#include <utility>

namespace vms_sdk::rtsp {
namespace {

constexpr qint64 nsPerSecond = 1'000'000'000;
constexpr qint64 nsPerMs = 1'000'000;
/// From this speed on key frames are enough for the eye, and all that a network can carry of many channels.
constexpr double keyFramesOnlyScale = 8;
/// A sender report before the first frame is believed when it is this near to the asked begin; live, to the present
/// time.
constexpr qint64 believableReplayNs = 60 * nsPerSecond;
constexpr qint64 believableLiveNs = 86'400 * nsPerSecond;
/// How long the audio track is waited for when the video is through.
constexpr qint64 trailingFootageNs = 2 * nsPerSecond;
constexpr int trailingSilenceMs = 700;
/// A silence at the end of what was asked for is the end.
constexpr int endSilenceMs = 2'000;
/// A packet that has begun must be complete by then, however its bytes trickle in.
constexpr int packetTimeoutMs = 30'000;

} // namespace

StreamSession::StreamSession(StreamRequest request, QObject* parent)
    : QObject(parent)
    , m_request(std::move(request))
    , m_gate(m_request.creditBytes)
{
    m_answerTimer.setSingleShot(true);
    connect(&m_answerTimer, &QTimer::timeout, this, &StreamSession::answerTimedOut);
    connect(&m_keepAliveTimer, &QTimer::timeout, this, &StreamSession::sendKeepAlive);
    connect(&m_tickTimer, &QTimer::timeout, this, &StreamSession::tick);
}

StreamSession::~StreamSession()
{
    m_phase = Phase::Ended;
    shutDown();
}

void StreamSession::start()
{
    if (m_phase != Phase::Idle)
        return;
    m_requireReplay = m_request.replay;
    if (!isRtsp(m_request.url)) {
        m_phase = Phase::Connecting;
        fail({ErrorKind::Unsupported, StreamClient::tr("The stream's address is none of RTSP."),
              m_request.url.scheme()});
        return;
    }
    connectTo(m_request.url);
}

void StreamSession::connectTo(const QUrl& url)
{
    m_url = url;
    m_phase = Phase::Connecting;
    m_requester = std::make_unique<RtspRequester>(m_mayLogIn ? m_request.user : QString(), m_request.password,
                                                  isRtspOverTls(url));
    m_connection = new RtspConnection(*this, this);
    m_connection->open(url, m_request.tls, m_request.connectTimeoutMs);
}

void StreamSession::pause()
{
    m_wantPaused = true;
    followWishes();
}

void StreamSession::resume()
{
    m_wantPaused = false;
    followWishes();
}

void StreamSession::setScale(double speed)
{
    const bool rateControl = speed > 0;
    const double scale = rateControl ? speed : 1.0;
    if (rateControl == m_request.rateControl && qFuzzyCompare(scale, m_scale))
        return;
    m_request.rateControl = rateControl;
    m_scale = scale;
    m_scaleChanged = true;
    followWishes();
}

void StreamSession::seek(qint64 beginNs)
{
    if (!m_request.replay || m_phase == Phase::Ended)
        return;
    m_request.beginNs = beginNs;
    m_wantPaused = false;
    if (m_phase < Phase::Play)
        return; // PLAY will ask for it
    m_receiver->seek(beginNs);
    m_seekWanted = true;
    followWishes();
    // What is on its way from the old place is read and dropped, whoever holds credit. Not within this call: the answer
    // and pictures of the new place may be there at once, and the caller has yet to tell where they begin.
    if (m_connection)
        m_connection->readSoon();
}

void StreamSession::followWishes()
{
    if (m_seekWanted && m_phase == Phase::Playing && m_pausesToSeek) {
        sendPause();
    } else if (m_seekWanted && (m_phase == Phase::Playing || m_phase == Phase::Paused)) {
        m_heldBack = false;
        sendPlay(PlayFrom::Seek);
    } else if (m_phase == Phase::Playing && (m_wantPaused || m_scaleChanged)) {
        sendPause();
    } else if (m_phase == Phase::Paused && !m_wantPaused) {
        if (m_heldBack) {
            m_heldBack = false;
            m_phase = Phase::Playing;
            m_sinceProgress.restart();
            m_connection->readMore();
        } else {
            // With other frames than before it has to begin at a key frame.
            sendPlay(wantsKeyFramesOnly() != m_keyFramesOnly ? PlayFrom::LastFrame : PlayFrom::Pause);
        }
    }
}

void StreamSession::stop()
{
    m_phase = Phase::Ended;
    shutDown();
}

void StreamSession::returnCredit(qint64 bytes)
{
    const bool wasClosed = m_gate.isClosed();
    m_gate.giveBack(bytes);
    if (!m_request.replay && m_receiver && m_gate.isHalfOpen())
        m_receiver->setDropping(false);
    if (wasClosed && !m_gate.isClosed() && m_connection)
        m_connection->readMore();
}

qint64 StreamSession::bytesReceived() const
{
    return m_bytesBefore + (m_connection ? m_connection->bytesReceived() : 0);
}

qint64 StreamSession::lastTimeNs() const
{
    return m_receiver ? m_receiver->lastTimeNs() : 0;
}

void StreamSession::connectionReady()
{
    sendOptions();
}

void StreamSession::request(const QByteArray& method, const QByteArray& uri, const RtspHeaderList& headers)
{
    m_answerTimer.start(m_request.answerTimeoutMs);
    m_connection->send(m_requester->send({method, uri, headers}));
}

void StreamSession::sendOptions()
{
    m_phase = Phase::Options;
    request("OPTIONS", requestUri(m_url));
}

void StreamSession::sendDescribe()
{
    m_phase = Phase::Describe;
    request("DESCRIBE", requestUri(m_url), {{"Accept", "application/sdp"}});
}

void StreamSession::sendSetup()
{
    m_phase = Phase::Setup;
    const QByteArray channel = QByteArray::number(static_cast<int>(m_nextMedium * 2));
    const QByteArray rtcpChannel = QByteArray::number(static_cast<int>(m_nextMedium * 2 + 1));
    RtspHeaderList headers;
    headers.append(RtspHeader("Transport", "RTP/AVP/TCP;unicast;interleaved=" + channel + '-' + rtcpChannel));
    if (m_requireReplay)
        headers.append(RtspHeader("Require", "onvif-replay"));
    request("SETUP", m_media[m_nextMedium].uri, headers);
}

bool StreamSession::wantsKeyFramesOnly() const
{
    return m_request.replay && m_request.rateControl && m_scale >= keyFramesOnlyScale;
}

RtspHeaderList StreamSession::playHeaders(PlayFrom from, qint64 beginNs) const
{
    RtspHeaderList headers;
    if (m_request.replay && beginNs != 0) {
        QByteArray range = "clock=" + formatClock(beginNs, Rounding::Down) + '-';
        if (m_request.endNs != 0)
            range += formatClock(m_request.endNs, Rounding::Up);
        headers.append(RtspHeader("Range", range));
    }
    if (m_requireReplay) {
        headers.append(RtspHeader("Require", "onvif-replay"));
        if (!m_request.rateControl)
            headers.append(RtspHeader("Rate-Control", "no"));
        if (m_keyFramesOnly)
            headers.append(RtspHeader("Frames", "intra"));
        if (from == PlayFrom::Seek)
            headers.append(RtspHeader("Immediate", "yes"));
    }
    if (m_request.rateControl && (m_scaleChanged || !qFuzzyCompare(m_scale, 1.0)))
        headers.append(RtspHeader("Scale", QByteArray::number(m_scale, 'f', 3)));
    return headers;
}

void StreamSession::sendPlay(PlayFrom from)
{
    m_phase = from == PlayFrom::Begin ? Phase::Play : Phase::Resuming;
    m_playFrom = from;
    m_keyFramesOnly = wantsKeyFramesOnly();
    m_receiver->setKeyFramesOnly(m_keyFramesOnly);
    qint64 beginNs = 0;
    switch (from) {
    case PlayFrom::Begin:
        beginNs = m_request.beginNs != 0 ? m_request.beginNs : m_request.recordingBeginNs;
        if (m_request.replay && beginNs != 0)
            m_receiver->setRangeBegin(beginNs, believableReplayNs);
        else
            m_receiver->setRangeBegin(arrivalTimeNs(), believableLiveNs);
        break;
    case PlayFrom::Pause:
        m_receiver->resumed(false);
        break;
    case PlayFrom::LastFrame:
        beginNs = m_receiver->lastTimeNs();
        m_receiver->resumed(true);
        break;
    case PlayFrom::Seek:
        beginNs = m_request.beginNs;
        m_seekWanted = false;
        m_seekUnderWay = true;
        break;
    }
    const RtspHeaderList headers = playHeaders(from, beginNs);
    m_scaleChanged = false;
    m_sinceProgress.start();
    m_sincePacket.start();
    m_tickTimer.start(std::clamp(m_request.silenceTimeoutMs / 8, 20, 250));
    request("PLAY", m_aggregateUri, headers);
}

qint64 StreamSession::arrivalTimeNs() const
{
    return QDateTime::currentMSecsSinceEpoch() * nsPerMs + m_request.clockSkewNs;
}

void StreamSession::sendPause()
{
    m_phase = Phase::Pausing;
    request("PAUSE", m_aggregateUri);
}

void StreamSession::sendKeepAlive()
{
    const QByteArray method = m_hasGetParameter ? QByteArrayLiteral("GET_PARAMETER") : QByteArrayLiteral("OPTIONS");
    m_connection->send(m_requester->send({method, m_aggregateUri, {}}));
}

void StreamSession::messageReceived(const RtspMessage& message)
{
    if (!message.isResponse()) {
        peerRequest(message);
        return;
    }
    RtspRequest request;
    // 1xx only says that the answer takes longer.
    if (message.status < 200 || !m_requester->takeAnswered(message, request))
        return;
    answered(message, request);
}

void StreamSession::packetReceived(std::uint8_t channel, const std::uint8_t* data, std::size_t bytes)
{
    if (!m_receiver || m_phase < Phase::Play || isSeeking())
        return;
    const MediaLimit limit = m_receiver->packet(channel, data, bytes);
    if (limit != MediaLimit::None) {
        mediaLimitPassed(limit);
    } else if (m_batchEmitted) {
        m_batchEmitted = false;
        checkEnd();
    }
}

void StreamSession::socketDrained()
{
    if (!isStreaming())
        return;
    // What comes in real time should not wait for its batch to fill up.
    if (m_request.rateControl)
        m_receiver->flush();
    checkEnd();
}

bool StreamSession::mayRead() const
{
    // Live pictures cannot wait at the device: what finds no room is dropped here.
    const bool hasRoom = !m_gate.isClosed() || !m_request.replay || isSeeking();
    return m_phase != Phase::Ended && !m_heldBack && hasRoom;
}

void StreamSession::certificateRefused(const QSslCertificate& certificate, const QByteArray& keySha256,
                                       const QString& reason)
{
    emit certificateJudged(certificate, keySha256, reason);
}

void StreamSession::connectionLost(const Error& error)
{
    if (isStreaming() && error.kind == ErrorKind::BrokenOff)
        endBy(EndCause::Closed, error);
    else
        fail(error);
}

bool StreamSession::isStreaming() const
{
    return m_phase >= Phase::Play && m_phase <= Phase::Resuming;
}

void StreamSession::emitBatch(const QByteArray& batch)
{
    if (m_phase == Phase::Ended)
        return;
    if (!m_playingTold) {
        m_playingTold = true;
        emit playing();
    }
    m_gate.spend(batch.size());
    m_batchEmitted = true;
    if (!m_request.replay && m_gate.isClosed())
        m_receiver->setDropping(true);
    emit packets(batch);
}

EndPosition StreamSession::position() const
{
    EndPosition position;
    position.lastTimeNs = m_receiver ? m_receiver->lastTimeNs() : 0;
    position.intervalNs = m_receiver ? m_receiver->intervalNs() : 0;
    position.widestStepNs = m_receiver ? m_receiver->widestStepNs() : 0;
    position.endNs = m_request.endNs;
    position.recordingEndNs = m_request.recordingEndNs;
    return position;
}

void StreamSession::checkEnd()
{
    if (!isStreaming() || isSeeking())
        return;
    if (!m_request.replay) {
        if (m_receiver->allBye())
            endBy(EndCause::TornDown);
        return;
    }
    const qint64 endNs = m_request.endNs;
    if (endNs != 0 && (m_receiver->allReached(endNs) || m_receiver->leadReached(endNs + trailingFootageNs)))
        endBy(EndCause::ReachedEnd);
    else if (m_receiver->allTerminal() || m_receiver->allBye())
        endBy(EndCause::Terminal);
}

void StreamSession::tick()
{
    if (!isStreaming())
        return;
    if (mayRead())
        m_receiver->flush();
    if (m_phase == Phase::Ended)
        return;
    const quint64 packets = m_receiver->packets();
    const qint64 bytes = m_connection->bytesReceived();
    const bool nothingCanCome = !mayRead() || m_phase == Phase::Paused;
    if (packets == m_seenPackets && !nothingCanCome) {
        const MediaLimit limit = m_receiver->giveUpWaiting();
        if (limit != MediaLimit::None)
            mediaLimitPassed(limit);
        if (m_phase == Phase::Ended)
            return;
    }
    if (packets != m_seenPackets || nothingCanCome) {
        m_sinceProgress.restart();
        m_sincePacket.restart();
    } else if (bytes != m_seenBytes && m_connection->insidePacket()) {
        m_sinceProgress.restart();
    }
    m_seenPackets = packets;
    m_seenBytes = bytes;
    if (m_phase != Phase::Playing || nothingCanCome)
        return;

    const qint64 silenceMs = m_sinceProgress.elapsed();
    const qint64 endNs = m_request.endNs;
    if (silenceMs >= trailingSilenceMs && m_receiver->leadTerminal())
        endBy(EndCause::Terminal);
    else if (silenceMs >= trailingSilenceMs && endNs != 0 && m_receiver->leadReached(endNs))
        endBy(EndCause::ReachedEnd);
    else if (silenceMs >= std::min(endSilenceMs, m_request.silenceTimeoutMs) && m_request.replay && isWhole(position()))
        endBy(EndCause::Silence);
    else if (silenceMs >= m_request.silenceTimeoutMs || m_sincePacket.elapsed() >= packetTimeoutMs)
        endBy(EndCause::Silence, {ErrorKind::TimedOut, StreamClient::tr("%1 has stopped sending.").arg(host()),
                                  QStringLiteral("no packet for %1 ms").arg(m_sincePacket.elapsed())});
}

void StreamSession::answerTimedOut()
{
    // An answer behind bytes that nobody may read yet is not late.
    if (!mayRead()) {
        m_answerTimer.start(m_request.answerTimeoutMs);
        return;
    }
    fail({ErrorKind::TimedOut,
          StreamClient::tr("%1 did not answer within %2 s.")
              .arg(host(), QString::number(m_request.answerTimeoutMs / 1000)),
          QStringLiteral("phase %1").arg(static_cast<int>(m_phase))});
}

void StreamSession::mediaLimitPassed(MediaLimit limit)
{
    const QString what =
        limit == MediaLimit::UnitTooLarge
            ? StreamClient::tr("a picture beyond the limit of %1 MiB").arg(vav::maxPayloadBytes / (1024 * 1024))
            : StreamClient::tr("a picture beyond the limit of %1 NAL units").arg(AccessUnitAssembler::maxNalUnits);
    fail({ErrorKind::Corrupt, StreamClient::tr("%1 sent %2.").arg(host(), what), QStringLiteral("media limit")});
}

void StreamSession::endBy(EndCause cause, const Error& error)
{
    if (m_phase == Phase::Ended)
        return;
    m_receiver->finish();
    if (m_receiver->frames() > 0) {
        const StreamOutcome end = judgeEnd(cause, position());
        finish(end, end == StreamOutcome::Broken ? error : Error());
    } else if (cause == EndCause::Closed || cause == EndCause::Silence) {
        finish(StreamOutcome::Failed, error);
    } else {
        const QString text = m_request.replay ? StreamClient::tr("%1 has nothing recorded for the requested time.")
                                              : StreamClient::tr("%1 has ended the live video.");
        finish(StreamOutcome::EndByDevice,
               {ErrorKind::NotFound, text.arg(host()), QStringLiteral("end without a frame")});
    }
}

void StreamSession::fail(const Error& error)
{
    if (m_phase == Phase::Ended)
        return;
    if (m_receiver)
        m_receiver->finish();
    finish(m_receiver && m_receiver->frames() > 0 ? StreamOutcome::Broken : StreamOutcome::Failed, error);
}

void StreamSession::finish(StreamOutcome end, const Error& error)
{
    // A slot that took the last batch may have stopped the stream.
    if (m_phase == Phase::Ended)
        return;
    m_phase = Phase::Ended;
    shutDown();
    emit ended(end, error);
}

void StreamSession::shutDown()
{
    m_answerTimer.stop();
    m_keepAliveTimer.stop();
    m_tickTimer.stop();
    if (!m_connection)
        return;
    if (m_requester->hasSession())
        m_connection->send(m_requester->send({"TEARDOWN", m_aggregateUri, {}}));
    m_connection->close();
    m_bytesBefore += m_connection->bytesReceived();
    m_connection->deleteLater();
    m_connection = nullptr;
}

} // namespace vms_sdk::rtsp
