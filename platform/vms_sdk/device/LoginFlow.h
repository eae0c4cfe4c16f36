#pragma once

#include "onvif/OnvifAnswers.h"
#include "onvif/SoapClient.h"
#include "VmsTypes.h"

#include <QMap>
#include <QObject>

#include <functional>

namespace vms_sdk {

/// What a login learns of a device.
struct LoginResult
{
    Error error;
    DevInfo info;
    QMap<onvif::Service, QUrl> services;
    QMap<QString, QStringList> videoTracks; ///< by recording token
};

/// One login to an ONVIF device: its clock, its services, its identity (which is where a wrong password shows), its
/// channels. Lives on the SOAP thread, is owned by the device's session and uses its client. run() is answered once,
/// later; a flow that is destroyed leaves its calls to the client, which must then be gone as well.
class LoginFlow final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LoginFlow)

public:
    using Done = std::function<void(const LoginResult&)>;

    LoginFlow(const DevLogin& login, onvif::SoapClient& client, onvif::SoapClient::Clock clock,
              QObject* parent = nullptr);
    void run(Done done);

    /// Asks for the device's clock alone and sets the client's skew by it.
    /// Returns the client's call.
    quint64 readClock(std::function<void(const Error&)> done);
    qint64 clockSkewMs() const { return m_result.info.clockSkewMs; }
    static QUrl deviceServiceOf(const QUrl& address);

private:
    using Step = void (LoginFlow::*)();
    using Take = std::function<void(const onvif::SoapElement&)>;

    void askServices();
    void askCapabilities();
    void askIdentity();
    void askEndpoint();
    void askProfiles();
    void askVideoSources();
    void askRecordings();
    void findRecordings();
    void pollRecordings(const QString& searchToken);
    void takeRecordings(const QVector<onvif::RecordingEntry>& recordings);
    void finish(const Error& error = {});
    void buildChannels();
    void takeProfiles(ChannelInfo& channel, const QString& source) const;
    void takeServices(const QMap<onvif::Service, QUrl>& services);
    /// The device's address for a service, on the host that was reached.
    QUrl reachable(const QUrl& told) const;
    /// Asks, and goes on with `next` whatever comes, unless the device is gone or refuses the login.
    void ask(onvif::Service service, const onvif::OnvifRequest& request, Take take, Step next);
    static bool endsLogin(const Error& error);

    const DevLogin m_login;
    const QUrl m_deviceService;
    onvif::SoapClient& m_client;
    const onvif::SoapClient::Clock m_clock;
    Done m_done;
    LoginResult m_result;
    QVector<onvif::VideoProfile> m_profiles;
    QStringList m_videoSources;
    QVector<onvif::RecordingEntry> m_recordings;
    int m_polls = 0;
};

} // namespace vms_sdk
