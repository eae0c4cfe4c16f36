#include "RecorderAddress.h"

#include <QCoreApplication>
#include <QHostAddress>
#include <QRegularExpression>

namespace vemo_client {

namespace {

constexpr int longestAddress = 2048;
constexpr int highestPort = 65535;

QString tr(const char* text)
{
    return QCoreApplication::translate("vemo_client::RecorderAddress", text);
}

RecorderAddress wrong(const QString& problem)
{
    return {QUrl(), problem};
}

int authorityBegin(const QString& text)
{
    const int slashes = text.indexOf(QLatin1String("://"));
    return slashes < 0 ? 0 : slashes + 3;
}

/// Host and port between "://" and the path, as typed.
QString authorityOf(const QString& text)
{
    const int begin = authorityBegin(text);
    static const QRegularExpression ends(QStringLiteral("[/?#]"));
    const int end = text.indexOf(ends, begin);
    return text.mid(begin, end < 0 ? -1 : end - begin);
}

QString hostOf(const QString& authority)
{
    return authority.left(authority.indexOf(QLatin1Char(':'), authority.lastIndexOf(QLatin1Char(']')) + 1));
}

/// What looks like numbers is meant as numbers: "192.168.1" would be completed to some other host.
bool isOfNumbers(const QString& host)
{
    static const QRegularExpression numbers(QStringLiteral("^[0-9.]+$"));
    return numbers.match(host).hasMatch();
}

/// What stands behind the host is stored readable.
QString problemOfPath(const QString& path)
{
    static const QRegularExpression password(QStringLiteral("[/?&;](?:password|passwd|passwort|pass|pwd|psw)=[^&;/]"),
                                             QRegularExpression::CaseInsensitiveOption);
    if (password.match(path).hasMatch())
        return tr("The address carries a password, which would be stored readable. Put it into its own field.");
    if (path.contains(QLatin1Char('@')))
        return tr("There is an @ behind the host. Put user and password into their own fields, or write it as %40.");
    return QString();
}

QString problemOfAuthority(const QString& authority)
{
    if (authority.contains(QLatin1Char('@')))
        return tr("The address carries a login. Put user and password into their own fields.");
    const QString host = hostOf(authority);
    if (host.isEmpty())
        return tr("The address names no host. Example: 192.168.1.20");
    if (host.size() < authority.size()) {
        bool isNumber = false;
        const int port = authority.mid(host.size() + 1).toInt(&isNumber);
        if (!isNumber || port < 1 || port > highestPort)
            return tr("The port must be a number from 1 to 65535.");
    }
    static const QRegularExpression fourNumbers(QStringLiteral("^[0-9]{1,3}(\\.[0-9]{1,3}){3}$"));
    if (isOfNumbers(host) &&
        (!fourNumbers.match(host).hasMatch() || QHostAddress(host).protocol() != QAbstractSocket::IPv4Protocol))
        return tr("An address of numbers has four of them from 0 to 255. Example: 192.168.1.20");
    return QString();
}

} // namespace

RecorderAddress RecorderAddress::parse(const QString& typed)
{
    QString text = typed.trimmed();
    if (text.isEmpty())
        return wrong(tr("Type the address of the recorder. Example: 192.168.1.20"));
    if (text.size() > longestAddress)
        return wrong(tr("The address is longer than any address is."));
    static const QRegularExpression blanks(QStringLiteral("[\\s\\p{C}]"));
    if (text.contains(blanks))
        return wrong(tr("An address holds no spaces."));
    if (!text.contains(QLatin1String("://"))) {
        // A bare IPv6 address has more than one colon and no brackets yet.
        if (QHostAddress(text).protocol() == QAbstractSocket::IPv6Protocol)
            text = QLatin1Char('[') + text + QLatin1Char(']');
        text.prepend(QLatin1String("http://"));
    }
    static const QStringList schemes{QStringLiteral("http"), QStringLiteral("https"), QStringLiteral("rtsp"),
                                     QStringLiteral("rtsps")};
    if (!schemes.contains(text.section(QLatin1Char(':'), 0, 0).toLower()))
        return wrong(tr("The address must begin with http, https, rtsp or rtsps."));
    QString authority = authorityOf(text);
    if (isOfNumbers(hostOf(authority))) {
        // Zeros in front are padding here; left there, they make an octal number and some other host of it.
        static const QRegularExpression padding(QStringLiteral("(?<![0-9])0+(?=[0-9])"));
        const int typedSize = authority.size();
        authority.remove(padding);
        text.replace(authorityBegin(text), typedSize, authority);
    }
    QString problem = problemOfAuthority(authority);
    if (problem.isEmpty())
        problem = problemOfPath(text.mid(authorityBegin(text) + authority.size()));
    if (!problem.isEmpty())
        return wrong(problem);

    // "{channel}" stands for a channel's number and is no character of an address, so the strict reading goes without.
    const QUrl bare(QString(text).remove(QLatin1String("{channel}")), QUrl::StrictMode);
    if (!bare.isValid() || bare.host().isEmpty())
        return wrong(tr("This can't be read as an address. Example: 192.168.1.20"));
    QUrl url = text.contains(QLatin1String("{channel}")) ? QUrl(text, QUrl::TolerantMode) : bare;
    url.setFragment(QString());
    if (url.path() == QLatin1String("/") && !isDirect(url))
        url.setPath(QString());
    return {url, QString()};
}

bool RecorderAddress::isDirect(const QUrl& url)
{
    return url.scheme().startsWith(QLatin1String("rtsp"));
}

std::optional<RecorderAddress::WithLogin> RecorderAddress::splitLogin(const QString& typed)
{
    const QString text = typed.trimmed();
    const int begin = authorityBegin(text);
    const QString authority = authorityOf(text);
    const int at = authority.lastIndexOf(QLatin1Char('@'));
    if (at < 0 || text.size() > longestAddress)
        return std::nullopt;
    const QString login = authority.left(at);
    const auto decoded = [](const QString& part) { return QUrl::fromPercentEncoding(part.toUtf8()); };
    const int colon = login.indexOf(QLatin1Char(':'));
    return WithLogin{text.left(begin) + text.mid(begin + at + 1), decoded(login.left(colon)),
                     colon < 0 ? QString() : decoded(login.mid(colon + 1))};
}

bool RecorderAddress::hasChannelNumber(const QUrl& url)
{
    return url.toString().contains(QLatin1String("{channel}")) ||
           url.toString(QUrl::FullyEncoded).contains(QLatin1String("%7Bchannel%7D"));
}

QString RecorderAddress::typed(const QUrl& url)
{
    const QUrl shown = url.adjusted(QUrl::RemoveUserInfo);
    QString text = shown.toString(QUrl::EncodeSpaces);
    text.replace(QLatin1String("%7Bchannel%7D"), QLatin1String("{channel}"));
    // Other blanks and signs without a form of their own can't be typed.
    return parse(text).url == url ? text : shown.toString(QUrl::FullyEncoded);
}

QString RecorderAddress::text(const QUrl& url)
{
    if (isDirect(url) || url.scheme() == QLatin1String("https"))
        return url.toString(QUrl::RemoveUserInfo | QUrl::RemovePath | QUrl::RemoveQuery | QUrl::RemoveFragment);
    return url.authority(QUrl::PrettyDecoded);
}

} // namespace vemo_client
