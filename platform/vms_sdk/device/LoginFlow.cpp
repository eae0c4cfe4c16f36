#include "LoginFlow.h"

#include <QElapsedTimer>
#include <QTimer>

#include <algorithm>

namespace vms_sdk {

using namespace onvif;

namespace {

constexpr int maxChannels = 1024;
constexpr int recordingsAPage = 200;
// Pages of recordings that a login asks for; a device that has nothing new to say ends it sooner.
constexpr int maxPolls = 64;
// Before the next page when one was empty: not every device waits until it has something.
constexpr int pollPauseMs = 100;

} // namespace

LoginFlow::LoginFlow(const DevLogin& login, SoapClient& client, SoapClient::Clock clock, QObject* parent)
    : QObject(parent)
    , m_login(login)
    , m_deviceService(deviceServiceOf(login.address))
    , m_client(client)
    , m_clock(std::move(clock))
{
    m_result.info.devId = login.devId;
    m_result.info.name = login.name;
    m_result.info.address = login.address;
}

QUrl LoginFlow::deviceServiceOf(const QUrl& address)
{
    QUrl service = address.adjusted(QUrl::RemoveUserInfo | QUrl::RemoveFragment);
    if (service.path().isEmpty() || service.path() == QLatin1String("/"))
        service.setPath(QStringLiteral("/onvif/device_service"));
    return service;
}

void LoginFlow::run(Done done)
{
    m_done = std::move(done);
    m_result.services.insert(Service::Device, m_deviceService);
    readClock([this](const Error& error) {
        if (endsLogin(error) && error.kind != ErrorKind::LoginRefused)
            finish(error);
        else
            askServices();
    });
}

quint64 LoginFlow::readClock(std::function<void(const Error&)> done)
{
    QElapsedTimer roundTrip;
    roundTrip.start();
    const auto take = [this, roundTrip, done](const SoapAnswer& answer) {
        const std::optional<qint64> deviceMs = answers::systemDateAndTime(answer.payload());
        if (!answer.error() && deviceMs) {
            // Told in whole seconds, somewhere during the round trip.
            m_result.info.clockSkewMs = *deviceMs + 500 - (m_clock() - roundTrip.elapsed() / 2);
            if (qAbs(m_result.info.clockSkewMs) < 1000)
                m_result.info.clockSkewMs = 0;
            m_client.setClockSkewMs(m_result.info.clockSkewMs);
        }
        done(answer.error());
    };
    return m_client.call(m_deviceService, requests::getSystemDateAndTime(), SoapClient::Auth::None, take);
}

bool LoginFlow::endsLogin(const Error& error)
{
    switch (error.kind) {
    case ErrorKind::None:
    case ErrorKind::Unsupported:
    case ErrorKind::Refused:
        return false;
    default:
        return true;
    }
}

void LoginFlow::ask(Service service, const OnvifRequest& request, Take take, Step next)
{
    const QUrl endpoint = m_result.services.value(service);
    if (endpoint.isEmpty()) {
        (this->*next)();
        return;
    }
    m_client.call(endpoint, request, SoapClient::Auth::Login, [this, take, next](const SoapAnswer& answer) {
        const Error& error = answer.error();
        // Beyond the device service a device may well answer one service wrong and the others right.
        if (endsLogin(error) && error.kind != ErrorKind::NotFound && error.kind != ErrorKind::Corrupt) {
            finish(error);
            return;
        }
        if (!error)
            take(answer.payload());
        (this->*next)();
    });
}

void LoginFlow::askServices()
{
    m_client.call(m_deviceService, requests::getServices(), SoapClient::Auth::Login, [this](const SoapAnswer& answer) {
        if (endsLogin(answer.error())) {
            finish(answer.error());
            return;
        }
        if (!answer.error())
            takeServices(answers::services(answer.payload()));
        if (m_result.services.size() > 1)
            askIdentity();
        else
            askCapabilities();
    });
}

void LoginFlow::askCapabilities()
{
    ask(
        Service::Device, requests::getCapabilities(),
        [this](const SoapElement& payload) { takeServices(answers::capabilities(payload)); }, &LoginFlow::askIdentity);
}

void LoginFlow::takeServices(const QMap<Service, QUrl>& services)
{
    for (auto service = services.cbegin(); service != services.cend(); ++service) {
        if (service.key() != Service::Device)
            m_result.services.insert(service.key(), reachable(service.value()));
    }
}

QUrl LoginFlow::reachable(const QUrl& told) const
{
    QUrl address = m_deviceService;
    address.setPath(told.path());
    address.setQuery(told.query());
    // Another host is the device's name for itself behind an address translation: there, its ports mean nothing to us
    // either. Another scheme would be a downgrade, or a port that the person did not name.
    if (told.host() == m_deviceService.host() && told.scheme() == m_deviceService.scheme())
        address.setPort(told.port());
    return address;
}

void LoginFlow::askIdentity()
{
    m_client.call(m_deviceService, requests::getDeviceInformation(), SoapClient::Auth::Login,
                  [this](const SoapAnswer& answer) {
                      if (answer.error() && answer.error().kind != ErrorKind::Unsupported) {
                          finish(answer.error());
                          return;
                      }
                      const DeviceIdentity identity = answers::deviceInformation(answer.payload());
                      m_result.info.manufacturer = identity.manufacturer;
                      m_result.info.model = identity.model;
                      m_result.info.firmware = identity.firmware;
                      m_result.info.serialNumber = identity.serialNumber;
                      askEndpoint();
                  });
}

void LoginFlow::askEndpoint()
{
    // Few devices know it, and it is not worth a login.
    m_client.call(m_deviceService, requests::getEndpointReference(), SoapClient::Auth::Login,
                  [this](const SoapAnswer& answer) {
                      if (!answer.error())
                          m_result.info.endpoint = answers::endpointReference(answer.payload());
                      askProfiles();
                  });
}

void LoginFlow::askProfiles()
{
    ask(
        Service::Media, requests::getProfiles(),
        [this](const SoapElement& payload) { m_profiles = answers::profiles(payload); }, &LoginFlow::askVideoSources);
}

void LoginFlow::askVideoSources()
{
    ask(
        Service::Media, requests::getVideoSources(),
        [this](const SoapElement& payload) { m_videoSources = answers::videoSourceTokens(payload); },
        &LoginFlow::askRecordings);
}

void LoginFlow::askRecordings()
{
    ask(
        Service::Recording, requests::getRecordings(),
        [this](const SoapElement& payload) { takeRecordings(answers::recordings(payload)); },
        &LoginFlow::findRecordings);
}

void LoginFlow::findRecordings()
{
    const QUrl search = m_result.services.value(Service::Search);
    if (!m_recordings.isEmpty() || search.isEmpty()) {
        finish();
        return;
    }
    m_client.call(search, requests::findRecordings({}), SoapClient::Auth::Login, [this](const SoapAnswer& answer) {
        const QString searchToken = answers::searchToken(answer.payload());
        if (answer.error() || searchToken.isEmpty())
            finish();
        else
            pollRecordings(searchToken);
    });
}

void LoginFlow::pollRecordings(const QString& searchToken)
{
    const QUrl search = m_result.services.value(Service::Search);
    m_client.call(search, requests::getRecordingSearchResults(searchToken, recordingsAPage), SoapClient::Auth::Login,
                  [this, search, searchToken](const SoapAnswer& answer) {
                      const auto results = answers::recordingSearchResults(answer.payload());
                      if (!answer.error())
                          takeRecordings(results.entries);
                      const bool more = !answer.error() && results.isValid && !results.completed &&
                                        m_recordings.size() < maxChannels && ++m_polls < maxPolls;
                      if (more) {
                          QTimer::singleShot(results.entries.isEmpty() ? pollPauseMs : 0, this,
                                             [this, searchToken] { pollRecordings(searchToken); });
                          return;
                      }
                      m_client.call(search, requests::endSearch(searchToken), SoapClient::Auth::Login,
                                    [](const SoapAnswer&) {});
                      finish();
                  });
}

void LoginFlow::takeRecordings(const QVector<RecordingEntry>& recordings)
{
    for (const RecordingEntry& recording : recordings) {
        const bool isKnown =
            std::any_of(m_recordings.cbegin(), m_recordings.cend(),
                        [&recording](const RecordingEntry& known) { return known.token == recording.token; });
        if (!isKnown && m_recordings.size() < maxChannels)
            m_recordings.append(recording);
    }
}

/// The first profile of a source is its main stream; the sub stream is the largest of those that are smaller.
void LoginFlow::takeProfiles(ChannelInfo& channel, const QString& source) const
{
    const auto main = std::find_if(m_profiles.cbegin(), m_profiles.cend(), [&](const VideoProfile& profile) {
        return profile.token == source || profile.sourceToken == source;
    });
    if (source.isEmpty() || main == m_profiles.cend())
        return;
    channel.profileToken = main->token;
    int subPixels = 0;
    for (const VideoProfile& profile : m_profiles) {
        if (profile.sourceToken == main->sourceToken && profile.pixels < main->pixels && profile.pixels > subPixels) {
            channel.subProfileToken = profile.token;
            subPixels = profile.pixels;
        }
    }
}

void LoginFlow::buildChannels()
{
    QList<ChannelInfo>& channels = m_result.info.channels;
    for (const RecordingEntry& recording : qAsConst(m_recordings)) {
        ChannelInfo channel;
        channel.channelNo = channels.size() + 1;
        channel.name = recording.sourceName.isEmpty() ? tr("Channel %1").arg(channel.channelNo) : recording.sourceName;
        channel.recordingToken = recording.token;
        takeProfiles(channel, recording.sourceId);
        channels.append(channel);
        m_result.videoTracks.insert(recording.token, recording.videoTracks);
    }
    // Recordings may name their sources by addresses that no profile knows; then they are in the order of the sources.
    const bool isAnyKnown = std::any_of(channels.cbegin(), channels.cend(),
                                        [](const ChannelInfo& channel) { return !channel.profileToken.isEmpty(); });
    if (!isAnyKnown && channels.size() == m_videoSources.size()) {
        for (int i = 0; i < channels.size(); ++i)
            takeProfiles(channels[i], m_videoSources.at(i));
    }
    if (!channels.isEmpty())
        return;
    for (const QString& sourceToken : qAsConst(m_videoSources)) {
        if (channels.size() >= maxChannels)
            break;
        ChannelInfo channel;
        channel.channelNo = channels.size() + 1;
        channel.name = tr("Channel %1").arg(channel.channelNo);
        takeProfiles(channel, sourceToken);
        channels.append(channel);
    }
}

void LoginFlow::finish(const Error& error)
{
    m_result.error = error;
    if (!error) {
        buildChannels();
        m_result.info.supportsBackup =
            m_result.services.contains(Service::Search) && m_result.services.contains(Service::Replay);
        if (m_result.info.name.isEmpty())
            m_result.info.name = m_result.info.model;
    }
    const Done done = std::move(m_done);
    done(m_result);
}

} // namespace vms_sdk
