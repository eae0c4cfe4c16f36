#pragma once

#include <QSslCertificate>
#include <QSslKey>
#include <QString>

namespace rtptest {

/// A self-signed certificate made for one test.
struct TestCertificate
{
    QSslCertificate certificate;
    QSslKey key;
};

/// `host` becomes the subject's name and, as DNS name or address, its alternative name. `days` below 0: expired.
TestCertificate makeCertificate(const QString& host, int days = 2);

} // namespace rtptest
