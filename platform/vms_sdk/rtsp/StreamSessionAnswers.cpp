// The half of StreamSession that deals with what the recorder answers and asks.
#include "StreamSession.h"

#include "RtspHeaders.h"
#include "RtspRefusal.h"

#include <QUrl>

#include <utility>

namespace vms_sdk::rtsp {
namespace {

constexpr int maxRedirects = 5;
constexpr int statusUnauthorized = 401;
constexpr int statusSessionNotFound = 454;
constexpr int statusOptionNotSupported = 551;
constexpr qint64 believableReplayNs = 60'000'000'000;

bool isLimit(int status)
{
    return status == 453 || status == 503;
}

} // namespace

void StreamSession::answered(const RtspMessage& answer, const RtspRequest& request)
{
    const bool isKeepAlive = m_phase >= Phase::Playing && request.method != "PLAY" && request.method != "PAUSE";
    if (!isKeepAlive)
        m_answerTimer.stop();
    if (answer.status == statusUnauthorized) {
        // Keep-alives are not waited for: the stream itself is watched.
        if (!isKeepAlive)
            m_answerTimer.start(m_request.answerTimeoutMs);
        logIn(answer, request);
        return;
    }
    m_requester->authenticator().accepted();
    if (isKeepAlive) {
        if (answer.status == statusSessionNotFound)
            fail({ErrorKind::BrokenOff, StreamClient::tr("%1 does not know the session any more.").arg(host()),
                  QStringLiteral("454 to a keep-alive")});
        else if (answer.status >= 400 && request.method == "GET_PARAMETER" && std::exchange(m_hasGetParameter, false))
            sendKeepAlive(); // at once: half of the session's time is gone
        return;
    }
    if (answer.status >= 300 && answer.status < 400) {
        redirect(answer);
        return;
    }
    const bool refused = answer.status >= 400;
    if (refused && (retryPlain(answer, request) || resumeOtherwise(request)))
        return;

    switch (m_phase) {
    case Phase::Options:
        // A recorder need not know OPTIONS, and says with DESCRIBE what is wrong.
        if (isLimit(answer.status)) {
            fail(refusalError(answer, request, host()));
            return;
        }
        m_hasGetParameter = answer.headerList("Public").join().toUpper().contains("GET_PARAMETER");
        sendDescribe();
        break;
    case Phase::Describe:
        if (refused)
            fail(refusalError(answer, request, host()));
        else
            describeAnswered(answer);
        break;
    case Phase::Setup:
        // Sound is worth having, but not at the price of the pictures.
        if (refused && (m_receiver->hasTracks() || m_media.size() > 1) && !m_media[m_nextMedium].format.isVideo() &&
            !isLimit(answer.status)) {
            m_media.erase(m_media.begin() + static_cast<std::ptrdiff_t>(m_nextMedium));
            sendPlay(PlayFrom::Begin);
        } else if (refused) {
            fail(refusalError(answer, request, host()));
        } else {
            setupAnswered(answer);
        }
        break;
    case Phase::Play:
    case Phase::Resuming:
        if (refused)
            fail(refusalError(answer, request, host()));
        else
            playAnswered(answer);
        break;
    case Phase::Pausing:
        pauseAnswered(answer);
        break;
    default:
        break;
    }
}

void StreamSession::logIn(const RtspMessage& answer, const RtspRequest& request)
{
    const auto verdict = m_requester->authenticator().challenged(answer.headerList("WWW-Authenticate"));
    if (verdict != DigestAuthenticator::Verdict::Retry) {
        fail(loginError(verdict, host()));
        return;
    }
    m_connection->send(m_requester->send(request));
}

void StreamSession::redirect(const RtspMessage& answer)
{
    const QUrl target = m_url.resolved(QUrl::fromEncoded(answer.header("Location")));
    if (m_phase > Phase::Setup || !target.isValid() || !isRtsp(target)) {
        fail({ErrorKind::Refused, StreamClient::tr("%1 points to an address that is none of RTSP.").arg(host()),
              QStringLiteral("redirect")});
        return;
    }
    if (++m_redirects > maxRedirects) {
        fail({ErrorKind::Refused,
              StreamClient::tr("%1 redirects beyond the limit of %2 times.").arg(host(), QString::number(maxRedirects)),
              QStringLiteral("redirect")});
        return;
    }
    if (isRtspOverTls(m_url) && !isRtspOverTls(target)) {
        fail({ErrorKind::Refused, StreamClient::tr("%1 redirects from a secure to an open connection.").arg(host()),
              QStringLiteral("redirect")});
        return;
    }
    if (target.host().compare(m_url.host(), Qt::CaseInsensitive) != 0)
        m_mayLogIn = false;
    m_requester->setSession(QByteArray());
    shutDown();
    connectTo(target);
}

/// A recorder that does not know replay by that name may still play the range.
bool StreamSession::retryPlain(const RtspMessage& answer, const RtspRequest& request)
{
    const bool unknown = answer.status == statusOptionNotSupported || answer.hasHeader("Unsupported");
    if (!unknown || !m_requireReplay)
        return false;
    m_requireReplay = false;
    RtspHeaderList headers;
    for (const auto& header : request.headers)
        if (header.first != "Require" && header.first != "Rate-Control" && header.first != "Frames" &&
            header.first != "Immediate")
            headers.append(header);
    this->request(request.method, request.uri, headers);
    return true;
}

/// PLAY after PAUSE goes on where it was; a recorder that cannot is asked for the range from the last frame on. One
/// that takes no other range while it plays is paused before.
bool StreamSession::resumeOtherwise(const RtspRequest& request)
{
    if (m_phase != Phase::Resuming || request.method != "PLAY" || !m_request.replay)
        return false;
    if (m_playFrom == PlayFrom::Pause) {
        sendPlay(PlayFrom::LastFrame);
        return true;
    }
    if (m_playFrom != PlayFrom::Seek || m_pausesToSeek)
        return false;
    m_pausesToSeek = true;
    m_seekUnderWay = false;
    m_seekWanted = true;
    m_phase = Phase::Playing;
    followWishes();
    return true;
}

void StreamSession::describeAnswered(const RtspMessage& answer)
{
    SdpSession session;
    if (!parseSdp(answer.body, session)) {
        fail({ErrorKind::Corrupt, StreamClient::tr("%1 sent no readable description of the stream.").arg(host()),
              QStringLiteral("SDP of %1 bytes").arg(answer.body.size())});
        return;
    }
    QByteArray base = answer.header("Content-Base");
    if (base.isEmpty())
        base = answer.header("Content-Location");
    // Either may be relative to what was asked for.
    const QUrl baseUrl = QUrl::fromEncoded(base);
    if (base.isEmpty() || baseUrl.isRelative())
        base = requestUri(m_url.resolved(baseUrl));
    QByteArray refused;
    m_media = chooseMedia(session, base, m_request.audio, refused);
    if (m_media.empty()) {
        fail({ErrorKind::Unsupported,
              StreamClient::tr("%1 sends nothing that can be received: %2")
                  .arg(host(), QString::fromLatin1(refused.left(80))),
              QStringLiteral("SDP")});
        return;
    }
    m_aggregateUri = resolveControl(base, session.control);
    vav::StreamInfo names;
    names.beginNs = m_request.recordingBeginNs;
    names.endNs = m_request.recordingEndNs;
    names.channelName = m_request.channelName.left(256).toStdString();
    names.deviceName = m_request.deviceName.left(256).toStdString();
    m_receiver = std::make_unique<MediaReceiver>([this](const QByteArray& batch) { emitBatch(batch); }, names);
    if (!m_request.replay)
        m_receiver->setArrivalClock([this] { return arrivalTimeNs(); });
    m_nextMedium = 0;
    sendSetup();
}

void StreamSession::setupAnswered(const RtspMessage& answer)
{
    const auto asked = static_cast<std::uint8_t>(m_nextMedium * 2);
    const TransportAnswer transport = parseTransport(answer.header("Transport"), asked);
    if (!transport.interleaved) {
        fail({ErrorKind::Unsupported, StreamClient::tr("%1 does not send over TCP.").arg(host()),
              QStringLiteral("Transport")});
        return;
    }
    const SessionAnswer session = parseSession(answer.header("Session"));
    if (!session.id.isEmpty()) {
        m_requester->setSession(session.id);
        m_sessionTimeoutS = session.timeoutS;
    }
    const ChosenMedium& medium = m_media[m_nextMedium];
    m_receiver->addTrack(medium.format, medium.payloadType, transport.rtpChannel);
    if (++m_nextMedium < m_media.size())
        sendSetup();
    else
        sendPlay(PlayFrom::Begin);
}

void StreamSession::playAnswered(const RtspMessage& answer)
{
    readPlayAnswer(answer);
    m_phase = Phase::Playing;
    m_seekUnderWay = false;
    m_sinceProgress.restart();
    m_keepAliveTimer.start(m_sessionTimeoutS * 1000 / 2);
    if (!m_playingTold) {
        m_playingTold = true;
        emit playing();
    }
    followWishes();
}

void StreamSession::readPlayAnswer(const RtspMessage& answer)
{
    std::int64_t beginNs = 0;
    std::int64_t endNs = 0;
    if (parseClockRange(answer.header("Range"), beginNs, endNs))
        m_receiver->setRangeBegin(beginNs, believableReplayNs);
    for (const RtpInfoEntry& entry : parseRtpInfo(answer.header("RTP-Info"))) {
        if (!entry.hasRtpTime)
            continue;
        // Absolute or relative, its end is that of the control address.
        for (std::size_t i = 0; i < m_media.size(); ++i)
            if (m_media[i].uri == entry.url || (m_media.size() == 1) ||
                (!entry.url.isEmpty() && m_media[i].uri.endsWith('/' + entry.url)))
                m_receiver->setRtpInfo(i, entry.rtpTime);
    }
}

void StreamSession::pauseAnswered(const RtspMessage& answer)
{
    m_phase = Phase::Paused;
    m_heldBack = answer.status >= 400;
    m_receiver->flush();
    if (m_heldBack && !m_wantPaused)
        m_scaleChanged = false;
    followWishes();
}

void StreamSession::peerRequest(const RtspMessage& message)
{
    const QByteArray method = message.method.toUpper();
    const bool known = method == "OPTIONS" || method == "GET_PARAMETER" || method == "SET_PARAMETER" ||
                       method == "ANNOUNCE" || method == "TEARDOWN" || method == "REDIRECT";
    m_connection->send(m_requester->answerTo(message, known));
    if (m_phase < Phase::Play || m_phase == Phase::Ended)
        return;
    const bool isDescription = message.header("Content-Type").toLower().startsWith("application/sdp");
    if (method == "TEARDOWN" || (method == "ANNOUNCE" && !isDescription))
        endBy(EndCause::TornDown);
    else if (method == "REDIRECT")
        fail({ErrorKind::BrokenOff, StreamClient::tr("%1 moved the stream elsewhere.").arg(host()),
              QStringLiteral("REDIRECT")});
}

} // namespace vms_sdk::rtsp
