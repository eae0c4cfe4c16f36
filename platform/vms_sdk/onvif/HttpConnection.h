#pragma once

#include "HttpAnswerReader.h"
#include "TlsCheck.h"

#include <QObject>
#include <QSslSocket>
#include <QTimer>

namespace vms_sdk::onvif {

/// Where a connection leads.
struct HttpPeer
{
    QString host;
    quint16 port = 80;
    bool isTls = false;

    bool operator==(const HttpPeer& other) const
    {
        return host == other.host && port == other.port && isTls == other.isTls;
    }
    QByteArray hostHeader() const;
    QString shown() const { return QString::fromLatin1(hostHeader()); }
};

struct HttpTimeouts
{
    int connectMs = 10'000;
    int answerMs = 30'000; ///< from the request to the last byte of its answer
    int idleMs = 15'000;   ///< a kept connection that nobody uses is closed
};

struct HttpRequest
{
    QByteArray path;
    QVector<QPair<QByteArray, QByteArray>> headers;
    QByteArray body;
};

/// One connection to a device, one POST at a time, kept open between them. Lives on the thread that made it; owned by
/// its maker. After post() exactly one of answered() and failed() comes, never from inside post(). Nothing is sent to a
/// peer that TlsCheck refuses. A kept connection that the device has closed meanwhile is opened again once, without a
/// word.
class HttpConnection final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(HttpConnection)

public:
    HttpConnection(HttpPeer peer, const TlsPolicy& tls, HttpTimeouts timeouts, QObject* parent = nullptr);
    ~HttpConnection() override;

    const HttpPeer& peer() const { return m_peer; }
    void post(const HttpRequest& request);
    /// It has served a request and may serve another one.
    bool isKept() const { return m_isIdle; }

signals:
    void answered(const vms_sdk::onvif::HttpAnswer& answer);
    void failed(const vms_sdk::Error& error);
    void certificateRefused(const QSslCertificate& certificate, const QByteArray& keySha256, const QString& reason);
    /// The connection closed while it had nothing to do.
    void idleClosed();

private:
    void open();
    void send();
    void read();
    void onSslErrors(const QList<QSslError>& errors);
    void onEncrypted();
    void onSocketError(QAbstractSocket::SocketError error);
    void onDisconnected();
    void onTimeout();
    void refuseCertificate(const QString& reason);
    void finishWith(HttpAnswerReader::Status status);
    void fail(const Error& error);
    bool reopenReused();

    const HttpPeer m_peer;
    const TlsCheck m_tlsCheck;
    const HttpTimeouts m_timeouts;
    QSslSocket m_socket;
    QTimer m_timer;
    HttpRequest m_request;
    HttpAnswerReader m_reader;
    bool m_isBusy = false;
    bool m_isIdle = false;
    bool m_isReused = false; ///< the request went out on a connection that had served another one
};

} // namespace vms_sdk::onvif
