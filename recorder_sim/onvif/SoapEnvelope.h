#pragma once

#include "onvif/XmlNode.h"

#include <QByteArray>
#include <QString>
#include <QXmlStreamWriter>

#include <cstdint>
#include <functional>

namespace recorder_sim {

namespace onvif_ns {
constexpr char envelope[] = "http://www.w3.org/2003/05/soap-envelope";
constexpr char error[] = "http://www.onvif.org/ver10/error";
constexpr char schema[] = "http://www.onvif.org/ver10/schema";
constexpr char topics[] = "http://www.onvif.org/ver10/topics";
constexpr char notification[] = "http://docs.oasis-open.org/wsn/b-2";
constexpr char device[] = "http://www.onvif.org/ver10/device/wsdl";
constexpr char media[] = "http://www.onvif.org/ver10/media/wsdl";
constexpr char recording[] = "http://www.onvif.org/ver10/recording/wsdl";
constexpr char search[] = "http://www.onvif.org/ver10/search/wsdl";
constexpr char replay[] = "http://www.onvif.org/ver10/replay/wsdl";
} // namespace onvif_ns

/// A fault by ONVIF Core 5.8.2: code Sender or Receiver, up to two subcodes, a reason. No fault:
/// empty code.
struct SoapFault
{
    QString code;
    QString subcode;
    QString subcode2;
    QString reason;

    static SoapFault sender(const char* subcode, const char* subcode2, const QString& reason);
    static SoapFault receiver(const char* subcode, const char* subcode2, const QString& reason);
    explicit operator bool() const { return !code.isEmpty(); }
};

/// Whether a WS-UsernameToken (Web Services Security UsernameToken Profile 1.0) came with a request, and is right.
enum class TokenVerdict { Missing, Accepted, Refused };

/// A request as it came: its body's first element, and the header for the login.
struct SoapRequest
{
    XmlNode envelope;
    const XmlNode* body = nullptr; ///< the element that names the operation, in `envelope`

    /// False when the document is no SOAP 1.2 envelope with one operation in its body.
    bool parse(const QByteArray& document);

    /// The digest is checked against the password, its creation time against the device's clock (five minutes either
    /// way).
    TokenVerdict checkToken(const QByteArray& user, const QByteArray& password, std::int64_t deviceTimeNs) const;
};

/// A whole envelope: declares all prefixes (s, ter, tt, tns1, wsnt, tds, trt, trc, tse, trp) and lets `body` write the
/// content.
QByteArray writeEnvelope(const std::function<void(QXmlStreamWriter&)>& body);
QByteArray writeFault(const SoapFault& fault);

/// "2026-01-10T08:00:00Z", with milliseconds where there are any.
QString xsdTime(std::int64_t utcNs);
/// UTC nanoseconds of an xs:dateTime; a time without zone is taken as UTC. False when it is none.
bool parseXsdTime(const QString& text, std::int64_t& utcNs);
/// Milliseconds of an xs:duration of hours, minutes and seconds; the fallback when it is none.
std::int64_t parseDurationMs(const QString& text, std::int64_t fallback);

} // namespace recorder_sim
