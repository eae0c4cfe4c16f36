#include "CertificateWords.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QHostAddress>
#include <QLocale>
#include <QSslCertificate>
#include <QStringList>

#include <algorithm>

namespace vemo_client {

namespace {

constexpr int longestName = 120;
constexpr int mostNames = 5;

QString tr(const char* text)
{
    return QCoreApplication::translate("vemo_client::CertificateWords", text);
}

/// A certificate comes from a stranger: control characters and endless names don't get into a question.
QString tame(QString name)
{
    name.remove(QChar::Null);
    name = name.simplified();
    return name.size() > longestName ? name.left(longestName) + QChar(0x2026) : name;
}

QString partyOf(const QStringList& commonName, const QStringList& organization)
{
    const QString name = tame(commonName.value(0));
    const QString company = tame(organization.value(0));
    if (name.isEmpty() || company.isEmpty())
        return !name.isEmpty() ? name : company;
    return tr("%1, %2").arg(name, company);
}

QStringList namesOf(const QSslCertificate& certificate)
{
    QStringList names = certificate.subjectAlternativeNames().values();
    if (names.isEmpty())
        names = certificate.subjectInfo(QSslCertificate::CommonName);
    return names;
}

bool isNameFor(const QString& name, const QString& host)
{
    if (name.compare(host, Qt::CaseInsensitive) == 0)
        return true;
    const QHostAddress address(name);
    if (!address.isNull())
        return address == QHostAddress(host);
    // A wildcard stands for the first label alone (RFC 6125, 6.4.3).
    return name.startsWith(QLatin1String("*.")) && QHostAddress(host).isNull() &&
           host.section(QLatin1Char('.'), 1).compare(name.mid(2), Qt::CaseInsensitive) == 0;
}

QString day(const QDateTime& time)
{
    return QLocale().toString(time.toLocalTime().date(), QLocale::ShortFormat);
}

} // namespace

QVector<CertificateWords::Fact> CertificateWords::facts(const QSslCertificate& certificate)
{
    if (certificate.isNull())
        return {};
    const QString subject = partyOf(certificate.subjectInfo(QSslCertificate::CommonName),
                                    certificate.subjectInfo(QSslCertificate::Organization));
    const QString issuer = certificate.isSelfSigned() ? tr("itself")
                                                      : partyOf(certificate.issuerInfo(QSslCertificate::CommonName),
                                                                certificate.issuerInfo(QSslCertificate::Organization));
    QStringList names = namesOf(certificate).mid(0, mostNames);
    std::transform(names.cbegin(), names.cend(), names.begin(), tame);
    return {{tr("Issued for"), subject.isEmpty() ? tr("nobody that it names") : subject},
            {tr("Names"), names.isEmpty() ? tr("none") : names.join(QLatin1String(", "))},
            {tr("Issued by"), issuer.isEmpty() ? tr("nobody that it names") : issuer},
            {tr("Valid"), tr("%1 to %2").arg(day(certificate.effectiveDate()), day(certificate.expiryDate()))}};
}

QStringList CertificateWords::problems(const QSslCertificate& certificate, const QString& host, const QDateTime& now)
{
    QStringList problems;
    if (certificate.isNull())
        return problems;
    if (certificate.expiryDate() < now)
        problems.append(tr("It has run out on %1.").arg(day(certificate.expiryDate())));
    if (certificate.effectiveDate() > now)
        problems.append(tr("It is not valid before %1. Are the clocks right?").arg(day(certificate.effectiveDate())));
    const QStringList names = namesOf(certificate);
    if (std::none_of(names.cbegin(), names.cend(), [&host](const QString& name) { return isNameFor(name, host); }))
        problems.append(tr("It is not issued for %1.").arg(host));
    if (certificate.isSelfSigned())
        problems.append(tr("Nobody but the recorder itself vouches for it."));
    return problems;
}

QString CertificateWords::fingerprint(const QByteArray& sha256)
{
    constexpr int bytesALine = 16;
    QStringList lines;
    for (int at = 0; at < sha256.size(); at += bytesALine)
        lines.append(QString::fromLatin1(sha256.mid(at, bytesALine).toHex(':').toUpper()));
    return lines.join(QLatin1Char('\n'));
}

} // namespace vemo_client
