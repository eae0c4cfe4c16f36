#pragma once

#include "VmsTypes.h"

#include <QCoreApplication>
#include <QList>
#include <QSslConfiguration>
#include <QSslError>

namespace vms_sdk::onvif {

/// Judges the peer of a TLS connection by a TlsPolicy, before anything is sent to it: a pin decides alone, without one
/// the certificate must be verified by the system's or the policy's certificate authorities for the host's name. Pure.
class TlsCheck final
{
    Q_DECLARE_TR_FUNCTIONS(vms_sdk::onvif::TlsCheck)

public:
    explicit TlsCheck(const TlsPolicy& policy)
        : m_policy(policy)
    {}

    /// TLS 1.2 at least, peer verified, the policy's authorities beside the system's.
    QSslConfiguration configuration() const;
    /// Empty when the peer is accepted, otherwise why not, as a part of a sentence.
    QString refusal(const QSslCertificate& certificate, const QList<QSslError>& errors) const;

private:
    const TlsPolicy m_policy;
};

} // namespace vms_sdk::onvif
