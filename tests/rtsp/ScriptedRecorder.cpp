#include "ScriptedRecorder.h"

#include "RtspHeaders.h"

#include <QSslSocket>
#include <QTimer>

#include <sys/socket.h>

#include <cstring>
#include <utility>

using namespace vms_sdk::rtsp;

namespace rtptest {
namespace {

QByteArray toArray(const Bytes& bytes)
{
    return QByteArray(reinterpret_cast<const char*>(bytes.data()), static_cast<int>(bytes.size()));
}

constexpr int soundSamples = 320; ///< of a picture's 40 ms at 8 kHz

} // namespace

ScriptedRecorder::ScriptedRecorder(Script script)
    : m_script(std::move(script))
{
    listen(QHostAddress::LocalHost);
}

ScriptedRecorder::~ScriptedRecorder()
{
    if (m_socket)
        m_socket->disconnect(this);
}

QUrl ScriptedRecorder::url(const QString& host) const
{
    QUrl url(QStringLiteral("rtsp://h/replay"));
    if (m_tls.isNull())
        url.setScheme(QStringLiteral("rtsp"));
    else
        url.setScheme(QStringLiteral("rtsps"));
    url.setHost(host);
    url.setPort(serverPort());
    return url;
}

QByteArray ScriptedRecorder::payload(int picture) const
{
    return toArray(h264Nal(picture % 25 == 0 ? 5 : 1, m_script.pictureBytes, static_cast<std::uint8_t>(picture)));
}

QByteArray ScriptedRecorder::sound(int picture)
{
    return QByteArray(soundSamples, static_cast<char>(picture));
}

QByteArray ScriptedRecorder::videoLines()
{
    return "m=video 0 RTP/AVP 96\r\na=rtpmap:96 H264/90000\r\na=fmtp:96 sprop-parameter-sets=" +
           toArray(sps640()).toBase64() + ',' + toArray(pps()).toBase64() + "\r\n";
}

QByteArray ScriptedRecorder::description() const
{
    if (!m_script.sdp.isEmpty())
        return m_script.sdp;
    return "v=0\r\n" + videoLines() + "a=control:video\r\n" +
           (m_script.offersSound || m_script.hasSound ? "m=audio 0 RTP/AVP 0\r\na=control:audio\r\n" : "");
}

int ScriptedRecorder::count(const char* method) const
{
    int sum = 0;
    for (const RtspMessage& request : requests)
        sum += request.method == method;
    return sum;
}

RtspMessage ScriptedRecorder::firstOf(const char* method) const
{
    for (const RtspMessage& request : requests)
        if (request.method == method)
            return request;
    return {};
}

RtspMessage ScriptedRecorder::last(const char* method) const
{
    for (int i = requests.size() - 1; i >= 0; --i)
        if (requests.at(i).method == method)
            return requests.at(i);
    return {};
}

void ScriptedRecorder::incomingConnection(qintptr handle)
{
    ++connections;
    m_reader = std::make_unique<RtspReader>();
    if (m_tls.isNull()) {
        m_socket = new QTcpSocket(this);
        m_socket->setSocketDescriptor(handle);
    } else {
        auto* socket = new QSslSocket(this);
        m_socket = socket;
        socket->setSslConfiguration(m_tls);
        socket->setSocketDescriptor(handle);
        socket->startServerEncryption();
    }
    connect(m_socket, &QTcpSocket::readyRead, this, &ScriptedRecorder::read);
}

void ScriptedRecorder::read()
{
    const QByteArray bytes = m_socket->readAll();
    bytesHeard += bytes.size();
    std::memcpy(m_reader->writeArea(), bytes.constData(), static_cast<std::size_t>(bytes.size()));
    m_reader->commit(static_cast<std::size_t>(bytes.size()));
    while (m_reader->next() == RtspReader::Event::Message) {
        const RtspMessage request = m_reader->takeMessage();
        if (request.isResponse())
            continue;
        requests.append(request);
        answer(request);
    }
}

void ScriptedRecorder::answer(const RtspMessage& request)
{
    if (request.method == m_script.silentOn)
        return;
    if (m_script.isDeaf) {
        m_socket->setReadBufferSize(1);
        m_socket->disconnect(this);
    }
    if (!m_script.rawAnswer.isEmpty()) {
        write(m_script.rawAnswer);
        auto* trickle = new QTimer(m_socket);
        connect(trickle, &QTimer::timeout, this, [this] { m_socket->write(m_script.rawAnswer.right(1)); });
        trickle->start(20);
        return;
    }
    if (!m_script.challenges.isEmpty()) {
        const QByteArray challenge = m_script.challengeForEver && m_script.challenges.size() == 1
                                         ? m_script.challenges.first()
                                         : m_script.challenges.takeFirst();
        reply(request, 401, {RtspHeader("WWW-Authenticate", challenge)});
        return;
    }
    if (m_script.refusals.contains(request.method)) {
        reply(request, m_script.refusals.value(request.method));
        return;
    }
    if (!m_script.knowsReplay && request.hasHeader("Require")) {
        reply(request, 551, {RtspHeader("Unsupported", request.header("Require"))});
        return;
    }
    if (request.method == "OPTIONS") {
        reply(request, 200, {RtspHeader("Public", "DESCRIBE, SETUP, PLAY, PAUSE, TEARDOWN, GET_PARAMETER")});
    } else if (request.method == "DESCRIBE" && !m_script.redirectTo.isEmpty()) {
        reply(request, 302, {RtspHeader("Location", m_script.redirectTo)});
    } else if (request.method == "DESCRIBE") {
        reply(request, 200, {RtspHeader("Content-Type", "application/sdp")}, description());
    } else if (request.method == "SETUP" && request.uri.endsWith("audio") && !m_script.hasSound) {
        reply(request, 404);
    } else if (request.method == "SETUP") {
        const QByteArray channels = request.uri.endsWith("audio") ? "6-7" : "4-5";
        reply(request, 200,
              {RtspHeader("Transport", "RTP/AVP/TCP;unicast;interleaved=" + channels),
               RtspHeader("Session", "s1;timeout=" + QByteArray::number(m_script.sessionTimeoutS))});
    } else if (request.method == "PLAY") {
        std::int64_t fromNs = 0;
        std::int64_t toNs = 0;
        const bool hasRange = parseClockRange(request.header("Range"), fromNs, toNs);
        if (m_next > 0 && m_script.resumeNeedsRange && !hasRange) {
            reply(request, 457);
            return;
        }
        if (m_playing && m_script.playNeedsPause) {
            reply(request, 455);
            return;
        }
        // Begins at the key frame before, as recorders do.
        if (hasRange)
            m_next = static_cast<int>((fromNs - beginNs) / frameNs) / 25 * 25;
        const bool begins = !std::exchange(m_playing, true);
        if (begins && m_script.playsBeforeItAnswers)
            sendPictures();
        reply(request, 200);
        if (begins && !m_script.playsBeforeItAnswers)
            sendPictures();
    } else if (request.method == "PAUSE") {
        m_playing = false;
        reply(request, 200);
    } else {
        reply(request, 200);
    }
}

void ScriptedRecorder::reply(const RtspMessage& request, int status, RtspHeaderList headers, const QByteArray& body)
{
    RtspMessage message;
    message.status = status;
    message.reason = "Reason";
    message.headers = std::move(headers);
    message.headers.prepend(RtspHeader("CSeq", request.header("CSeq")));
    message.body = body;
    const QByteArray answer = message.serialized();
    write(m_script.dress ? m_script.dress(request, answer) : answer);
}

void ScriptedRecorder::write(const QByteArray& bytes)
{
    const int piece = m_script.piecesOf > 0 ? m_script.piecesOf : bytes.size();
    for (int at = 0; at < bytes.size() && m_socket->isOpen(); at += piece) {
        m_socket->write(bytes.mid(at, piece));
        if (m_script.piecesOf > 0)
            m_socket->flush();
    }
}

void ScriptedRecorder::sendPictures()
{
    if (!m_playing || m_socket->state() != QAbstractSocket::ConnectedState)
        return;
    QByteArray bytes;
    for (int i = 0; i < m_script.picturesAtOnce && m_next < m_script.pictures; ++i, ++m_next)
        bytes += picturePackets(m_next);
    write(bytes);
    if (m_next == m_script.pictures) {
        m_playing = false;
        sendEnd();
    } else {
        QTimer::singleShot(10, m_socket, [this] { sendPictures(); });
    }
}

QByteArray ScriptedRecorder::picturePackets(int picture)
{
    const bool isLast = picture + 1 == m_script.pictures;
    const QByteArray sent = payload(picture);
    const Bytes nal(sent.begin(), sent.end());
    const std::vector<Bytes> parts = m_script.packetize ? m_script.packetize(picture, nal) : fragments(nal, 1'400);
    QByteArray bytes;
    Rtp header;
    header.withReplay = !m_script.withoutTimes;
    header.ntpTime = ntpOf(beginNs + picture * frameNs);
    header.replayFlags = isLast && m_script.end == StreamEnd::Terminal ? Terminal : 0;
    for (std::size_t part = 0; part < parts.size(); ++part) {
        Rtp each = header;
        each.sequence = m_sequence++;
        each.timestamp = static_cast<std::uint32_t>(picture) * 3'600;
        each.marker = part + 1 == parts.size();
        if (m_script.mark)
            m_script.mark(&each, picture, part);
        bytes += toArray(interleaved(m_script.channel, rtp(each, parts[part])));
    }
    if (m_script.hasSound) {
        const QByteArray samples = sound(picture);
        header.payloadType = 0;
        header.sequence = m_soundSequence++;
        header.timestamp = static_cast<std::uint32_t>(picture) * soundSamples;
        header.marker = false;
        header.ssrc = 7;
        bytes += toArray(interleaved(6, rtp(header, Bytes(samples.begin(), samples.end()))));
    }
    return bytes;
}

void ScriptedRecorder::sendEnd()
{
    switch (m_script.end) {
    case StreamEnd::Terminal:
    case StreamEnd::Silence:
        break;
    case StreamEnd::Bye:
        write(toArray(interleaved(5, bye())));
        break;
    case StreamEnd::TearDown:
        write("TEARDOWN rtsp://h/replay RTSP/1.0\r\nCSeq: 1\r\n\r\n");
        break;
    case StreamEnd::Announce:
        write("ANNOUNCE rtsp://h/replay RTSP/1.0\r\nCSeq: 1\r\nx-notice: 2101 End-of-Stream Reached\r\n\r\n");
        break;
    case StreamEnd::Redirect:
        write("REDIRECT rtsp://h/replay RTSP/1.0\r\nCSeq: 1\r\nLocation: rtsp://elsewhere/replay\r\n\r\n");
        break;
    case StreamEnd::Fin:
        m_socket->disconnectFromHost();
        break;
    case StreamEnd::Rst:
        // A reset drops what is still under way, so it waits a little.
        QTimer::singleShot(50, m_socket, [this] {
            const linger atOnce = {1, 0};
            setsockopt(static_cast<int>(m_socket->socketDescriptor()), SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
            m_socket->abort();
        });
        break;
    case StreamEnd::HalfPacket:
        write(QByteArray("$\x04\x40\x00", 4) + "half");
        break;
    }
}

} // namespace rtptest
