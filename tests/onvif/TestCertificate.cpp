#include "TestCertificate.h"

#include <QSslSocket>

#include <openssl/ec.h>
#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/x509v3.h>

#include <memory>

namespace {

QByteArray takePem(BIO* bio)
{
    char* data = nullptr;
    const long size = BIO_get_mem_data(bio, &data);
    QByteArray pem(data, static_cast<int>(size));
    BIO_free(bio);
    return pem;
}

} // namespace

TestCertificate TestCertificate::make(const QByteArray& commonName, bool forLoopbackAddress, int validDays)
{
    const std::unique_ptr<EVP_PKEY, decltype(&EVP_PKEY_free)> key(EVP_EC_gen("P-256"), &EVP_PKEY_free);
    const std::unique_ptr<X509, decltype(&X509_free)> x509(X509_new(), &X509_free);
    X509_set_version(x509.get(), 2);
    ASN1_INTEGER_set(X509_get_serialNumber(x509.get()), 1);
    X509_gmtime_adj(X509_getm_notBefore(x509.get()), -60L * 86400);
    X509_gmtime_adj(X509_getm_notAfter(x509.get()), validDays * 86400L);
    X509_set_pubkey(x509.get(), key.get());
    X509_NAME* name = X509_get_subject_name(x509.get());
    X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_UTF8,
                               reinterpret_cast<const unsigned char*>(commonName.constData()), -1, -1, 0);
    X509_set_issuer_name(x509.get(), name);
    if (forLoopbackAddress) {
        X509_EXTENSION* extension = X509V3_EXT_conf_nid(nullptr, nullptr, NID_subject_alt_name, "IP:127.0.0.1");
        X509_add_ext(x509.get(), extension, -1);
        X509_EXTENSION_free(extension);
    }
    X509_sign(x509.get(), key.get(), EVP_sha256());

    BIO* certificatePem = BIO_new(BIO_s_mem());
    PEM_write_bio_X509(certificatePem, x509.get());
    BIO* keyPem = BIO_new(BIO_s_mem());
    PEM_write_bio_PrivateKey(keyPem, key.get(), nullptr, nullptr, 0, nullptr, nullptr);
    return {QSslCertificate(takePem(certificatePem)), QSslKey(takePem(keyPem), QSsl::Ec)};
}

QSslConfiguration TestCertificate::serverConfiguration() const
{
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setLocalCertificate(certificate);
    configuration.setPrivateKey(key);
    configuration.setPeerVerifyMode(QSslSocket::VerifyNone);
    return configuration;
}
