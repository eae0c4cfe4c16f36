#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace vms_sdk::onvif {

struct UsernameToken;

/// The ONVIF services that this client uses.
enum class Service : int { Unknown = 0, Device, Media, Recording, Search, Replay };

/// Target namespace of a service's WSDL; an empty text for Unknown.
QString namespaceOf(Service service);

/// One request: which service, which action, and its payload element.
struct OnvifRequest
{
    Service service = Service::Unknown;
    QString action; ///< WSDL action URI, for the content type
    QByteArray payload;

    /// The SOAP 1.2 envelope around the payload, with a security header when there is a token.
    QByteArray toEnvelope(const UsernameToken* token) const;
};

/// Makers of requests, one an operation. Device Management, Media, Recording Control, Recording Search and Replay
/// Control services of ONVIF, version 10. Times are ms since 1970 UTC.
namespace requests {

OnvifRequest getSystemDateAndTime();
OnvifRequest getServices();
OnvifRequest getCapabilities();
OnvifRequest getDeviceInformation();
OnvifRequest getEndpointReference();
OnvifRequest getProfiles();
OnvifRequest getVideoSources();
OnvifRequest getRecordings();
OnvifRequest findRecordings(const QString& recordingToken);
OnvifRequest getRecordingSearchResults(const QString& searchToken, int maxResults);

struct EventSearch
{
    QString recordingToken;
    qint64 beginMs = 0;
    qint64 endMs = 0;
    QString topicFilter; ///< ConcreteSet topic expression; empty: every event
};
OnvifRequest findEvents(const EventSearch& search);
OnvifRequest getEventSearchResults(const QString& searchToken, int maxResults);
OnvifRequest endSearch(const QString& searchToken);
OnvifRequest getReplayUri(const QString& recordingToken);
OnvifRequest getStreamUri(const QString& profileToken);

} // namespace requests

} // namespace vms_sdk::onvif
