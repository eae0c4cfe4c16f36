#include "TlsCheck.h"

#include <QCryptographicHash>

#include <openssl/x509.h>

#include <memory>

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
        const bool isPinned = !certificate.isNull() && keySha256(certificate) == m_policy.pinnedKeySha256;
        return isPinned ? QString() : tr("its key is not the one that was accepted before");
    }
    if (certificate.isNull())
        return tr("it shows no certificate");
    return errors.isEmpty() ? QString() : errors.first().errorString();
}

QByteArray TlsCheck::keySha256(const QSslCertificate& certificate)
{
    const QByteArray der = certificate.toDer();
    const auto* bytes = reinterpret_cast<const unsigned char*>(der.constData());
    const std::unique_ptr<X509, decltype(&X509_free)> x509(d2i_X509(nullptr, &bytes, der.size()), &X509_free);
    if (!x509)
        return {};
    unsigned char* keyBytes = nullptr;
    const int keySize = i2d_X509_PUBKEY(X509_get_X509_PUBKEY(x509.get()), &keyBytes);
    if (keySize <= 0)
        return {};
    const QByteArray hash = QCryptographicHash::hash(
        QByteArray::fromRawData(reinterpret_cast<const char*>(keyBytes), keySize), QCryptographicHash::Sha256);
    OPENSSL_free(keyBytes);
    return hash;
}

} // namespace vms_sdk::onvif
