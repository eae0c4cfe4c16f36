#include "onvif/SoapEnvelope.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QRegularExpression>

#include <cstdlib>

namespace recorder_sim {
namespace {

constexpr std::int64_t tokenValidityMs = 5 * 60 * 1000;

SoapFault makeFault(const char* code, const char* subcode, const char* subcode2, const QString& reason)
{
    SoapFault fault;
    fault.code = QLatin1String(code);
    fault.subcode = QLatin1String(subcode);
    fault.subcode2 = QLatin1String(subcode2);
    fault.reason = reason;
    return fault;
}

} // namespace

SoapFault SoapFault::sender(const char* subcode, const char* subcode2, const QString& reason)
{
    return makeFault("s:Sender", subcode, subcode2, reason);
}

SoapFault SoapFault::receiver(const char* subcode, const char* subcode2, const QString& reason)
{
    return makeFault("s:Receiver", subcode, subcode2, reason);
}

bool SoapRequest::parse(const QByteArray& document)
{
    if (!XmlNode::parse(document, envelope) || envelope.name != QLatin1String("Envelope") ||
        envelope.nameSpace != QLatin1String(onvif_ns::envelope))
        return false;
    const XmlNode* content = envelope.child("Body");
    if (!content || content->children.size() != 1)
        return false;
    body = &content->children.front();
    return true;
}

TokenVerdict SoapRequest::checkToken(const QByteArray& user, const QByteArray& password,
                                     std::int64_t deviceTimeNs) const
{
    const XmlNode* header = envelope.child("Header");
    const XmlNode* security = header ? header->child("Security") : nullptr;
    const XmlNode* token = security ? security->child("UsernameToken") : nullptr;
    if (!token)
        return TokenVerdict::Missing;
    std::int64_t created = 0;
    if (token->textAt("Username").toUtf8() != user || !parseXsdTime(token->textAt("Created"), created) ||
        std::llabs(created - deviceTimeNs) / 1'000'000 > tokenValidityMs)
        return TokenVerdict::Refused;
    const QByteArray nonce = QByteArray::fromBase64(token->textAt("Nonce").toLatin1());
    const QByteArray digest =
        QCryptographicHash::hash(nonce + token->textAt("Created").toUtf8() + password, QCryptographicHash::Sha1);
    const bool right = !nonce.isEmpty() && QByteArray::fromBase64(token->textAt("Password").toLatin1()) == digest;
    return right ? TokenVerdict::Accepted : TokenVerdict::Refused;
}

QByteArray writeEnvelope(const std::function<void(QXmlStreamWriter&)>& body)
{
    static constexpr std::pair<const char*, const char*> prefixes[] = {
        {onvif_ns::envelope, "s"},  {onvif_ns::error, "ter"},         {onvif_ns::schema, "tt"},
        {onvif_ns::topics, "tns1"}, {onvif_ns::notification, "wsnt"}, {onvif_ns::device, "tds"},
        {onvif_ns::media, "trt"},   {onvif_ns::recording, "trc"},     {onvif_ns::search, "tse"},
        {onvif_ns::replay, "trp"},
    };
    QByteArray out;
    QXmlStreamWriter xml(&out);
    xml.writeStartDocument();
    for (const auto& [uri, prefix] : prefixes)
        xml.writeNamespace(QLatin1String(uri), QLatin1String(prefix));
    xml.writeStartElement(QLatin1String(onvif_ns::envelope), QStringLiteral("Envelope"));
    xml.writeStartElement(QLatin1String(onvif_ns::envelope), QStringLiteral("Body"));
    body(xml);
    xml.writeEndDocument();
    return out;
}

QByteArray writeFault(const SoapFault& fault)
{
    return writeEnvelope([&](QXmlStreamWriter& xml) {
        const QString ns = QLatin1String(onvif_ns::envelope);
        xml.writeStartElement(ns, QStringLiteral("Fault"));
        xml.writeStartElement(ns, QStringLiteral("Code"));
        xml.writeTextElement(ns, QStringLiteral("Value"), fault.code);
        xml.writeStartElement(ns, QStringLiteral("Subcode"));
        xml.writeTextElement(ns, QStringLiteral("Value"), fault.subcode);
        if (!fault.subcode2.isEmpty()) {
            xml.writeStartElement(ns, QStringLiteral("Subcode"));
            xml.writeTextElement(ns, QStringLiteral("Value"), fault.subcode2);
            xml.writeEndElement();
        }
        xml.writeEndElement();
        xml.writeEndElement();
        xml.writeStartElement(ns, QStringLiteral("Reason"));
        xml.writeStartElement(ns, QStringLiteral("Text"));
        xml.writeAttribute(QStringLiteral("xml:lang"), QStringLiteral("en"));
        xml.writeCharacters(fault.reason);
        xml.writeEndElement();
        xml.writeEndElement();
        xml.writeEndElement();
    });
}

QString xsdTime(std::int64_t utcNs)
{
    const QDateTime time = QDateTime::fromMSecsSinceEpoch(utcNs / 1'000'000, Qt::UTC);
    return time.toString(time.time().msec() == 0 ? Qt::ISODate : Qt::ISODateWithMs);
}

bool parseXsdTime(const QString& text, std::int64_t& utcNs)
{
    QDateTime time = QDateTime::fromString(text, Qt::ISODateWithMs);
    if (!time.isValid())
        return false;
    if (time.timeSpec() == Qt::LocalTime)
        time.setTimeSpec(Qt::UTC);
    utcNs = time.toMSecsSinceEpoch() * 1'000'000;
    return true;
}

std::int64_t parseDurationMs(const QString& text, std::int64_t fallback)
{
    static const QRegularExpression form(
        QStringLiteral("^PT(?:(\\d{1,6})H)?(?:(\\d{1,6})M)?(?:(\\d{1,6}(?:\\.\\d+)?)S)?$"));
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        return fallback;
    const double seconds =
        match.captured(1).toDouble() * 3600 + match.captured(2).toDouble() * 60 + match.captured(3).toDouble();
    return static_cast<std::int64_t>(seconds * 1000);
}

} // namespace recorder_sim
