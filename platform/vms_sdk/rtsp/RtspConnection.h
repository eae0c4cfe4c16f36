#pragma once

#include "Error.h"
#include "RtspReader.h"
#include "VmsTypes.h"

#include <QObject>
#include <QSslCertificate>
#include <QTcpSocket>
#include <QTimer>
#include <QUrl>

class QSslError;

namespace vms_sdk::rtsp {

/// One TCP or TLS connection that speaks RTSP: connects, judges the peer's certificate before a single byte of RTSP is
/// sent, and hands what comes to its handler. Lives on the network thread of its session. The socket is read only while
/// the handler allows it; afterwards readMore() goes on, because no readyRead comes for bytes that are here already.
///
/// The life: open(), connectionReady(), messages and packets, connectionLost() at most once. After close() the handler
/// hears nothing more. It may be closed, but not deleted, from within a call of the handler.
class RtspConnection final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(RtspConnection)

public:
    class Handler
    {
    public:
        virtual void connectionReady() = 0;
        virtual void messageReceived(const RtspMessage& message) = 0;
        virtual void packetReceived(std::uint8_t channel, const std::uint8_t* data, std::size_t bytes) = 0;
        /// All bytes that are here were handed out; the next ones may take a while.
        virtual void socketDrained() = 0;
        virtual bool mayRead() const = 0;
        virtual void certificateRefused(const QSslCertificate& certificate, const QByteArray& keySha256,
                                        const QString& reason) = 0;
        virtual void connectionLost(const Error& error) = 0;

    protected:
        ~Handler() = default;
    };

    RtspConnection(Handler& handler, QObject* parent);
    ~RtspConnection() override;

    /// `url` is rtsp or rtsps; the host is named in errors.
    void open(const QUrl& url, const TlsPolicy& tls, int connectTimeoutMs);
    void send(const QByteArray& bytes);
    void readMore();
    /// The same when the event loop turns.
    void readSoon();
    void close();

    qint64 bytesReceived() const { return m_bytesReceived; }
    bool insidePacket() const { return m_reader.insidePacket(); }

private:
    enum class Stage : std::uint8_t { Idle, Connecting, Ready, Overrun, Closed };

    void connectPlain();
    void connectTls(const TlsPolicy& tls);
    void onConnectedTls();
    void onSslErrors(const QList<QSslError>& errors);
    void onSocketError(QAbstractSocket::SocketError error);
    void refuse(const QSslCertificate& certificate, const QString& reason);
    bool handOut();
    void readAll();
    void flush();
    void becomeReady();
    void lose(const Error& error);
    Error connectError(QAbstractSocket::SocketError error) const;
    Error readerError() const;

    Handler& m_handler;
    QTcpSocket* m_socket = nullptr;
    RtspReader m_reader;
    QTimer m_connectTimer;
    QString m_host;
    quint16 m_port = 0;
    QByteArray m_pin;
    QByteArray m_unsent; ///< of the present turn of reading
    Stage m_stage = Stage::Idle;
    bool m_reading = false;
    bool m_peerClosed = false;
    bool m_readScheduled = false;
    qint64 m_bytesReceived = 0;
};

} // namespace vms_sdk::rtsp
