#include "RtspConnection.h"

#include "PeerKey.h"

#include <QSslConfiguration>
#include <QSslError>
#include <QSslSocket>

#include <new>

namespace vms_sdk::rtsp {
namespace {

constexpr int defaultPort = 554;
constexpr int defaultTlsPort = 322;
constexpr qint64 socketBufferBytes = 1024 * 1024;
/// Requests and answers that the peer does not take.
constexpr qint64 maxUnsentBytes = 256 * 1024;
/// After this much one stream lets the others of its thread have their turn.
constexpr qint64 maxBytesATurn = 4 * 1024 * 1024;

} // namespace

RtspConnection::RtspConnection(Handler& handler, QObject* parent)
    : QObject(parent)
    , m_handler(handler)
{
    m_connectTimer.setSingleShot(true);
    connect(&m_connectTimer, &QTimer::timeout, this, [this] {
        lose({ErrorKind::TimedOut, tr("%1 did not answer when a connection was tried.").arg(m_host),
              QStringLiteral("connect timeout")});
    });
}

RtspConnection::~RtspConnection()
{
    if (m_socket)
        m_socket->disconnect(this);
}

void RtspConnection::open(const QUrl& url, const TlsPolicy& tls, int connectTimeoutMs)
{
    const bool secure = url.scheme().compare(QLatin1String("rtsps"), Qt::CaseInsensitive) == 0;
    m_host = url.host();
    m_port = static_cast<quint16>(url.port(secure ? defaultTlsPort : defaultPort));
    m_stage = Stage::Connecting;
    m_connectTimer.start(connectTimeoutMs);
    if (secure)
        connectTls(tls);
    else
        connectPlain();
}

void RtspConnection::connectPlain()
{
    m_socket = new QTcpSocket(this);
    connect(m_socket, &QTcpSocket::connected, this, &RtspConnection::becomeReady);
    connect(m_socket, &QTcpSocket::readyRead, this, &RtspConnection::readMore);
    connect(m_socket, &QTcpSocket::errorOccurred, this, &RtspConnection::onSocketError);
    // The reader has a buffer of its own; another one in between would be one more copy of everything.
    m_socket->connectToHost(m_host, m_port, QIODevice::ReadWrite | QIODevice::Unbuffered);
}

void RtspConnection::connectTls(const TlsPolicy& tls)
{
    auto* socket = new QSslSocket(this);
    m_socket = socket;
    m_pin = tls.pinnedKeySha256;
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setProtocol(QSsl::TlsV1_2OrLater);
    configuration.setPeerVerifyMode(QSslSocket::VerifyPeer);
    if (!tls.caCertificates.isEmpty())
        configuration.addCaCertificates(tls.caCertificates);
    socket->setSslConfiguration(configuration);
    socket->setReadBufferSize(socketBufferBytes);
    connect(socket, &QSslSocket::encrypted, this, &RtspConnection::onConnectedTls);
    connect(socket, QOverload<const QList<QSslError>&>::of(&QSslSocket::sslErrors), this, &RtspConnection::onSslErrors);
    connect(socket, &QSslSocket::readyRead, this, &RtspConnection::readMore);
    connect(socket, &QSslSocket::errorOccurred, this, &RtspConnection::onSocketError);
    socket->connectToHostEncrypted(m_host, m_port);
}

void RtspConnection::onConnectedTls()
{
    auto* socket = qobject_cast<QSslSocket*>(m_socket);
    if (!m_pin.isEmpty() && peerKeySha256(socket->peerCertificate()) != m_pin) {
        refuse(socket->peerCertificate(), tr("The key of the recorder's certificate has changed."));
        return;
    }
    becomeReady();
}

void RtspConnection::onSslErrors(const QList<QSslError>& errors)
{
    auto* socket = qobject_cast<QSslSocket*>(m_socket);
    const QSslCertificate certificate = socket->peerCertificate();
    if (!m_pin.isEmpty() && peerKeySha256(certificate) == m_pin) {
        socket->ignoreSslErrors();
        return;
    }
    if (!m_pin.isEmpty())
        refuse(certificate, tr("The key of the recorder's certificate has changed."));
    else
        refuse(certificate, errors.isEmpty() ? QString() : errors.first().errorString());
}

void RtspConnection::refuse(const QSslCertificate& certificate, const QString& reason)
{
    m_handler.certificateRefused(certificate, peerKeySha256(certificate), reason);
    if (m_stage == Stage::Closed)
        return;
    lose(
        {ErrorKind::CertificateRefused, tr("The certificate of %1 is not trusted: %2").arg(m_host, reason), QString()});
}

void RtspConnection::becomeReady()
{
    m_connectTimer.stop();
    m_stage = Stage::Ready;
    m_socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    m_socket->setSocketOption(QAbstractSocket::KeepAliveOption, 1);
    m_handler.connectionReady();
}

void RtspConnection::send(const QByteArray& bytes)
{
    if (m_stage != Stage::Ready)
        return;
    m_unsent += bytes;
    // Answers to what is being read leave together.
    if (!m_reading)
        flush();
    if (m_unsent.size() + m_socket->bytesToWrite() <= maxUnsentBytes)
        return;
    // Not from within this call: the caller is not done.
    m_stage = Stage::Overrun;
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (m_stage == Stage::Overrun)
                lose({ErrorKind::Corrupt,
                      tr("%1 asks without reading the answers, beyond the limit of %2 bytes.")
                          .arg(m_host, QString::number(maxUnsentBytes)),
                      QString()});
        },
        Qt::QueuedConnection);
}

void RtspConnection::flush()
{
    if (m_socket && !m_unsent.isEmpty())
        m_socket->write(m_unsent);
    m_unsent.clear();
}

void RtspConnection::readMore()
{
    if (m_reading || m_stage != Stage::Ready)
        return;
    m_reading = true;
    bool isStarved = false;
    try {
        readAll();
    } catch (const std::bad_alloc&) { // must not pass through the event loop
        isStarved = true;
    }
    m_reading = false;
    if (isStarved)
        lose({ErrorKind::BrokenOff, tr("There is not enough memory to read what %1 sends.").arg(m_host), QString()});
    flush();
}

void RtspConnection::readSoon()
{
    if (m_readScheduled)
        return;
    m_readScheduled = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_readScheduled = false;
            readMore();
        },
        Qt::QueuedConnection);
}

void RtspConnection::readAll()
{
    qint64 turnBytes = 0;
    while (handOut() && m_handler.mayRead()) {
        if (turnBytes >= maxBytesATurn) {
            readSoon();
            break;
        }
        std::uint8_t* area = m_reader.writeArea();
        const qint64 bytes = m_socket->read(reinterpret_cast<char*>(area), static_cast<qint64>(m_reader.writeRoom()));
        if (bytes <= 0) {
            m_peerClosed = m_peerClosed || bytes < 0; // an unbuffered socket tells its end by this alone
            m_handler.socketDrained();
            if (m_peerClosed && m_stage == Stage::Ready) {
                m_reading = false;
                lose({ErrorKind::BrokenOff, tr("%1 closed the connection.").arg(m_host), m_socket->errorString()});
                return;
            }
            break;
        }
        m_reader.commit(static_cast<std::size_t>(bytes));
        m_bytesReceived += bytes;
        turnBytes += bytes;
    }
}

/// Hands out what the reader holds; true when it wants more bytes.
bool RtspConnection::handOut()
{
    while (m_stage == Stage::Ready && m_handler.mayRead()) {
        switch (m_reader.next()) {
        case RtspReader::Event::Packet:
            m_handler.packetReceived(m_reader.channel(), m_reader.packet(), m_reader.packetBytes());
            break;
        case RtspReader::Event::Message:
            m_handler.messageReceived(m_reader.takeMessage());
            break;
        case RtspReader::Event::NeedMore:
            return true;
        case RtspReader::Event::Failed:
            lose(readerError());
            return false;
        }
    }
    return false;
}

void RtspConnection::close()
{
    if (m_stage == Stage::Closed)
        return;
    m_connectTimer.stop();
    const bool wasReady = m_stage == Stage::Ready;
    m_stage = Stage::Closed;
    if (!m_socket)
        return;
    m_socket->disconnect(this);
    flush();
    if (wasReady)
        m_socket->flush();
    // Not aborted here: this may be a call from within the socket's own signal.
    m_socket->deleteLater();
    m_socket = nullptr;
}

void RtspConnection::onSocketError(QAbstractSocket::SocketError error)
{
    if (m_stage == Stage::Connecting) {
        lose(connectError(error));
        return;
    }
    if (error == QAbstractSocket::TemporaryError || error == QAbstractSocket::SocketTimeoutError)
        return;
    // What came before the end still counts; when reading is held back it is looked at later.
    m_peerClosed = true;
    readMore();
}

void RtspConnection::lose(const Error& error)
{
    if (m_stage == Stage::Closed)
        return;
    close();
    m_handler.connectionLost(error);
}

Error RtspConnection::connectError(QAbstractSocket::SocketError error) const
{
    const QString context = m_socket ? m_socket->errorString() : QString();
    switch (error) {
    case QAbstractSocket::ConnectionRefusedError:
        return {ErrorKind::Unreachable, tr("%1 refused the connection.").arg(m_host), context};
    case QAbstractSocket::HostNotFoundError:
        return {ErrorKind::Unreachable, tr("There is no host named %1.").arg(m_host), context};
    case QAbstractSocket::SocketTimeoutError:
        return {ErrorKind::TimedOut, tr("%1 did not answer when a connection was tried.").arg(m_host), context};
    case QAbstractSocket::SslHandshakeFailedError:
    case QAbstractSocket::SslInternalError:
    case QAbstractSocket::SslInvalidUserDataError:
        return {ErrorKind::Unsupported,
                tr("No secure connection to %1 is possible; it needs TLS 1.2 or newer.").arg(m_host), context};
    case QAbstractSocket::RemoteHostClosedError:
        // A peer that finds no common version often just hangs up.
        if (qobject_cast<QSslSocket*>(m_socket))
            return {ErrorKind::Unsupported, tr("%1 ended the attempt of a secure connection.").arg(m_host), context};
        return {ErrorKind::BrokenOff, tr("%1 closed the connection.").arg(m_host), context};
    default:
        return {ErrorKind::Unreachable, tr("%1 cannot be reached.").arg(m_host), context};
    }
}

Error RtspConnection::readerError() const
{
    QString what;
    switch (m_reader.failure()) {
    case RtspReader::Failure::LineTooLong:
        what = tr("a line longer than the limit of %1 bytes").arg(RtspReader::maxLineBytes);
        break;
    case RtspReader::Failure::TooManyHeaders:
        what = tr("an answer beyond the limit of %1 headers").arg(RtspReader::maxHeaders);
        break;
    case RtspReader::Failure::BodyTooLong:
        what = tr("an answer beyond the limit of %1 bytes").arg(RtspReader::maxBodyBytes);
        break;
    case RtspReader::Failure::BadContentLength:
        what = tr("an answer whose length is no number");
        break;
    default:
        what = tr("something that is no RTSP");
        break;
    }
    return {ErrorKind::Corrupt, tr("%1 sent %2.").arg(m_host, what), QStringLiteral("RTSP reader")};
}

} // namespace vms_sdk::rtsp
