#include "Options.h"

#include "control/FaultPlan.h"

#include <QCommandLineParser>
#include <QDateTime>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

#include <cstdio>

namespace recorder_sim {
namespace {

constexpr int usageError = 2;

bool refuse(const QString& text, int& exitCode)
{
    std::fprintf(stderr, "recorder_sim: %s\n", qPrintable(text));
    exitCode = usageError;
    return false;
}

bool readNumber(const QCommandLineParser& parser, const QString& name, int low, int high, int& value)
{
    if (!parser.isSet(name))
        return true;
    bool ok = false;
    value = parser.value(name).toInt(&ok);
    return ok && value >= low && value <= high;
}

} // namespace

bool Options::parse(const QStringList& arguments, Options& options, int& exitCode)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "A simulated network video recorder: ONVIF over HTTP, RTSP live and replay, and a control address for tests.\n"
        "Prints one JSON line with its addresses when it is ready and serves until SIGTERM."));
    const auto text = [](const char* value) { return QString::fromLatin1(value); };
    parser.addOptions({
        {text("port"),
         text("ONVIF port; RTSP is the next, then control, ONVIF over TLS, RTSP over TLS. 0 takes free ones."),
         text("N"), text("0")},
        {text("bind"), text("Address to listen on."), text("IPV4"), text("127.0.0.1")},
        {text("channels"), text("Number of channels, 1 to 64."), text("N"), text("4")},
        {text("user"), text("Login name."), text("NAME"), text("admin")},
        {text("password-file"), text("File whose first line is the password."), text("FILE")},
        {text("first-day"), text("First recorded day; default two days ago."), text("YYYY-MM-DD")},
        {text("days"), text("Number of recorded days, 1 to 366."), text("N"), text("2")},
        {text("time-zone"), text("Zone of the recorded days, such as Europe/Berlin; default that of the system."),
         text("NAME")},
        {text("speed"), text("Cap on replay that is asked for without rate control: 'full', or N times real time."),
         text("full|N"), text("full")},
        {text("packet-size"), text("Bytes of an RTP packet, 200 to 65000."), text("N"), text("1400")},
        {text("tls-cert"), text("PEM certificate; with --tls-key, https and rtsps are served as well."), text("FILE")},
        {text("tls-key"), text("PEM key."), text("FILE")},
        {text("auth"),
         text("RTSP and HTTP login: basic, digest-md5, digest-sha256, both, digest-md5-sess, digest-sha256-sess, all."),
         text("KIND"), text("digest-md5")},
        {text("session-timeout"), text("Seconds without a request after which an RTSP session ends."), text("N"),
         text("60")},
        {text("max-sessions"), text("RTSP sessions at a time; one more gets 453."), text("N"), text("64")},
        {text("serial"), text("Serial number; a recorder with the same one is the same device, wherever it answers."),
         text("TEXT")},
        {text("names"), text("JSON file with a list of texts: the name of the device, then those of its channels."),
         text("FILE")},
        {text("discovery"), text("Answer WS-Discovery probes on UDP port 3702.")},
        {text("clips-dir"),
         text("Folder of the clips, made at first use by the ffmpeg program; default the user's cache."),
         text("FOLDER")},
        {text("fault"), text("Switch a fault on; may be given several times."), text("NAME[=VALUE]")},
    });
    const QCommandLineOption help = parser.addHelpOption();
    if (!parser.parse(arguments))
        return refuse(parser.errorText(), exitCode);
    if (parser.isSet(help)) {
        std::printf("%s\nFaults (--fault NAME=VALUE, or POST /fault?name=NAME&value=VALUE at the control address):\n%s",
                    qPrintable(parser.helpText()), FaultPlan::listOfNames().c_str());
        exitCode = 0;
        return false;
    }
    if (!parser.positionalArguments().isEmpty())
        return refuse(QStringLiteral("unexpected argument ") + parser.positionalArguments().constFirst(), exitCode);

    int port = 0;
    int packetSize = 1400;
    const bool numbers = readNumber(parser, text("port"), 0, 65000, port) &&
                         readNumber(parser, text("channels"), 1, 64, options.channels) &&
                         readNumber(parser, text("days"), 1, 366, options.days) &&
                         readNumber(parser, text("packet-size"), 200, 65000, packetSize) &&
                         readNumber(parser, text("session-timeout"), 1, 86400, options.sessionTimeoutSeconds) &&
                         readNumber(parser, text("max-sessions"), 1, 1000, options.maxSessions);
    if (!numbers)
        return refuse(QStringLiteral("a number is out of its range (see --help)"), exitCode);
    options.port = static_cast<std::uint16_t>(port);
    options.packetSize = static_cast<std::size_t>(packetSize);
    options.bind = parser.value(text("bind")).toStdString();
    options.user = parser.value(text("user")).toStdString();
    options.clipsFolder = parser.value(text("clips-dir"));
    options.serial = parser.value(text("serial")).toStdString();
    options.discovery = parser.isSet(text("discovery"));
    options.tlsCertificate = parser.value(text("tls-cert")).toStdString();
    options.tlsKey = parser.value(text("tls-key")).toStdString();
    if (options.tlsCertificate.empty() != options.tlsKey.empty())
        return refuse(QStringLiteral("--tls-cert and --tls-key go together"), exitCode);

    if (!parser.isSet(text("password-file")))
        return refuse(QStringLiteral("--password-file is missing"), exitCode);
    QFile passwordFile(parser.value(text("password-file")));
    if (!passwordFile.open(QIODevice::ReadOnly))
        return refuse(QStringLiteral("cannot read the password file ") + passwordFile.fileName(), exitCode);
    QByteArray password = passwordFile.readLine(4096);
    while (password.endsWith('\n') || password.endsWith('\r'))
        password.chop(1);
    options.password = password.toStdString();

    if (parser.isSet(text("names"))) {
        QFile file(parser.value(text("names")));
        const QJsonArray names =
            file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).array() : QJsonArray();
        if (names.isEmpty())
            return refuse(QStringLiteral("--names wants a JSON file with a list of texts"), exitCode);
        for (const QJsonValue& name : names)
            options.names.append(name.toString());
    }

    options.zone = QTimeZone::systemTimeZone();
    if (parser.isSet(text("time-zone"))) {
        options.zone = QTimeZone(parser.value(text("time-zone")).toLatin1());
        if (!options.zone.isValid())
            return refuse(QStringLiteral("unknown time zone ") + parser.value(text("time-zone")), exitCode);
    }
    options.firstDay = QDateTime::currentDateTimeUtc().toTimeZone(options.zone).date().addDays(-2);
    if (parser.isSet(text("first-day"))) {
        options.firstDay = QDate::fromString(parser.value(text("first-day")), Qt::ISODate);
        if (!options.firstDay.isValid())
            return refuse(QStringLiteral("--first-day wants YYYY-MM-DD"), exitCode);
    }
    const QString speed = parser.value(text("speed"));
    if (speed != text("full")) {
        bool ok = false;
        options.speed = speed.toDouble(&ok);
        if (!ok || options.speed <= 0)
            return refuse(QStringLiteral("--speed wants 'full' or a number above 0"), exitCode);
    }
    if (!DigestAuth::parseScheme(parser.value(text("auth")).toStdString(), options.auth))
        return refuse(QStringLiteral("unknown kind of login ") + parser.value(text("auth")), exitCode);
    for (const QString& fault : parser.values(text("fault")))
        options.faults.push_back(fault.toStdString());
    return true;
}

} // namespace recorder_sim
