#pragma once

#include "HttpConnection.h"
#include "OnvifRequests.h"
#include "SoapAnswer.h"

#include "rtsp/DigestAuthenticator.h"

#include <QObject>
#include <QQueue>
#include <QUrl>

#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace vms_sdk::onvif {

/// What a client may spend on one device.
struct SoapLimits
{
    HttpTimeouts timeouts;
    XmlLimits xml;
    int redirects = 5;
    int loginRounds = 3;
    int connections = 4;
};

/// SOAP 1.2 over HTTP to one device: WS-UsernameToken digest on the device's clock, HTTP digest where the device asks
/// for it, redirects, kept connections. Lives on the SOAP thread; owned by the device's session. Every call() is
/// answered exactly once, later, unless it was cancelled or the client is gone; a handler must not destroy the client.
/// The login goes to the device's own host only and never from https down to http: a device that redirects elsewhere
/// gets an error. No password reaches a log, an error or a URL. KDSoap makes the requests' payloads; its own transport
/// is not used, because it keeps an answer of any size before anyone can look at it.
class SoapClient final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SoapClient)

public:
    struct Login
    {
        QString user;
        QString password;
        TlsPolicy tls;
    };
    enum class Auth { None, Login };
    using Handler = std::function<void(const SoapAnswer&)>;
    using Clock = std::function<qint64()>; ///< ms since 1970 UTC

    SoapClient(Login login, SoapLimits limits, Clock clock, QObject* parent = nullptr);
    ~SoapClient() override;

    /// Device clock minus ours, for the tokens of later calls.
    void setClockSkewMs(qint64 skewMs) { m_clockSkewMs = skewMs; }

    /// Returns the call's number, never 0. `endpoint` is http or https, without user and password.
    quint64 call(const QUrl& endpoint, const OnvifRequest& request, Auth auth, Handler handler);
    void cancel(quint64 callId);

signals:
    void certificateRefused(const QSslCertificate& certificate, const QByteArray& keySha256, const QString& reason);

private:
    struct Call;
    using CallPtr = std::shared_ptr<Call>;

    struct HttpLogin;

    void startNext();
    void attempt(const CallPtr& call);
    HttpConnection* connectionTo(const HttpPeer& peer);
    HttpRequest httpRequest(Call& call);
    void onAnswered(const CallPtr& call, const HttpAnswer& answer);
    void redirect(const CallPtr& call, const HttpAnswer& answer);
    /// True when the call goes on with another try, or has been finished.
    bool loginRound(const CallPtr& call, const HttpAnswer& answer);
    void finish(const CallPtr& call, const SoapAnswer& answer);
    void release(Call& call);
    SoapAnswer readAnswer(const HttpAnswer& answer) const;
    HttpLogin& httpLoginTo(const HttpPeer& peer);

    const Login m_login;
    const SoapLimits m_limits;
    const Clock m_clock;
    qint64 m_clockSkewMs = 0;
    quint64 m_lastCallId = 0;
    std::map<quint64, CallPtr> m_calls; ///< running and waiting
    QQueue<quint64> m_waiting;
    QList<HttpConnection*> m_kept;
    int m_running = 0;
    std::vector<std::unique_ptr<HttpLogin>> m_httpLogins; ///< one a peer; the peers are ports of one host
};

} // namespace vms_sdk::onvif
