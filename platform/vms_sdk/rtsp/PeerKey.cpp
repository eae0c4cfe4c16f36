#include "PeerKey.h"

#include <QCryptographicHash>
#include <QSslCertificate>

#include <openssl/x509.h>

#include <memory>

namespace vms_sdk::rtsp {

QByteArray peerKeySha256(const QSslCertificate& certificate)
{
    // QSslKey knows no DER of Ed25519 keys, so OpenSSL takes the key out.
    const QByteArray der = certificate.toDer();
    const auto* at = reinterpret_cast<const unsigned char*>(der.constData());
    const std::unique_ptr<X509, decltype(&X509_free)> parsed(d2i_X509(nullptr, &at, der.size()), &X509_free);
    if (!parsed)
        return {};
    unsigned char* key = nullptr;
    const int bytes = i2d_X509_PUBKEY(X509_get_X509_PUBKEY(parsed.get()), &key);
    if (bytes <= 0)
        return {};
    const QByteArray hash = QCryptographicHash::hash(QByteArray::fromRawData(reinterpret_cast<const char*>(key), bytes),
                                                     QCryptographicHash::Sha256);
    OPENSSL_free(key);
    return hash;
}

} // namespace vms_sdk::rtsp
