#pragma once

#include "LoginFlow.h"
#include "SdkLimits.h"

#include <QHash>
#include <QObject>
#include <QTcpSocket>
#include <QTimer>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace vms_sdk {

/// The session with one device: logs in, logs in again when a call finds it lost, calls its services and asks for the
/// addresses of streams. Lives on the SOAP thread; owned by SoapWorker, which destroys it from its event loop only.
/// Every function with a callback answers exactly once, later; shutDown() answers what is left with Cancelled. A device
/// behind an rtsp address has no services: it is known as soon as its port answers.
class DeviceSession final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DeviceSession)

public:
    using Done = std::function<void(const Error&)>;
    using StreamDone = std::function<void(const Error&, const QUrl&)>;

    DeviceSession(DevLogin login, const SdkLimits& limits, onvif::SoapClient::Clock clock, QObject* parent = nullptr);
    ~DeviceSession() override;

    const DevLogin& login() const { return m_login; }
    bool isDirect() const;
    const DevInfo& info() const { return m_result.info; }
    std::optional<ChannelInfo> channel(int channelNo) const;
    QStringList videoTracks(const QString& recordingToken) const { return m_result.videoTracks.value(recordingToken); }
    bool offers(onvif::Service service) const { return m_result.services.contains(service); }
    /// ms since 1970 UTC on the device's clock.
    qint64 deviceNowMs() const;

    /// Logs in anew; joined with a login that is running.
    void logIn(Done done);
    /// Logs in when the session was lost.
    void ensureLogin(Done done);
    /// One call to a service of the device, with login. Returns its number for cancel().
    quint64 call(onvif::Service service, const onvif::OnvifRequest& request, onvif::SoapClient::Handler handler);
    void cancel(quint64 callId);
    /// Where a channel is replayed from: NotFound for an unknown channel, NoReplay when the device gives no address. An
    /// empty token means the channel's own recording.
    void findReplay(int channelNo, const QString& recordingToken, StreamDone done);
    /// Where a channel is shown live from: NotFound for an unknown channel and where the device gives no address.
    void findLive(int channelNo, LiveProfile profile, StreamDone done);
    void shutDown();

signals:
    void statusChanged(vms_sdk::DevStatus status);
    void infoChanged(const vms_sdk::DevInfo& info);
    void certificateRefused(const QSslCertificate& certificate, const QByteArray& keySha256, const QString& reason);

private:
    enum class State { LoggedOut, LoggingIn, LoggedIn };

    void attempt(quint64 callId, const QUrl& endpoint, const onvif::OnvifRequest& request,
                 onvif::SoapClient::Handler handler);
    void readClockAnew(quint64 callId, qint64 skewBeforeMs, std::function<void(bool)> done);
    void finishCall(quint64 callId, const onvif::SoapAnswer& answer, const onvif::SoapClient::Handler& handler);
    void startLogin();
    void checkPort();
    void loginDone(const LoginResult& result);
    void answerLogin(const Error& error);
    void noteFailure(const Error& error);
    /// Logs in and hands out the channel. Where there is none, and for direct sources, `done` is answered instead.
    void withChannel(int channelNo, const StreamDone& done, std::function<void(const ChannelInfo&)> found);
    void askReplayUri(const QString& recordingToken);
    void answerReplay(const QString& recordingToken, const Error& error, const QUrl& url);
    /// The address as this client may use it; without one, `missing` is the reason.
    Error takeUri(const onvif::SoapAnswer& answer, const Error& missing, QUrl& url) const;
    QUrl directUrl(int channelNo) const;

    const DevLogin m_login;
    const SdkLimits m_limits;
    const onvif::SoapClient::Clock m_clock;
    onvif::SoapClient m_client;
    quint64 m_lastCallId = 0;
    QHash<quint64, quint64> m_calls; ///< the client's call by ours, which may be a second try
    State m_state = State::LoggedOut;
    LoginResult m_result;
    std::unique_ptr<LoginFlow> m_flow;
    std::vector<Done> m_loginWaiters;
    QHash<QString, QUrl> m_replayUrls;
    QHash<QString, std::vector<StreamDone>> m_replayWaiters; ///< by recording token
    std::map<quint64, StreamDone> m_liveWaiters;             ///< by number of the wish
    quint64 m_lastLiveWish = 0;
    QTcpSocket m_portCheck;
    QTimer m_portTimer;
};

/// The status that a failure of this kind gives a device.
DevStatus statusAfter(ErrorKind kind);

/// The device refuses this request alone: another one may still be answered, with the same login and at this time.
bool isRefusal(const onvif::SoapAnswer& answer);

} // namespace vms_sdk
