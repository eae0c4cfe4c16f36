#include "HttpConnection.h"

#include "rtsp/PeerKey.h"

#include <utility>

namespace vms_sdk::onvif {

namespace {

constexpr qint64 socketBufferBytes = 64 * 1024;

} // namespace

QByteArray HttpPeer::hostHeader() const
{
    const QString name = host.contains(QLatin1Char(':')) ? QString(QLatin1Char('[') + host + QLatin1Char(']')) : host;
    const bool isDefaultPort = port == (isTls ? 443 : 80);
    return isDefaultPort ? name.toLatin1() : QString(name + QLatin1Char(':') + QString::number(port)).toLatin1();
}

HttpConnection::HttpConnection(HttpPeer peer, const TlsPolicy& tls, HttpTimeouts timeouts, QObject* parent)
    : QObject(parent)
    , m_peer(std::move(peer))
    , m_tlsCheck(tls)
    , m_timeouts(timeouts)
{
    m_timer.setSingleShot(true);
    m_socket.setReadBufferSize(socketBufferBytes);
    connect(&m_timer, &QTimer::timeout, this, &HttpConnection::onTimeout);
    connect(&m_socket, &QSslSocket::readyRead, this, &HttpConnection::read);
    connect(&m_socket, &QSslSocket::encrypted, this, &HttpConnection::onEncrypted);
    connect(&m_socket, &QSslSocket::disconnected, this, &HttpConnection::onDisconnected);
    connect(&m_socket, &QSslSocket::errorOccurred, this, &HttpConnection::onSocketError);
    connect(&m_socket, QOverload<const QList<QSslError>&>::of(&QSslSocket::sslErrors), this,
            &HttpConnection::onSslErrors);
    connect(&m_socket, &QSslSocket::connected, this, [this] {
        if (!m_peer.isTls)
            send();
    });
}

HttpConnection::~HttpConnection()
{
    m_socket.disconnect(this);
    m_socket.abort();
}

void HttpConnection::post(const HttpRequest& request)
{
    m_request = request;
    m_reader = HttpAnswerReader();
    m_isBusy = true;
    m_isIdle = false;
    m_isReused = m_socket.state() == QAbstractSocket::ConnectedState;
    if (m_isReused)
        send();
    else
        open();
}

void HttpConnection::open()
{
    m_timer.start(m_timeouts.connectMs);
    if (m_peer.isTls) {
        m_socket.setSslConfiguration(m_tlsCheck.configuration());
        m_socket.connectToHostEncrypted(m_peer.host, m_peer.port);
    } else {
        m_socket.connectToHost(m_peer.host, m_peer.port);
    }
}

void HttpConnection::send()
{
    m_timer.start(m_timeouts.answerMs);
    QByteArray head = "POST " + m_request.path + " HTTP/1.1\r\nHost: " + m_peer.hostHeader() + "\r\n";
    for (const auto& header : qAsConst(m_request.headers))
        head += header.first + ": " + header.second + "\r\n";
    head += "Content-Length: " + QByteArray::number(m_request.body.size()) + "\r\n\r\n";
    m_socket.write(head);
    m_socket.write(m_request.body);
}

void HttpConnection::read()
{
    if (!m_isBusy) {
        // Nobody asked: what this peer sends on its own cannot be an answer.
        m_socket.abort();
        return;
    }
    HttpAnswerReader::Status status = HttpAnswerReader::Status::NeedsMore;
    while (status == HttpAnswerReader::Status::NeedsMore && m_socket.bytesAvailable() > 0)
        status = m_reader.feed(m_socket.read(socketBufferBytes));
    finishWith(status);
}

void HttpConnection::finishWith(HttpAnswerReader::Status status)
{
    if (status == HttpAnswerReader::Status::Failed) {
        fail(m_reader.error());
    } else if (status == HttpAnswerReader::Status::Done) {
        m_isBusy = false;
        const HttpAnswer answer = m_reader.answer();
        m_reader = HttpAnswerReader();
        if (answer.keepsConnection && m_socket.state() == QAbstractSocket::ConnectedState) {
            m_isIdle = true;
            m_timer.start(m_timeouts.idleMs);
        } else {
            m_timer.stop();
            m_socket.abort();
        }
        emit answered(answer);
    }
}

void HttpConnection::onSslErrors(const QList<QSslError>& errors)
{
    const QString refusal = m_tlsCheck.refusal(m_socket.peerCertificate(), errors);
    if (refusal.isEmpty())
        m_socket.ignoreSslErrors();
    else
        refuseCertificate(refusal);
}

void HttpConnection::onEncrypted()
{
    // Errors were judged when they came; here the pin is, also for a certificate that has none.
    const QString refusal = m_tlsCheck.refusal(m_socket.peerCertificate(), {});
    if (refusal.isEmpty())
        send();
    else
        refuseCertificate(refusal);
}

void HttpConnection::refuseCertificate(const QString& reason)
{
    const QSslCertificate certificate = m_socket.peerCertificate();
    emit certificateRefused(certificate, rtsp::peerKeySha256(certificate), reason);
    fail({ErrorKind::CertificateRefused, tr("The device at %1 is not trusted: %2.").arg(m_peer.shown(), reason), {}});
}

bool HttpConnection::reopenReused()
{
    if (!m_isBusy || !m_isReused || m_reader.hasBegun())
        return false;
    m_isReused = false;
    // Not from inside the socket's own signal.
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (m_isBusy) {
                m_socket.abort();
                open();
            }
        },
        Qt::QueuedConnection);
    return true;
}

void HttpConnection::onSocketError(QAbstractSocket::SocketError error)
{
    if (!m_isBusy || error == QAbstractSocket::RemoteHostClosedError || reopenReused())
        return; // a close is judged in onDisconnected(), after what came before it was read
    const QString reason = m_socket.errorString();
    if (m_socket.state() == QAbstractSocket::ConnectedState || m_reader.hasBegun())
        fail({ErrorKind::BrokenOff, tr("The connection to %1 broke off.").arg(m_peer.shown()), reason});
    else if (error == QAbstractSocket::SslHandshakeFailedError)
        fail(
            {ErrorKind::CertificateRefused, tr("No secure connection to %1: %2.").arg(m_peer.shown(), reason), reason});
    else
        fail({ErrorKind::Unreachable, tr("The device at %1 cannot be reached: %2.").arg(m_peer.shown(), reason),
              reason});
}

void HttpConnection::onDisconnected()
{
    if (!m_isBusy) {
        m_timer.stop();
        if (std::exchange(m_isIdle, false))
            emit idleClosed();
        return;
    }
    if (reopenReused())
        return;
    if (m_peer.isTls && !m_socket.isEncrypted() && !m_reader.hasBegun()) {
        // A peer that finds no common version often just hangs up.
        const QString reason = m_socket.errorString();
        fail(
            {ErrorKind::CertificateRefused, tr("No secure connection to %1: %2.").arg(m_peer.shown(), reason), reason});
        return;
    }
    read();
    if (m_isBusy)
        finishWith(m_reader.end());
}

void HttpConnection::onTimeout()
{
    if (!m_isBusy) {
        m_socket.abort();
        return;
    }
    const bool isConnected =
        m_peer.isTls ? m_socket.isEncrypted() : m_socket.state() == QAbstractSocket::ConnectedState;
    if (isConnected)
        fail({ErrorKind::TimedOut,
              tr("The device at %1 did not answer within %2 s.").arg(m_peer.shown()).arg(m_timeouts.answerMs / 1000),
              {}});
    else
        fail({ErrorKind::Unreachable,
              tr("The device at %1 cannot be reached: no connection within %2 s.")
                  .arg(m_peer.shown())
                  .arg(m_timeouts.connectMs / 1000),
              {}});
}

void HttpConnection::fail(const Error& error)
{
    if (!m_isBusy)
        return;
    m_isBusy = false;
    m_timer.stop();
    m_socket.abort();
    // Queued, so that a request which fails at once does not answer from inside post().
    QMetaObject::invokeMethod(
        this, [this, error] { emit failed(error); }, Qt::QueuedConnection);
}

} // namespace vms_sdk::onvif
