#pragma once

#include "Error.h"
#include "SoapElement.h"
#include "XmlGuard.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QStringList>

namespace vms_sdk::onvif {

/// A fault as SOAP 1.2 (Code, Subcode, Reason) or SOAP 1.1 (faultcode, faultstring) tells it.
struct SoapFault
{
    QStringList codes; ///< local names from the outermost code inwards: "Sender", "NotAuthorized"
    QString reason;    ///< made fit for showing: one line, at most 200 characters
};

/// An answer read from bytes (SOAP 1.2 part 1, clause 5; SOAP 1.1 envelopes are read too). Either a payload, or a
/// fault, or an error that says why it could not be read; nothing beyond XmlLimits is ever built. Pure, any thread.
class SoapAnswer final
{
    Q_DECLARE_TR_FUNCTIONS(vms_sdk::onvif::SoapAnswer)

public:
    SoapAnswer() = default;
    explicit SoapAnswer(Error error)
        : m_error(std::move(error))
    {}
    static SoapAnswer parse(const QByteArray& document, const XmlLimits& limits = {});

    /// None when payload() can be used. A fault is mapped onto the kind that its codes mean.
    const Error& error() const { return m_error; }
    bool isFault() const { return !m_fault.codes.isEmpty() || !m_fault.reason.isEmpty(); }
    const SoapFault& fault() const { return m_fault; }
    /// The first element of the envelope's body.
    const SoapElement& payload() const { return m_payload; }
    /// The envelope's header; a null element when there is none.
    const SoapElement& header() const { return m_header; }

private:
    void readFault(const SoapElement& element);
    static Error corrupt(const QString& context);

    Error m_error;
    SoapFault m_fault;
    SoapElement m_header;
    SoapElement m_payload;
};

/// A device's text made fit for showing: one line without control and direction characters, bounded in length.
QString shownText(const QString& text, int maxLength = 200);

} // namespace vms_sdk::onvif
