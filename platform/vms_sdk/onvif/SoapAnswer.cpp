#include "SoapAnswer.h"

#include <QXmlStreamReader>

namespace vms_sdk::onvif {

namespace {

QString localName(const QString& qualified)
{
    return qualified.mid(qualified.lastIndexOf(QLatin1Char(':')) + 1).trimmed();
}

/// Reads the element at which the reader stands; the depth was checked by the guard.
SoapElement readElement(QXmlStreamReader& reader)
{
    SoapElement element;
    element.name = reader.name().toString();
    element.namespaceUri = reader.namespaceUri().toString();
    const QXmlStreamAttributes attributes = reader.attributes();
    element.attributes.reserve(attributes.size());
    for (const QXmlStreamAttribute& attribute : attributes)
        element.attributes.append({attribute.name().toString(), attribute.value().toString()});
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement:
            element.children.append(readElement(reader));
            break;
        case QXmlStreamReader::Characters:
            if (!reader.isWhitespace() || reader.isCDATA())
                element.text += reader.text();
            break;
        case QXmlStreamReader::EndElement:
            element.text = element.text.trimmed();
            return element;
        default:
            break;
        }
    }
    return element;
}

struct FaultMeaning
{
    const char* code;
    ErrorKind kind;
};

// ONVIF Core 5.8.2 and the services' own faults; the innermost code that is known decides.
const FaultMeaning faultMeanings[] = {
    {"AccountLocked", ErrorKind::AccountLocked},
    {"UserLocked", ErrorKind::AccountLocked},
    {"PasswordLocked", ErrorKind::AccountLocked},
    {"NotActivated", ErrorKind::NotActivated},
    {"DeviceNotActivated", ErrorKind::NotActivated},
    {"NotAuthorized", ErrorKind::LoginRefused},
    {"FailedAuthentication", ErrorKind::LoginRefused},
    {"InvalidSecurity", ErrorKind::LoginRefused},
    {"InvalidSecurityToken", ErrorKind::LoginRefused},
    {"SecurityTokenUnavailable", ErrorKind::LoginRefused},
    {"FailedCheck", ErrorKind::LoginRefused},
    {"OperationProhibited", ErrorKind::Refused},
    {"ActionNotSupported", ErrorKind::Unsupported},
    {"OptionalActionNotImplemented", ErrorKind::Unsupported},
    {"UnknownAction", ErrorKind::Unsupported},
    {"CapabilityViolated", ErrorKind::Unsupported},
    {"MaxSessions", ErrorKind::LimitReached},
    {"MaxUsers", ErrorKind::LimitReached},
    {"ResourceProblem", ErrorKind::LimitReached},
    {"OutofMemory", ErrorKind::LimitReached},
    {"InvalidToken", ErrorKind::NotFound},
    {"NoRecording", ErrorKind::NotFound},
    {"NoSource", ErrorKind::NotFound},
    {"NoSuchService", ErrorKind::NotFound},
};

ErrorKind meaningOf(const SoapFault& fault)
{
    for (auto code = fault.codes.crbegin(); code != fault.codes.crend(); ++code) {
        for (const FaultMeaning& meaning : faultMeanings) {
            if (code->compare(QLatin1String(meaning.code), Qt::CaseInsensitive) == 0)
                return meaning.kind;
        }
    }
    return ErrorKind::Refused;
}

} // namespace

QString shownText(const QString& text, int maxLength)
{
    QString shown;
    for (const QChar c : text.left(4 * maxLength).simplified()) {
        const QChar::Category category = c.category();
        if (category != QChar::Other_Control && category != QChar::Other_Format)
            shown += c;
    }
    return shown.size() <= maxLength ? shown : QString(shown.left(maxLength) + QChar(0x2026));
}

SoapAnswer SoapAnswer::parse(const QByteArray& document, const XmlLimits& limits)
{
    if (Error refused = XmlGuard(limits).check(document))
        return SoapAnswer(std::move(refused));
    // Decoded here, not by the reader: the declared encoding must not change what the guard has seen.
    QXmlStreamReader reader(QString::fromUtf8(document));
    if (!reader.readNextStartElement())
        return SoapAnswer(corrupt(QStringLiteral("no XML: ") + shownText(reader.errorString())));
    if (reader.name() != QLatin1String("Envelope"))
        return SoapAnswer(corrupt(QStringLiteral("root element ") + shownText(reader.name().toString(), 80)));
    const SoapElement envelope = readElement(reader);
    if (reader.hasError())
        return SoapAnswer(
            corrupt(QStringLiteral("line %1: ").arg(reader.lineNumber()) + shownText(reader.errorString())));
    const SoapElement& body = envelope.at(QLatin1String("Body"));
    if (body.children.isEmpty())
        return SoapAnswer(corrupt(QStringLiteral("no body")));
    SoapAnswer answer;
    answer.m_header = envelope.at(QLatin1String("Header"));
    answer.m_payload = body.children.first();
    if (answer.m_payload.name == QLatin1String("Fault"))
        answer.readFault(answer.m_payload);
    return answer;
}

void SoapAnswer::readFault(const SoapElement& element)
{
    const SoapElement* code = &element.at(QLatin1String("Code"));
    while (!code->isNull()) {
        m_fault.codes.append(localName(shownText(code->textAt(QLatin1String("Value")), 80)));
        code = &code->at(QLatin1String("Subcode"));
    }
    if (m_fault.codes.isEmpty()) {
        const QString faultCode = shownText(element.textAt(QLatin1String("faultcode")), 80);
        m_fault.codes.append(localName(faultCode));
    }
    m_fault.reason = shownText(element.textAt(QLatin1String("Reason/Text")));
    if (m_fault.reason.isEmpty())
        m_fault.reason = shownText(element.textAt(QLatin1String("faultstring")));
    m_error.kind = meaningOf(m_fault);
    m_error.context =
        QStringLiteral("SOAP fault ") + m_fault.codes.join(QLatin1Char('/')) + QStringLiteral(": ") + m_fault.reason;
    switch (m_error.kind) {
    case ErrorKind::LoginRefused:
        m_error.message = tr("The device refuses the user name or password.");
        break;
    case ErrorKind::AccountLocked:
        m_error.message = tr("The device has locked the account.");
        break;
    case ErrorKind::NotActivated:
        m_error.message = tr("The device has not been activated yet.");
        break;
    case ErrorKind::Unsupported:
        m_error.message = tr("The device does not support what was asked.");
        break;
    case ErrorKind::LimitReached:
        m_error.message = tr("The device has reached a limit of its own.");
        break;
    case ErrorKind::NotFound:
        m_error.message = tr("The device does not know what was asked for.");
        break;
    default:
        m_error.message = m_fault.reason.isEmpty() ? tr("The device refuses the request.")
                                                   : tr("The device refuses the request: %1").arg(m_fault.reason);
        break;
    }
}

Error SoapAnswer::corrupt(const QString& context)
{
    return {ErrorKind::Corrupt, tr("The device's answer cannot be read."), context};
}

} // namespace vms_sdk::onvif
