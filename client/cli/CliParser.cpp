#include "CliParser.h"

#include "TimeText.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>

namespace vemo_client {

namespace {

constexpr int greatestChannel = 9999;
constexpr int mostChannels = 64;
constexpr qint64 passwordFileLimit = 4096;
constexpr qint64 certificateFileLimit = 4 * 1024 * 1024;
constexpr int pinBytes = 32;

QString tr(const char* text)
{
    return QCoreApplication::translate("vemo_client::CliParser", text);
}

CliCommand tell(ExitCode code, const QString& text)
{
    CliCommand command;
    command.verb = CliCommand::Verb::Tell;
    command.exitCode = code;
    command.text = text;
    return command;
}

CliCommand misuse(const QString& text)
{
    return tell(ExitCode::Usage, text);
}

QString versionText()
{
    return QStringLiteral("vemo_client ") % QCoreApplication::applicationVersion();
}

QString exitCodesText()
{
    return tr(
        "Exit codes: 0 done, 1 failed, 2 wrong use, 3 login refused, 4 recorder not reachable, 5 the recorder's limit "
        "is\n"
        "reached, 6 disk full or not writable, 7 no recording in the span, 8 incomplete (a playable part is there),\n"
        "130 interrupted (what had arrived is kept).\n");
}

struct Options
{
    QCommandLineOption help{{QStringLiteral("h"), QStringLiteral("help")}, tr("Shows this help.")};
    QCommandLineOption version{{QStringLiteral("v"), QStringLiteral("version")}, tr("Shows the version.")};
    QCommandLineOption data{QStringLiteral("data"), tr("Keeps settings and data below <dir>."), tr("dir")};
    QCommandLineOption theme{QStringLiteral("theme"), tr("Starts the window in this theme: dark or light."),
                             tr("name")};

    QCommandLineOption device{
        QStringLiteral("device"),
        tr("Address of the recorder: its ONVIF device service (http, https; the path may be left out), or a "
           "replay address (rtsp, rtsps; {channel} stands for the channel's number)."),
        tr("url")};
    QCommandLineOption user{QStringLiteral("user"), tr("User on the recorder."), tr("name")};
    QCommandLineOption passwordFile{
        QStringLiteral("password-file"),
        tr("File whose first line is the password. Without it, the environment variable VEMO_PASSWORD."), tr("file")};
    QCommandLineOption channel{QStringLiteral("channel"), tr("Channel number from 1; several: 1,2,3."), tr("n")};
    QCommandLineOption begin{QStringLiteral("begin"),
                             tr("Begin, as 2026-01-10T08:00:00; local time unless an offset follows."), tr("time")};
    QCommandLineOption end{QStringLiteral("end"), tr("End, likewise."), tr("time")};
    QCommandLineOption pin{QStringLiteral("pin"), tr("Accepts only the recorder whose public key has this SHA-256."),
                           tr("hex")};
    QCommandLineOption ca{QStringLiteral("ca"), tr("PEM file of certificates to trust beside the system's own."),
                          tr("file")};
    QCommandLineOption json{QStringLiteral("json"), tr("Writes one JSON object a line.")};
    QCommandLineOption verbose{QStringLiteral("verbose"), tr("Writes diagnostics to the standard error stream.")};
    QCommandLineOption out{
        QStringLiteral("out"),
        tr("File to write, or folder; with several channels a folder. Files there are never overwritten."), tr("path")};
};

/// Asked for values, each with a limit and a sentence of its own.
class Reader final
{
public:
    Reader(const QCommandLineParser& parser, const Options& options)
        : m_parser(parser)
        , m_options(options)
    {}

    QString error() const { return m_error; }

    QString required(const QCommandLineOption& option)
    {
        const QString value = m_parser.value(option);
        if (value.isEmpty())
            fail(tr("--%1 is missing.").arg(option.names().constLast()));
        return value;
    }

    QDateTime time(const QCommandLineOption& option)
    {
        const QString text = required(option);
        if (text.isEmpty())
            return {};
        const TimeText::Parsed parsed = TimeText::parse(text);
        if (!parsed.error.isEmpty())
            fail(parsed.error);
        return parsed.time;
    }

    QUrl address()
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

    QString password(const std::optional<QString>& fromEnvironment)
    {
        const QString path = m_parser.value(m_options.passwordFile);
        if (path.isEmpty()) {
            if (!fromEnvironment && m_parser.isSet(m_options.user))
                fail(tr("The password is missing: give --password-file or set VEMO_PASSWORD."));
            return fromEnvironment.value_or(QString());
        }
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly)) {
            fail(tr("The password file %1 can't be read: %2.").arg(path, file.errorString()));
            return {};
        }
        QByteArray line = file.readLine(passwordFileLimit + 1);
        while (line.endsWith('\n') || line.endsWith('\r'))
            line.chop(1);
        if (line.size() >= passwordFileLimit)
            fail(
                tr("The first line of the password file %1 is longer than %2 bytes.").arg(path).arg(passwordFileLimit));
        return QString::fromUtf8(line);
    }

    QList<int> channels()
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

    vms_sdk::TlsPolicy tls()
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

    void fail(const QString& sentence)
    {
        if (m_error.isEmpty())
            m_error = sentence;
    }

private:
    const QCommandLineParser& m_parser;
    const Options& m_options;
    QString m_error;
};

CliCommand parseVerb(CliCommand::Verb verb, const QString& name, const QStringList& arguments, CliCommand command,
                     const std::optional<QString>& environmentPassword)
{
    const Options options;
    QCommandLineParser parser;
    const bool download = verb == CliCommand::Verb::Download;
    parser.setApplicationDescription((download ? tr("Downloads what a recorder has of a span of time, as MP4.")
                                               : tr("Lists the recordings of a channel in a span of time.")) %
                                     QLatin1String("\n\n") % exitCodesText());
    parser.addOptions({options.help, options.version, options.data, options.device, options.user, options.passwordFile,
                       options.channel, options.begin, options.end, options.pin, options.ca, options.json,
                       options.verbose});
    if (download)
        parser.addOption(options.out);
    const QString again = QLatin1String(" ") % tr("See vemo_client %1 --help.").arg(name);
    if (!parser.parse(arguments))
        return misuse(parser.errorText() % again);
    if (parser.isSet(options.help))
        return tell(ExitCode::Done, parser.helpText().replace(QLatin1String(" [options]"),
                                                              QLatin1String(" ") % name % QLatin1String(" [options]")));
    if (parser.isSet(options.version))
        return tell(ExitCode::Done, versionText());
    if (!parser.positionalArguments().isEmpty())
        return misuse(tr("\"%1\" is one argument too many.").arg(parser.positionalArguments().constFirst().left(64)) %
                      again);

    Reader reader(parser, options);
    command.verb = verb;
    if (parser.isSet(options.data))
        command.dataDir = parser.value(options.data);
    command.json = parser.isSet(options.json);
    command.verbose = parser.isSet(options.verbose);
    command.device.address = reader.address();
    command.device.user = parser.value(options.user);
    command.device.password = reader.password(environmentPassword);
    command.device.tls = reader.tls();
    command.channels = reader.channels();
    command.begin = reader.time(options.begin);
    command.end = reader.time(options.end);
    if (command.begin.isValid() && command.end.isValid() && command.begin >= command.end)
        reader.fail(tr("The end, %1, is not after the begin, %2.")
                        .arg(TimeText::plain(command.end), TimeText::plain(command.begin)));
    if (download)
        command.out = reader.required(options.out);
    if (!reader.error().isEmpty())
        return misuse(reader.error() % again);
    return command;
}

} // namespace

CliCommand CliParser::parse(const QStringList& arguments, const std::optional<QString>& environmentPassword)
{
    const Options options;
    QCommandLineParser parser;
    parser.setOptionsAfterPositionalArgumentsMode(QCommandLineParser::ParseAsPositionalArguments);
    parser.setApplicationDescription(
        tr("Vemo, a client for network video recorders. Without a verb it opens the window.\n\n"
           "Verbs:\n"
           "  search    lists the recordings of a channel in a span of time\n"
           "  download  downloads a span of time as MP4\n"
           "Their options: vemo_client <verb> --help\n") %
        QLatin1Char('\n') % exitCodesText());
    parser.addOptions({options.help, options.version, options.data, options.theme});
    parser.addPositionalArgument(QStringLiteral("verb"), tr("What to do without a window."), QStringLiteral("[verb]"));
    const QString again = QLatin1String(" ") % tr("See vemo_client --help.");
    if (!parser.parse(arguments))
        return misuse(parser.errorText() % again);
    if (parser.isSet(options.help))
        return tell(ExitCode::Done, parser.helpText());
    if (parser.isSet(options.version))
        return tell(ExitCode::Done, versionText());

    CliCommand command;
    command.dataDir = parser.value(options.data);
    command.theme = parser.value(options.theme);
    if (!command.theme.isEmpty() && command.theme != QLatin1String("dark") && command.theme != QLatin1String("light"))
        return misuse(tr("--theme is dark or light.") % again);
    QStringList rest = parser.positionalArguments();
    if (rest.isEmpty()) {
        command.verb = CliCommand::Verb::Window;
        return command;
    }
    const QString name = rest.takeFirst();
    rest.prepend(arguments.value(0));
    if (name == QLatin1String("search"))
        return parseVerb(CliCommand::Verb::Search, name, rest, command, environmentPassword);
    if (name == QLatin1String("download"))
        return parseVerb(CliCommand::Verb::Download, name, rest, command, environmentPassword);
    return misuse(tr("\"%1\" is not a verb.").arg(name.left(64)) % again);
}

} // namespace vemo_client
