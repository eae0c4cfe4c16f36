#include "TlsCheck.h"

#include "rtsp/PeerKey.h"

namespace vms_sdk::onvif {

QSslConfiguration TlsCheck::configuration() const
{
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setProtocol(QSsl::TlsV1_2OrLater);
    configuration.setPeerVerifyMode(QSslSocket::VerifyPeer);
    configuration.setCaCertificates(configuration.caCertificates() + m_policy.caCertificates);
    return configuration;
}

QString TlsCheck::refusal(const QSslCertificate& certificate, const QList<QSslError>& errors) const
{
    if (!m_policy.pinnedKeySha256.isEmpty()) {
        const bool isPinned = !certificate.isNull() && rtsp::peerKeySha256(certificate) == m_policy.pinnedKeySha256;
        return isPinned ? QString() : tr("its key is not the one that was accepted before");
    }
    if (certificate.isNull())
        return tr("it shows no certificate");
    return errors.isEmpty() ? QString() : errors.first().errorString();
}

} // namespace vms_sdk::onvif
