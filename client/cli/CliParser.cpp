#include "CliParser.h"

#include "CliBackupParser.h"
#include "CliLocalParser.h"
#include "CliOptions.h"
#include "CliQueueParser.h"
#include "CliTell.h"
#include "CliUserParser.h"
#include "OptionReader.h"
#include "TimeText.h"

#include <ProgramLog.h>

#include <QCommandLineParser>
#include <QCoreApplication>

namespace vemo_client {

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("vemo_client::CliParser", text);
}

CliCommand parseVerb(CliCommand::Verb verb, const QString& name, const QStringList& arguments, CliCommand command,
                     const std::optional<QString>& environmentPassword)
{
    const CliOptions options;
    QCommandLineParser parser;
    const bool download = verb == CliCommand::Verb::Download;
    parser.setApplicationDescription((download ? tr("Downloads what a recorder has of a span of time, as MP4.")
                                               : tr("Lists the recordings of a channel in a span of time.")) %
                                     QLatin1String("\n\n") % CliTell::exitCodes());
    parser.addOptions({options.help, options.version, options.data, options.device, options.user, options.passwordFile,
                       options.channel, options.begin, options.end, options.pin, options.ca, options.json,
                       options.verbose});
    if (download)
        parser.addOption(options.out);
    const QString again = QLatin1String(" ") % tr("See vemo_client %1 --help.").arg(name);
    if (!parser.parse(arguments))
        return CliTell::misuse(parser.errorText() % again);
    if (parser.isSet(options.help))
        return CliTell::help(parser.helpText().replace(QLatin1String(" [options]"),
                                                       QLatin1String(" ") % name % QLatin1String(" [options]")));
    if (parser.isSet(options.version))
        return CliTell::version();
    if (!parser.positionalArguments().isEmpty())
        return CliTell::misuse(
            tr("\"%1\" is one argument too many.").arg(parser.positionalArguments().constFirst().left(64)) % again);

    OptionReader reader(parser, options);
    command.verb = verb;
    if (parser.isSet(options.data))
        command.dataDir = parser.value(options.data);
    command.json = parser.isSet(options.json);
    command.verbose = parser.isSet(options.verbose);
    command.device.address = reader.address();
    command.device.user = parser.value(options.user);
    const std::optional<QString> password = reader.password(environmentPassword);
    if (!password && parser.isSet(options.user))
        reader.failWithoutPassword();
    command.device.password = password.value_or(QString());
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
        return CliTell::misuse(reader.error() % again);
    return command;
}

} // namespace

CliCommand CliParser::parse(const QStringList& arguments, const std::optional<QString>& environmentPassword)
{
    const CliOptions options;
    QCommandLineParser parser;
    parser.setOptionsAfterPositionalArgumentsMode(QCommandLineParser::ParseAsPositionalArguments);
    parser.setApplicationDescription(
        tr("Vemo, a client for network video recorders. Without a verb it opens the window.\n\n"
           "Verbs:\n"
           "  search    lists the recordings of a channel in a span of time\n"
           "  download  downloads a span of time as MP4\n"
           "  queue     works on the stored downloads while no window is open\n"
           "  backup    plans backups of whole days, and works them off while no window is open\n"
           "  local     lists, saves and deletes the recordings and snapshots on this computer\n"
           "  user      adds and lists those who may log in to the window, and sets their passwords\n"
           "Their options: vemo_client <verb> --help\n") %
        QLatin1Char('\n') % CliTell::exitCodes());
    parser.addOptions({options.help, options.version, options.data, options.theme, options.logLevel});
    parser.addPositionalArgument(QStringLiteral("verb"), tr("What to do without a window."), QStringLiteral("[verb]"));
    const QString again = QLatin1String(" ") % tr("See vemo_client --help.");
    if (!parser.parse(arguments))
        return CliTell::misuse(parser.errorText() % again);
    if (parser.isSet(options.help))
        return CliTell::help(parser.helpText());
    if (parser.isSet(options.version))
        return CliTell::version();

    CliCommand command;
    command.dataDir = parser.value(options.data);
    command.theme = parser.value(options.theme);
    if (!command.theme.isEmpty() && command.theme != QLatin1String("dark") && command.theme != QLatin1String("light"))
        return CliTell::misuse(tr("--theme is dark or light.") % again);
    if (parser.isSet(options.logLevel))
        command.logLevel = parser.value(options.logLevel);
    if (vemo_worker::ProgramLog::levelOf(command.logLevel) == vemo_worker::ProgramLog::Level::Unknown)
        return CliTell::misuse(tr("--log-level is debug, info, warning or error.") % again);
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
    if (name == QLatin1String("queue"))
        return CliQueueParser::parse(rest, command, environmentPassword);
    if (name == QLatin1String("backup"))
        return CliBackupParser::parse(rest, command, environmentPassword);
    if (name == QLatin1String("local"))
        return CliLocalParser::parse(rest, command);
    if (name == QLatin1String("user"))
        return CliUserParser::parse(rest, command, environmentPassword);
    return CliTell::misuse(tr("\"%1\" is not a verb.").arg(name.left(64)) % again);
}

} // namespace vemo_client
