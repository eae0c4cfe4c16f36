#include "ProbeMatches.h"

#include "OnvifAnswers.h"
#include "SoapAnswer.h"

#include <algorithm>

namespace vms_sdk::onvif {

namespace {

constexpr int maxAddresses = 8;
constexpr int maxAddressLength = 512;
constexpr int maxScopes = 64;
constexpr int maxNameLength = 64;

constexpr XmlLimits answerLimits{maxProbeAnswerBytes, 16, 32, maxProbeAnswerBytes, 2000};

/// Whether a client may call a host that a datagram from `sender` named.
bool mayCall(const QHostAddress& host, const QHostAddress& sender)
{
    if (host.isNull() || host.isMulticast() || host.isBroadcast() || host == QHostAddress(QHostAddress::AnyIPv4) ||
        host == QHostAddress(QHostAddress::AnyIPv6))
        return false;
    if (host.isLoopback())
        return sender.isLoopback();
    // Without the name of an interface nobody can reach it.
    return host.protocol() != QAbstractSocket::IPv6Protocol || !host.isLinkLocal();
}

QList<QUrl> readAddresses(const QString& text, const QHostAddress& sender)
{
    QList<QUrl> addresses;
    const QStringList words = text.left(maxProbeAnswerBytes).simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString& word : words) {
        const QUrl url(word, QUrl::StrictMode);
        const QHostAddress host(url.host());
        const bool isHttp = url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
        if (word.size() > maxAddressLength || !url.isValid() || !isHttp || !url.userInfo().isEmpty() ||
            url.hasFragment() || url.port(80) <= 0 || !mayCall(host, sender) || addresses.contains(url))
            continue;
        if (host.isEqual(sender, QHostAddress::ConvertV4MappedToIPv4))
            addresses.prepend(url);
        else
            addresses.append(url);
    }
    return addresses.mid(0, maxAddresses);
}

/// The value of a scope such as "onvif://www.onvif.org/name/North%20gate".
QString scopeValue(const QStringList& scopes, QLatin1String category)
{
    const QString prefix = QStringLiteral("onvif://www.onvif.org/") + category + QLatin1Char('/');
    for (const QString& scope : scopes) {
        if (scope.startsWith(prefix, Qt::CaseInsensitive)) {
            const QByteArray value = scope.mid(prefix.size()).left(maxAddressLength).toUtf8();
            return shownText(QString::fromUtf8(QByteArray::fromPercentEncoding(value)), maxNameLength);
        }
    }
    return {};
}

} // namespace

QByteArray makeProbe(const QString& messageId, const QString& type)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>"
           "<s:Envelope xmlns:s=\"http://www.w3.org/2003/05/soap-envelope\""
           " xmlns:a=\"http://schemas.xmlsoap.org/ws/2004/08/addressing\""
           " xmlns:d=\"http://schemas.xmlsoap.org/ws/2005/04/discovery\""
           " xmlns:dn=\"http://www.onvif.org/ver10/network/wsdl\""
           " xmlns:tds=\"http://www.onvif.org/ver10/device/wsdl\">"
           "<s:Header><a:MessageID>" +
           messageId.toUtf8() +
           "</a:MessageID><a:To>urn:schemas-xmlsoap-org:ws:2005:04:discovery</a:To>"
           "<a:Action>http://schemas.xmlsoap.org/ws/2005/04/discovery/Probe</a:Action></s:Header>"
           "<s:Body><d:Probe><d:Types>" +
           type.toUtf8() + "</d:Types></d:Probe></s:Body></s:Envelope>";
}

QVector<ProbeMatch> readProbeMatches(const QByteArray& datagram, const QHostAddress& sender,
                                     const QStringList& messageIds)
{
    QVector<ProbeMatch> found;
    const SoapAnswer answer = SoapAnswer::parse(datagram, answerLimits);
    if (answer.payload().name != QLatin1String("ProbeMatches") ||
        !messageIds.contains(answer.header().textAt(QLatin1String("RelatesTo"))))
        return found;
    for (const SoapElement* element : answer.payload().all(QLatin1String("ProbeMatch"))) {
        if (found.size() == maxMatchesAnAnswer)
            break;
        ProbeMatch match;
        match.endpoint = endpointId(element->textAt(QLatin1String("EndpointReference/Address")));
        match.addresses = readAddresses(element->textAt(QLatin1String("XAddrs")), sender);
        const QStringList scopes =
            element->textAt(QLatin1String("Scopes")).simplified().split(QLatin1Char(' ')).mid(0, maxScopes);
        match.name = scopeValue(scopes, QLatin1String("name"));
        match.model = scopeValue(scopes, QLatin1String("hardware"));
        if (!match.endpoint.isEmpty() && !match.addresses.isEmpty())
            found.append(match);
    }
    return found;
}

} // namespace vms_sdk::onvif
