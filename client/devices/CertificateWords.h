#pragma once

#include <QPair>
#include <QString>
#include <QVector>

class QDateTime;
class QSslCertificate;

namespace vemo_client {

/// What a person needs to know of a certificate before trusting its key. Plain functions.
class CertificateWords final
{
public:
    CertificateWords() = delete;

    using Fact = QPair<QString, QString>; ///< what, and its value

    /// For whom, by whom and how long; empty for no certificate.
    static QVector<Fact> facts(const QSslCertificate& certificate);
    /// What is wrong with it for this host at this time, a sentence each: run out, not valid yet, for another name.
    static QStringList problems(const QSslCertificate& certificate, const QString& host, const QDateTime& now);
    /// "AA:BB:..." in two lines of 16 bytes.
    static QString fingerprint(const QByteArray& sha256);
};

} // namespace vemo_client
