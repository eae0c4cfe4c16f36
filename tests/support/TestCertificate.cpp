#include "TestCertificate.h"

#include <QHostAddress>
#include <QSslSocket>

#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/x509v3.h>

#include <memory>

namespace {

template <typename T, typename F>
std::unique_ptr<T, F> owned(T* object, F release)
{
    return std::unique_ptr<T, F>(object, release);
}

void addExtension(X509* certificate, int id, const QByteArray& value)
{
    X509V3_CTX context;
    X509V3_set_ctx(&context, certificate, certificate, nullptr, nullptr, 0);
    const auto extension = owned(X509V3_EXT_conf_nid(nullptr, &context, id, value.constData()), &X509_EXTENSION_free);
    X509_add_ext(certificate, extension.get(), -1);
}

QByteArray content(BIO* bio)
{
    char* data = nullptr;
    const long size = BIO_get_mem_data(bio, &data);
    return QByteArray(data, static_cast<int>(size));
}

} // namespace

TestCertificate TestCertificate::make(const QString& host, int days)
{
    const auto key = owned(EVP_EC_gen("P-256"), &EVP_PKEY_free);
    const auto x509 = owned(X509_new(), &X509_free);
    X509_set_version(x509.get(), 2);
    ASN1_INTEGER_set(X509_get_serialNumber(x509.get()), 1);
    constexpr long day = 86'400;
    X509_gmtime_adj(X509_getm_notBefore(x509.get()), -10 * day);
    X509_gmtime_adj(X509_getm_notAfter(x509.get()), days * day);
    X509_set_pubkey(x509.get(), key.get());
    const QByteArray name = host.toLatin1();
    X509_NAME* subject = X509_get_subject_name(x509.get());
    X509_NAME_add_entry_by_txt(subject, "CN", MBSTRING_ASC, reinterpret_cast<const unsigned char*>(name.constData()),
                               -1, -1, 0);
    X509_set_issuer_name(x509.get(), subject);
    addExtension(x509.get(), NID_basic_constraints, "critical,CA:TRUE");
    addExtension(x509.get(), NID_subject_alt_name, (QHostAddress(host).isNull() ? "DNS:" : "IP:") + name);
    X509_sign(x509.get(), key.get(), EVP_sha256());

    const auto certificateText = owned(BIO_new(BIO_s_mem()), &BIO_free);
    const auto keyText = owned(BIO_new(BIO_s_mem()), &BIO_free);
    PEM_write_bio_X509(certificateText.get(), x509.get());
    PEM_write_bio_PrivateKey(keyText.get(), key.get(), nullptr, nullptr, 0, nullptr, nullptr);
    return {QSslCertificate(content(certificateText.get()), QSsl::Pem),
            QSslKey(content(keyText.get()), QSsl::Ec, QSsl::Pem)};
}

QSslConfiguration TestCertificate::serverConfiguration(QSsl::SslProtocol protocol) const
{
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setLocalCertificate(certificate);
    configuration.setPrivateKey(key);
    configuration.setProtocol(protocol);
    configuration.setPeerVerifyMode(QSslSocket::VerifyNone);
    return configuration;
}
