#include "OptionReader.h"

#include "TimeText.h"

#include <QCommandLineParser>
#include <QFile>

#include <cstdio>

namespace vemo_client {

namespace {

constexpr int greatestChannel = 9999;
constexpr int mostChannels = 64;
constexpr qint64 passwordFileLimit = 4096;
constexpr qint64 certificateFileLimit = 4 * 1024 * 1024;
constexpr int pinBytes = 32;

} // namespace

OptionReader::OptionReader(const QCommandLineParser& parser, const CliOptions& options)
    : m_parser(parser)
    , m_options(options)
{}

void OptionReader::fail(const QString& sentence)
{
    if (m_error.isEmpty())
        m_error = sentence;
}

QString OptionReader::required(const QCommandLineOption& option)
{
    const QString value = m_parser.value(option);
    if (value.isEmpty())
        fail(tr("--%1 is missing.").arg(option.names().constLast()));
    return value;
}

QDateTime OptionReader::time(const QCommandLineOption& option)
{
    const QString text = required(option);
    if (text.isEmpty())
        return {};
    const TimeText::Parsed parsed = TimeText::parse(text);
    if (!parsed.error.isEmpty())
        fail(parsed.error);
    return parsed.time;
}

QUrl OptionReader::address()
{
    QString text = required(m_options.device);
    if (text.isEmpty())
        return {};
    if (!text.contains(QLatin1String("://")))
        text.prepend(QLatin1String("http://"));
    const QUrl url(text, QUrl::StrictMode);
    static const QStringList schemes{QStringLiteral("http"), QStringLiteral("https"), QStringLiteral("rtsp"),
                                     QStringLiteral("rtsps")};
    // "{channel}" is ours and no character of an address, so the strict reading is tried without it.
    const QUrl bare(QString(text).remove(QLatin1String("{channel}")), QUrl::StrictMode);
    if (!bare.isValid() || bare.host().isEmpty() || !schemes.contains(bare.scheme()))
        fail(tr("The address of the recorder must be an http, https, rtsp or rtsps address with a host."));
    else if (!bare.userInfo().isEmpty())
        fail(tr("The address of the recorder carries a login; give it by --user and --password-file."));
    return url.isValid() ? url : QUrl(text, QUrl::TolerantMode);
}

std::optional<QString> OptionReader::password(const std::optional<QString>& fromEnvironment)
{
    const QString path = m_parser.value(m_options.passwordFile);
    if (path.isEmpty())
        return fromEnvironment;
    QFile file(path);
    const bool isOpen =
        path == QLatin1String("-") ? file.open(stdin, QIODevice::ReadOnly) : file.open(QIODevice::ReadOnly);
    if (!isOpen) {
        fail(tr("The password file %1 can't be read: %2.").arg(path, file.errorString()));
        return QString();
    }
    QByteArray line = file.readLine(passwordFileLimit + 1);
    while (line.endsWith('\n') || line.endsWith('\r'))
        line.chop(1);
    if (line.size() >= passwordFileLimit)
        fail(tr("The first line of the password file %1 is longer than %2 bytes.").arg(path).arg(passwordFileLimit));
    return QString::fromUtf8(line);
}

void OptionReader::failWithoutPassword()
{
    fail(tr("The password is missing: give --password-file or set VEMO_PASSWORD."));
}

QList<int> OptionReader::channels()
{
    QList<int> numbers;
    if (!m_parser.isSet(m_options.channel)) {
        required(m_options.channel);
        return numbers;
    }
    const QStringList parts = m_parser.values(m_options.channel).join(QLatin1Char(',')).split(QLatin1Char(','));
    for (const QString& part : parts) {
        bool ok = false;
        const int number = part.trimmed().toInt(&ok);
        if (!ok || number < 1 || number > greatestChannel) {
            fail(tr("\"%1\" is not a channel; channels are numbers from 1 to %2.")
                     .arg(part.left(64))
                     .arg(greatestChannel));
            return {};
        }
        if (!numbers.contains(number))
            numbers.append(number);
    }
    if (numbers.size() > mostChannels)
        fail(tr("At most %1 channels at once.").arg(mostChannels));
    return numbers;
}

vms_sdk::TlsPolicy OptionReader::tls()
{
    vms_sdk::TlsPolicy policy;
    if (m_parser.isSet(m_options.pin)) {
        QString hex = m_parser.value(m_options.pin);
        hex.remove(QLatin1Char(':'));
        policy.pinnedKeySha256 = QByteArray::fromHex(hex.toLatin1());
        if (policy.pinnedKeySha256.size() != pinBytes || hex.size() != 2 * pinBytes)
            fail(tr("--pin takes a SHA-256: 64 hexadecimal digits."));
    }
    if (m_parser.isSet(m_options.ca)) {
        const QString path = m_parser.value(m_options.ca);
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly)) {
            fail(tr("The certificate file %1 can't be read: %2.").arg(path, file.errorString()));
            return policy;
        }
        policy.caCertificates = QSslCertificate::fromData(file.read(certificateFileLimit), QSsl::Pem);
        if (policy.caCertificates.isEmpty())
            fail(tr("The file %1 holds no PEM certificate.").arg(path));
    }
    return policy;
}

} // namespace vemo_client
