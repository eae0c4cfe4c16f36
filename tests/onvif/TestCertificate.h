#pragma once

#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslKey>

/// A self-signed certificate with a key of its own, made anew on every run.
struct TestCertificate
{
    QSslCertificate certificate;
    QSslKey key;

    static TestCertificate make(const QByteArray& commonName, bool forLoopbackAddress, int validDays = 30);
    QSslConfiguration serverConfiguration() const;
};
