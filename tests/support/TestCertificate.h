#pragma once

#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslKey>
#include <QString>

/// A self-signed certificate with a key of its own, made anew for one test.
struct TestCertificate
{
    QSslCertificate certificate;
    QSslKey key;

    /// `host` becomes the subject's name and, as DNS name or address, its alternative name. `days` below 0: expired.
    static TestCertificate make(const QString& host, int days = 2);
    QSslConfiguration serverConfiguration(QSsl::SslProtocol protocol = QSsl::TlsV1_2OrLater) const;
};
