#include "OnvifRequests.h"

#include "OnvifTime.h"
#include "UsernameToken.h"

#include <KDSoapClient/KDSoapValue.h>

namespace vms_sdk::onvif {

namespace {

const char schemaNamespace[] = "http://www.onvif.org/ver10/schema";
const char notificationNamespace[] = "http://docs.oasis-open.org/wsn/b-2";
// How long the device waits for results before it answers with none, and how long it keeps a search that nobody asks
// for.
const char resultWaitTime[] = "PT5S";
const char searchKeepAliveTime[] = "PT30S";

QString text(const char* latin1)
{
    return QString::fromLatin1(latin1);
}

/// Builds the payload of one request; every element is qualified.
class Payload
{
public:
    Payload(Service service, const char* operation)
        : m_service(service)
        , m_operation(text(operation))
        , m_root(m_operation, KDSoapValueList())
    {
        qualify(m_root, namespaceOf(service));
    }

    /// A child of the operation's element, in the service's namespace.
    Payload& add(const char* name, const QString& value)
    {
        m_root.childValues().append(leaf(namespaceOf(m_service), name, value));
        return *this;
    }

    Payload& add(const KDSoapValue& child)
    {
        m_root.childValues().append(child);
        return *this;
    }

    KDSoapValue group(const char* name, const QList<KDSoapValue>& children) const
    {
        return branch(namespaceOf(m_service), name, children);
    }

    static KDSoapValue leaf(const QString& namespaceUri, const char* name, const QString& value)
    {
        KDSoapValue element(text(name), value);
        qualify(element, namespaceUri);
        return element;
    }

    static KDSoapValue branch(const QString& namespaceUri, const char* name, const QList<KDSoapValue>& children)
    {
        KDSoapValue element(text(name), KDSoapValueList());
        for (const KDSoapValue& child : children)
            element.childValues().append(child);
        qualify(element, namespaceUri);
        return element;
    }

    OnvifRequest take() const
    {
        const QString serviceNamespace = namespaceOf(m_service);
        QByteArray xml = m_root.toXml(KDSoapValue::LiteralUse, serviceNamespace);
        if (xml.startsWith("<?xml"))
            xml.remove(0, xml.indexOf("?>") + 2);
        return {m_service, serviceNamespace + QLatin1Char('/') + m_operation, xml.trimmed()};
    }

private:
    static void qualify(KDSoapValue& element, const QString& namespaceUri)
    {
        element.setNamespaceUri(namespaceUri);
        element.setQualified(true);
    }

    Service m_service;
    QString m_operation;
    KDSoapValue m_root;
};

KDSoapValue scopeOf(const Payload& payload, const QString& recordingToken)
{
    return payload.group(
        "Scope", recordingToken.isEmpty()
                     ? QList<KDSoapValue>()
                     : QList<KDSoapValue>{Payload::leaf(text(schemaNamespace), "IncludedRecordings", recordingToken)});
}

/// The set-up of a stream that comes with its RTSP connection.
KDSoapValue overRtsp(const Payload& payload)
{
    const QString schema = text(schemaNamespace);
    const KDSoapValue transport =
        Payload::branch(schema, "Transport", {Payload::leaf(schema, "Protocol", QStringLiteral("RTSP"))});
    return payload.group("StreamSetup", {Payload::leaf(schema, "Stream", QStringLiteral("RTP-Unicast")), transport});
}

} // namespace

QString namespaceOf(Service service)
{
    switch (service) {
    case Service::Device:
        return QStringLiteral("http://www.onvif.org/ver10/device/wsdl");
    case Service::Media:
        return QStringLiteral("http://www.onvif.org/ver10/media/wsdl");
    case Service::Recording:
        return QStringLiteral("http://www.onvif.org/ver10/recording/wsdl");
    case Service::Search:
        return QStringLiteral("http://www.onvif.org/ver10/search/wsdl");
    case Service::Replay:
        return QStringLiteral("http://www.onvif.org/ver10/replay/wsdl");
    case Service::Unknown:
        break;
    }
    return {};
}

QByteArray OnvifRequest::toEnvelope(const UsernameToken* token) const
{
    const QByteArray header =
        token != nullptr ? QByteArray("<s:Header>" + token->toXml() + "</s:Header>") : QByteArray();
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?><s:Envelope "
           "xmlns:s=\"http://www.w3.org/2003/05/soap-envelope\">" +
           header + "<s:Body>" + payload + "</s:Body></s:Envelope>";
}

namespace requests {

OnvifRequest getSystemDateAndTime()
{
    return Payload(Service::Device, "GetSystemDateAndTime").take();
}

OnvifRequest getServices()
{
    return Payload(Service::Device, "GetServices").add("IncludeCapability", QStringLiteral("false")).take();
}

OnvifRequest getCapabilities()
{
    return Payload(Service::Device, "GetCapabilities").add("Category", QStringLiteral("All")).take();
}

OnvifRequest getDeviceInformation()
{
    return Payload(Service::Device, "GetDeviceInformation").take();
}

OnvifRequest getEndpointReference()
{
    return Payload(Service::Device, "GetEndpointReference").take();
}

OnvifRequest getProfiles()
{
    return Payload(Service::Media, "GetProfiles").take();
}

OnvifRequest getVideoSources()
{
    return Payload(Service::Media, "GetVideoSources").take();
}

OnvifRequest getRecordings()
{
    return Payload(Service::Recording, "GetRecordings").take();
}

OnvifRequest findRecordings(const QString& recordingToken)
{
    Payload payload(Service::Search, "FindRecordings");
    return payload.add(scopeOf(payload, recordingToken)).add("KeepAliveTime", text(searchKeepAliveTime)).take();
}

OnvifRequest getRecordingSearchResults(const QString& searchToken, int maxResults)
{
    return Payload(Service::Search, "GetRecordingSearchResults")
        .add("SearchToken", searchToken)
        .add("MaxResults", QString::number(maxResults))
        .add("WaitTime", text(resultWaitTime))
        .take();
}

OnvifRequest findEvents(const EventSearch& search)
{
    Payload payload(Service::Search, "FindEvents");
    QList<KDSoapValue> filter;
    if (!search.topicFilter.isEmpty()) {
        KDSoapValue expression = Payload::leaf(text(notificationNamespace), "TopicExpression", search.topicFilter);
        expression.addNamespaceDeclaration(QXmlStreamNamespaceDeclaration(
            QStringLiteral("tns1"), QStringLiteral("http://www.onvif.org/ver10/topics")));
        expression.childValues().attributes().append(KDSoapValue(
            QStringLiteral("Dialect"), QStringLiteral("http://www.onvif.org/ver10/tev/topicExpression/ConcreteSet")));
        filter.append(expression);
    }
    return payload.add("StartPoint", formatDateTime(search.beginMs))
        .add("EndPoint", formatDateTime(search.endMs))
        .add(scopeOf(payload, search.recordingToken))
        .add(payload.group("SearchFilter", filter))
        .add("IncludeStartState", QStringLiteral("true"))
        .add("KeepAliveTime", text(searchKeepAliveTime))
        .take();
}

OnvifRequest getEventSearchResults(const QString& searchToken, int maxResults)
{
    return Payload(Service::Search, "GetEventSearchResults")
        .add("SearchToken", searchToken)
        .add("MaxResults", QString::number(maxResults))
        .add("WaitTime", text(resultWaitTime))
        .take();
}

OnvifRequest endSearch(const QString& searchToken)
{
    return Payload(Service::Search, "EndSearch").add("SearchToken", searchToken).take();
}

OnvifRequest getReplayUri(const QString& recordingToken)
{
    Payload payload(Service::Replay, "GetReplayUri");
    return payload.add(overRtsp(payload)).add("RecordingToken", recordingToken).take();
}

OnvifRequest getStreamUri(const QString& profileToken)
{
    Payload payload(Service::Media, "GetStreamUri");
    return payload.add(overRtsp(payload)).add("ProfileToken", profileToken).take();
}

} // namespace requests

} // namespace vms_sdk::onvif
