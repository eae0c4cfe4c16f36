#include "DeviceSession.h"

#include <utility>

namespace vms_sdk {

using namespace onvif;

namespace {

constexpr int defaultRtspPort = 554;
constexpr int defaultRtspsPort = 322;
// A direct source does not tell how many channels it has.
constexpr int maxDirectChannels = 1024;
// Devices tell their clock in whole seconds.
constexpr qint64 skewToleranceMs = 2000;

SoapLimits soapLimits(const SdkLimits& limits)
{
    SoapLimits soap;
    soap.timeouts.connectMs = limits.connectTimeoutMs;
    soap.timeouts.answerMs = limits.answerTimeoutMs;
    return soap;
}

} // namespace

DevStatus statusAfter(ErrorKind kind)
{
    switch (kind) {
    case ErrorKind::None:
        return DevStatus::Online;
    case ErrorKind::LoginRefused:
        return DevStatus::WrongLogin;
    case ErrorKind::Unreachable:
    case ErrorKind::TimedOut:
    case ErrorKind::BrokenOff:
    case ErrorKind::CertificateRefused:
        return DevStatus::Offline;
    case ErrorKind::LimitReached:
        return DevStatus::ConnectionLimit;
    case ErrorKind::NotActivated:
        return DevStatus::NotActive;
    case ErrorKind::AccountLocked:
        return DevStatus::Locked;
    default:
        return DevStatus::Unknown;
    }
}

bool isRefusal(const SoapAnswer& answer)
{
    const ErrorKind kind = answer.error().kind;
    return answer.isFault() && kind != ErrorKind::LoginRefused && kind != ErrorKind::AccountLocked &&
           kind != ErrorKind::NotActivated && kind != ErrorKind::LimitReached;
}

DeviceSession::DeviceSession(DevLogin login, const SdkLimits& limits, SoapClient::Clock clock, QObject* parent)
    : QObject(parent)
    , m_login(std::move(login))
    , m_limits(limits)
    , m_clock(std::move(clock))
    , m_client({m_login.user, m_login.password, m_login.tls}, soapLimits(limits), m_clock)
{
    connect(&m_client, &SoapClient::certificateRefused, this, &DeviceSession::certificateRefused);
    m_portTimer.setSingleShot(true);
    const auto portChecked = [this](const Error& error) {
        m_portTimer.stop();
        m_portCheck.abort();
        LoginResult result;
        result.error = error;
        result.info.devId = m_login.devId;
        result.info.name = m_login.name.isEmpty() ? m_login.address.host() : m_login.name;
        result.info.address = m_login.address;
        result.info.supportsBackup = true;
        loginDone(result);
    };
    const QString shownPeer = m_login.address.host();
    connect(&m_portCheck, &QTcpSocket::connected, this, [portChecked] { portChecked({}); });
    connect(&m_portCheck, &QTcpSocket::errorOccurred, this, [this, portChecked, shownPeer] {
        portChecked({ErrorKind::Unreachable,
                     tr("The device at %1 cannot be reached: %2.").arg(shownPeer, m_portCheck.errorString()),
                     {}});
    });
    connect(&m_portTimer, &QTimer::timeout, this, [this, portChecked, shownPeer] {
        portChecked({ErrorKind::Unreachable,
                     tr("The device at %1 cannot be reached: no connection within %2 s.")
                         .arg(shownPeer)
                         .arg(m_limits.connectTimeoutMs / 1000),
                     {}});
    });
}

DeviceSession::~DeviceSession()
{
    m_portCheck.disconnect(this);
}

bool DeviceSession::isDirect() const
{
    return m_login.address.scheme() == QLatin1String("rtsp") || m_login.address.scheme() == QLatin1String("rtsps");
}

std::optional<ChannelInfo> DeviceSession::channel(int channelNo) const
{
    if (isDirect() && channelNo > 0 && channelNo <= maxDirectChannels) {
        ChannelInfo info;
        info.channelNo = channelNo;
        info.name = tr("Channel %1").arg(channelNo);
        info.recordingToken = QStringLiteral("channel-%1").arg(channelNo);
        return info;
    }
    for (const ChannelInfo& info : m_result.info.channels) {
        if (info.channelNo == channelNo)
            return info;
    }
    return std::nullopt;
}

qint64 DeviceSession::deviceNowMs() const
{
    return m_clock() + m_result.info.clockSkewMs;
}

void DeviceSession::logIn(Done done)
{
    m_loginWaiters.push_back(std::move(done));
    if (m_state == State::LoggingIn)
        return;
    m_state = State::LoggingIn;
    QMetaObject::invokeMethod(
        this, [this] { startLogin(); }, Qt::QueuedConnection);
}

void DeviceSession::ensureLogin(Done done)
{
    if (m_state == State::LoggedIn)
        QMetaObject::invokeMethod(
            this, [done] { done({}); }, Qt::QueuedConnection);
    else
        logIn(std::move(done));
}

void DeviceSession::startLogin()
{
    if (m_state != State::LoggingIn)
        return;
    const QString scheme = m_login.address.scheme();
    if (isDirect()) {
        checkPort();
    } else if (scheme != QLatin1String("http") && scheme != QLatin1String("https")) {
        LoginResult result;
        result.error = {
            ErrorKind::Unsupported, tr("The device's address must begin with http, https, rtsp or rtsps."), {}};
        loginDone(result);
    } else {
        m_flow = std::make_unique<LoginFlow>(m_login, m_client, m_clock);
        m_flow->run([this](const LoginResult& result) { loginDone(result); });
    }
}

void DeviceSession::checkPort()
{
    const bool isTls = m_login.address.scheme() == QLatin1String("rtsps");
    m_portTimer.start(m_limits.connectTimeoutMs);
    m_portCheck.connectToHost(m_login.address.host(),
                              static_cast<quint16>(m_login.address.port(isTls ? defaultRtspsPort : defaultRtspPort)));
}

void DeviceSession::loginDone(const LoginResult& result)
{
    if (m_state != State::LoggingIn)
        return;
    m_state = result.error ? State::LoggedOut : State::LoggedIn;
    m_replayUrls.clear();
    if (!result.error) {
        m_result = result;
        emit infoChanged(m_result.info);
    }
    emit statusChanged(statusAfter(result.error.kind));
    answerLogin(result.error);
}

void DeviceSession::answerLogin(const Error& error)
{
    const std::vector<Done> waiters = std::move(m_loginWaiters);
    m_loginWaiters.clear();
    for (const Done& done : waiters)
        done(error);
}

quint64 DeviceSession::call(Service service, const OnvifRequest& request, SoapClient::Handler handler)
{
    const quint64 callId = ++m_lastCallId;
    attempt(callId, m_result.services.value(service), request, std::move(handler));
    return callId;
}

void DeviceSession::attempt(quint64 callId, const QUrl& endpoint, const OnvifRequest& request,
                            SoapClient::Handler handler)
{
    const qint64 skewMs = m_result.info.clockSkewMs;
    m_calls[callId] = m_client.call(
        endpoint, request, SoapClient::Auth::Login,
        [this, callId, endpoint, request, skewMs, handler = std::move(handler)](const SoapAnswer& answer) {
            if (answer.error().kind == ErrorKind::LoginRefused && m_flow) {
                // A login that was good until now may be refused because the device's clock was set.
                readClockAnew(callId, skewMs, [this, callId, endpoint, request, answer, handler](bool hasChanged) {
                    if (!m_calls.contains(callId))
                        return;
                    if (hasChanged)
                        attempt(callId, endpoint, request, handler);
                    else
                        finishCall(callId, answer, handler);
                });
                return;
            }
            finishCall(callId, answer, handler);
        });
}

void DeviceSession::readClockAnew(quint64 callId, qint64 skewBeforeMs, std::function<void(bool)> done)
{
    const auto hasChanged = [this, skewBeforeMs] {
        return qAbs(m_result.info.clockSkewMs - skewBeforeMs) > skewToleranceMs;
    };
    if (hasChanged()) {
        done(true); // another call has read it meanwhile
        return;
    }
    m_calls[callId] = m_flow->readClock([this, hasChanged, done](const Error&) {
        m_result.info.clockSkewMs = m_flow->clockSkewMs();
        done(hasChanged());
    });
}

void DeviceSession::finishCall(quint64 callId, const SoapAnswer& answer, const SoapClient::Handler& handler)
{
    m_calls.remove(callId);
    noteFailure(answer.error());
    handler(answer);
}

void DeviceSession::cancel(quint64 callId)
{
    if (const quint64 running = m_calls.take(callId))
        m_client.cancel(running);
}

void DeviceSession::noteFailure(const Error& error)
{
    switch (error.kind) {
    case ErrorKind::LoginRefused:
    case ErrorKind::AccountLocked:
    case ErrorKind::Unreachable:
    case ErrorKind::TimedOut:
    case ErrorKind::CertificateRefused:
        // The next request logs in again, which also reads the device's clock anew.
        if (m_state == State::LoggedIn) {
            m_state = State::LoggedOut;
            emit statusChanged(statusAfter(error.kind));
        }
        break;
    default:
        break;
    }
}

void DeviceSession::withChannel(int channelNo, const StreamDone& done, std::function<void(const ChannelInfo&)> found)
{
    ensureLogin([this, channelNo, done, found = std::move(found)](const Error& error) {
        const std::optional<ChannelInfo> known = channel(channelNo);
        if (error)
            done(error, {});
        else if (!known)
            done({ErrorKind::NotFound, tr("The device has no channel %1.").arg(channelNo), {}}, {});
        else if (isDirect())
            done({}, directUrl(channelNo));
        else
            found(*known);
    });
}

void DeviceSession::findReplay(int channelNo, const QString& recordingToken, StreamDone done)
{
    withChannel(channelNo, done, [this, recordingToken, done](const ChannelInfo& found) {
        const QString token = recordingToken.isEmpty() ? found.recordingToken : recordingToken;
        const QUrl known = m_replayUrls.value(token);
        if (!known.isEmpty()) {
            done({}, known);
        } else if (token.isEmpty() || !offers(Service::Replay)) {
            done({ErrorKind::NoReplay, tr("The device offers no replay of channel %1.").arg(found.channelNo), {}}, {});
        } else {
            std::vector<StreamDone>& waiters = m_replayWaiters[token];
            waiters.push_back(done);
            if (waiters.size() == 1)
                askReplayUri(token);
        }
    });
}

void DeviceSession::askReplayUri(const QString& recordingToken)
{
    call(Service::Replay, requests::getReplayUri(recordingToken), [this, recordingToken](const SoapAnswer& answer) {
        QUrl url = answers::replayUri(answer.payload());
        const Error error = takeUri(
            answer, {ErrorKind::NoReplay, tr("The device gives no replay address for the recording."), {}}, url);
        if (!error)
            m_replayUrls.insert(recordingToken, url);
        answerReplay(recordingToken, error, url);
    });
}

void DeviceSession::findLive(int channelNo, LiveProfile profile, StreamDone done)
{
    withChannel(channelNo, done, [this, profile, done](const ChannelInfo& found) {
        const bool isSub = profile == LiveProfile::Sub && !found.subProfileToken.isEmpty();
        const QString token = isSub ? found.subProfileToken : found.profileToken;
        const Error missing{
            ErrorKind::NotFound, tr("The device offers no live video of channel %1.").arg(found.channelNo), {}};
        if (token.isEmpty() || !offers(Service::Media)) {
            done(missing, {});
            return;
        }
        // Asked for each time: a device may hand out addresses that are good for one connection.
        const quint64 wish = ++m_lastLiveWish;
        m_liveWaiters[wish] = done;
        call(Service::Media, requests::getStreamUri(token), [this, wish, missing](const SoapAnswer& answer) {
            const auto waiter = m_liveWaiters.find(wish);
            if (waiter == m_liveWaiters.end())
                return;
            const StreamDone waiting = std::move(waiter->second);
            m_liveWaiters.erase(waiter);
            QUrl url = answers::streamUri(answer.payload());
            const Error error = takeUri(answer, missing, url);
            waiting(error, url);
        });
    });
}

Error DeviceSession::takeUri(const SoapAnswer& answer, const Error& missing, QUrl& url) const
{
    const Error& error = answer.error();
    if (isRefusal(answer) || error.kind == ErrorKind::NotFound || (!error && url.isEmpty()))
        return {missing.kind, missing.message, error.context};
    if (error)
        return error;
    // The login goes to the host that the person named, whatever the device calls itself.
    url = url.adjusted(QUrl::RemoveUserInfo);
    url.setHost(m_login.address.host());
    return {};
}

void DeviceSession::answerReplay(const QString& recordingToken, const Error& error, const QUrl& url)
{
    for (const StreamDone& done : m_replayWaiters.take(recordingToken))
        done(error, url);
}

QUrl DeviceSession::directUrl(int channelNo) const
{
    QString text = m_login.address.adjusted(QUrl::RemoveUserInfo).toString(QUrl::FullyEncoded);
    const QString number = QString::number(channelNo);
    text.replace(QLatin1String("{channel}"), number);
    text.replace(QLatin1String("%7Bchannel%7D"), number, Qt::CaseInsensitive);
    return QUrl(text);
}

void DeviceSession::shutDown()
{
    m_state = State::LoggedOut;
    const Error cancelled{ErrorKind::Cancelled, tr("The device was logged out."), {}};
    answerLogin(cancelled);
    const QStringList tokens = m_replayWaiters.keys();
    for (const QString& token : tokens)
        answerReplay(token, cancelled, {});
    for (const auto& [wish, done] : std::exchange(m_liveWaiters, {}))
        done(cancelled, {});
}

} // namespace vms_sdk
