#include "SoapClient.h"

#include "UsernameToken.h"

#include <algorithm>
#include <new>

namespace vms_sdk::onvif {

namespace {

bool isHttp(const QUrl& url)
{
    return url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
}

HttpPeer peerOf(const QUrl& endpoint)
{
    const bool isTls = endpoint.scheme() == QLatin1String("https");
    return {endpoint.host(), static_cast<quint16>(endpoint.port(isTls ? 443 : 80)), isTls};
}

bool isRedirect(int status)
{
    return status == 301 || status == 302 || status == 303 || status == 307 || status == 308;
}

} // namespace

struct SoapClient::Call
{
    quint64 id = 0;
    QUrl endpoint;
    OnvifRequest request;
    Auth auth = Auth::None;
    Handler handler;
    HttpConnection* connection = nullptr;
    int redirects = 0;
    int loginRounds = 0;
    int loginGeneration = 0; ///< of the challenge that the last try answered, 0: none
};

struct SoapClient::HttpLogin
{
    HttpPeer peer;
    rtsp::DigestAuthenticator authenticator;
    int generation = 0; ///< challenges taken so far
};

SoapClient::SoapClient(Login login, SoapLimits limits, Clock clock, QObject* parent)
    : QObject(parent)
    , m_login(std::move(login))
    , m_limits(limits)
    , m_clock(std::move(clock))
{}

SoapClient::~SoapClient() = default;

quint64 SoapClient::call(const QUrl& endpoint, const OnvifRequest& request, Auth auth, Handler handler)
{
    auto call = std::make_shared<Call>();
    call->id = ++m_lastCallId;
    call->endpoint = endpoint;
    call->request = request;
    call->auth = auth;
    call->handler = std::move(handler);
    m_calls.emplace(call->id, call);
    m_waiting.enqueue(call->id);
    QMetaObject::invokeMethod(
        this, [this] { startNext(); }, Qt::QueuedConnection);
    return call->id;
}

void SoapClient::cancel(quint64 callId)
{
    const auto found = m_calls.find(callId);
    if (found == m_calls.end())
        return;
    const CallPtr call = found->second;
    m_calls.erase(found);
    m_waiting.removeAll(callId);
    if (call->connection != nullptr) {
        // What the device still sends belongs to nobody.
        call->connection->disconnect(this);
        call->connection->deleteLater();
        call->connection = nullptr;
        --m_running;
        startNext();
    }
}

void SoapClient::startNext()
{
    while (m_running < m_limits.connections && !m_waiting.isEmpty()) {
        const auto found = m_calls.find(m_waiting.dequeue());
        if (found == m_calls.end())
            continue;
        ++m_running;
        attempt(CallPtr(found->second));
    }
}

void SoapClient::attempt(const CallPtr& call)
{
    HttpConnection* connection = connectionTo(peerOf(call->endpoint));
    call->connection = connection;
    connect(connection, &HttpConnection::answered, this,
            [this, call](const HttpAnswer& answer) { onAnswered(call, answer); });
    connect(connection, &HttpConnection::failed, this,
            [this, call](const Error& error) { finish(call, SoapAnswer(error)); });
    connect(connection, &HttpConnection::certificateRefused, this, &SoapClient::certificateRefused);
    connection->post(httpRequest(*call));
}

HttpConnection* SoapClient::connectionTo(const HttpPeer& peer)
{
    const auto kept = std::find_if(m_kept.begin(), m_kept.end(),
                                   [&](const HttpConnection* connection) { return connection->peer() == peer; });
    if (kept == m_kept.end())
        return new HttpConnection(peer, m_login.tls, m_limits.timeouts, this);
    HttpConnection* connection = *kept;
    m_kept.erase(kept);
    connection->disconnect(this);
    return connection;
}

HttpRequest SoapClient::httpRequest(Call& call)
{
    HttpRequest http;
    http.path = call.endpoint.path(QUrl::FullyEncoded).toLatin1();
    if (http.path.isEmpty())
        http.path = "/";
    if (call.endpoint.hasQuery())
        http.path += '?' + call.endpoint.query(QUrl::FullyEncoded).toLatin1();
    http.headers.append(
        {"Content-Type", "application/soap+xml; charset=utf-8; action=\"" + call.request.action.toLatin1() + '"'});
    call.loginGeneration = 0;
    if (call.auth == Auth::None || m_login.user.isEmpty()) {
        http.body = call.request.toEnvelope(nullptr);
        return http;
    }
    const UsernameToken token = UsernameToken::make(m_login.user, m_login.password, m_clock() + m_clockSkewMs);
    http.body = call.request.toEnvelope(&token);
    HttpLogin& login = httpLoginTo(peerOf(call.endpoint));
    const QByteArray authorization = login.authenticator.authorization("POST", http.path);
    if (!authorization.isEmpty()) {
        http.headers.append({"Authorization", authorization});
        call.loginGeneration = login.generation;
    }
    return http;
}

void SoapClient::onAnswered(const CallPtr& call, const HttpAnswer& answer)
{
    if (answer.status == 401 && loginRound(call, answer))
        return;
    if (isRedirect(answer.status)) {
        redirect(call, answer);
        return;
    }
    if (answer.status != 401 && call->loginGeneration > 0)
        httpLoginTo(peerOf(call->endpoint)).authenticator.accepted();
    finish(call, readAnswer(answer));
}

void SoapClient::redirect(const CallPtr& call, const HttpAnswer& answer)
{
    const QUrl target = call->endpoint.resolved(QUrl::fromEncoded(answer.header("Location"), QUrl::StrictMode))
                            .adjusted(QUrl::RemoveUserInfo);
    const QString shownHost = shownText(target.host(), 80);
    if (++call->redirects > m_limits.redirects) {
        finish(call,
               SoapAnswer(
                   {ErrorKind::Corrupt, tr("The device redirects more than %1 times.").arg(m_limits.redirects), {}}));
    } else if (!isHttp(target) || target.host().isEmpty()) {
        finish(call,
               SoapAnswer({ErrorKind::Corrupt, tr("The device redirects to an address that cannot be used."), {}}));
    } else if (target.host() != call->endpoint.host()) {
        finish(call,
               SoapAnswer({ErrorKind::Refused,
                           tr("The device redirects to another host (%1), where the login is not sent.").arg(shownHost),
                           {}}));
    } else if (call->endpoint.scheme() == QLatin1String("https") && target.scheme() == QLatin1String("http")) {
        finish(call,
               SoapAnswer({ErrorKind::Refused,
                           tr("The device redirects from a secure to an open connection, where the login is not sent."),
                           {}}));
    } else {
        call->endpoint = target;
        release(*call);
        attempt(call);
    }
}

bool SoapClient::loginRound(const CallPtr& call, const HttpAnswer& answer)
{
    using Verdict = rtsp::DigestAuthenticator::Verdict;
    const QList<QByteArray> challenges = answer.allHeaders("WWW-Authenticate");
    if (challenges.isEmpty() || call->auth == Auth::None || m_login.user.isEmpty())
        return false;
    Error error{ErrorKind::LoginRefused, tr("The device refuses the user name or password."),
                QStringLiteral("HTTP 401 after %1 rounds").arg(call->loginRounds)};
    if (++call->loginRounds > m_limits.loginRounds) {
        error.message = tr("The device still asks for the login after %1 rounds.").arg(m_limits.loginRounds);
        finish(call, SoapAnswer(error));
        return true;
    }
    HttpLogin& login = httpLoginTo(peerOf(call->endpoint));
    // A challenge that another call has answered meanwhile need not be judged again.
    const bool isOutdated = call->loginGeneration != login.generation;
    const Verdict verdict = isOutdated ? Verdict::Retry : login.authenticator.challenged(challenges);
    if (verdict == Verdict::Retry) {
        if (!isOutdated)
            ++login.generation;
        release(*call);
        attempt(call);
        return true;
    }
    if (verdict == Verdict::BasicInClear)
        error.message = tr("The device wants the password in clear, which is not sent on an open connection.");
    else if (verdict == Verdict::NothingUsable)
        error.message = tr("The device offers no way of login that can be used.");
    else if (verdict == Verdict::TooManyRounds)
        error.message = tr("The device still asks for the login after %1 rounds.").arg(m_limits.loginRounds);
    finish(call, SoapAnswer(error));
    return true;
}

SoapAnswer SoapClient::readAnswer(const HttpAnswer& answer) const
{
    const bool isSuccess = answer.status >= 200 && answer.status < 300;
    const QString evidence = QStringLiteral("HTTP %1").arg(answer.status);
    // Faults come with a status of their own (400, 401, 500).
    if (isSuccess || answer.body.contains("Envelope")) {
        try {
            SoapAnswer soap = SoapAnswer::parse(answer.body, m_limits.xml);
            if (isSuccess || soap.isFault())
                return soap;
        } catch (const std::bad_alloc&) { // must not pass through the event loop
            return SoapAnswer(
                {ErrorKind::BrokenOff, tr("There is not enough memory to read what the device answers."), evidence});
        }
    }
    switch (answer.status) {
    case 401:
        return SoapAnswer({ErrorKind::LoginRefused, tr("The device refuses the user name or password."), evidence});
    case 404:
    case 405:
        return SoapAnswer({ErrorKind::NotFound, tr("There is no ONVIF service at this address."), evidence});
    case 423:
        return SoapAnswer({ErrorKind::AccountLocked, tr("The device has locked the account."), evidence});
    case 429:
    case 503:
        return SoapAnswer(
            {ErrorKind::LimitReached, tr("The device is busy or has reached a limit of its own."), evidence});
    default:
        return SoapAnswer(
            {ErrorKind::Refused, tr("The device refuses the request (HTTP %1).").arg(answer.status), evidence});
    }
}

void SoapClient::release(Call& call)
{
    HttpConnection* connection = std::exchange(call.connection, nullptr);
    if (connection == nullptr)
        return;
    connection->disconnect(this);
    if (!connection->isKept()) {
        connection->deleteLater();
        return;
    }
    m_kept.append(connection);
    connect(connection, &HttpConnection::idleClosed, this, [this, connection] {
        m_kept.removeAll(connection);
        connection->deleteLater();
    });
}

void SoapClient::finish(const CallPtr& call, const SoapAnswer& answer)
{
    release(*call);
    --m_running;
    m_calls.erase(call->id);
    startNext();
    // Last: the handler may destroy this client.
    const Handler handler = std::move(call->handler);
    handler(answer);
}

SoapClient::HttpLogin& SoapClient::httpLoginTo(const HttpPeer& peer)
{
    const auto found = std::find_if(m_httpLogins.begin(), m_httpLogins.end(),
                                    [&](const std::unique_ptr<HttpLogin>& login) { return login->peer == peer; });
    if (found != m_httpLogins.end())
        return **found;
    m_httpLogins.push_back(std::unique_ptr<HttpLogin>(
        new HttpLogin{peer, rtsp::DigestAuthenticator(m_login.user, m_login.password, peer.isTls), 0}));
    return *m_httpLogins.back();
}

} // namespace vms_sdk::onvif
