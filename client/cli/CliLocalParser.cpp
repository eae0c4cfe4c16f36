#include "CliLocalParser.h"

#include "CliOptions.h"
#include "CliTell.h"
#include "OptionReader.h"
#include "TimeText.h"

#include <QCommandLineParser>
#include <QCoreApplication>

namespace vemo_client {

namespace {

using Action = LocalOptions::Action;
using Kind = LocalOptions::Kind;

QString tr(const char* text)
{
    return QCoreApplication::translate("vemo_client::CliParser", text);
}

/// Options of this verb alone.
struct LocalVerbOptions
{
    QCommandLineOption begin{QStringLiteral("begin"),
                             tr("Only what touches the time from here on, as 2026-01-10T08:00:00."), tr("time")};
    QCommandLineOption end{QStringLiteral("end"), tr("Only what touches the time up to here."), tr("time")};
    QCommandLineOption channel{QStringLiteral("channel"), tr("Only of the channel with this name."), tr("name")};
    QCommandLineOption all{QStringLiteral("all"), tr("Every file, of every time and channel.")};
    QCommandLineOption to{QStringLiteral("to"), tr("Folder to save in. Files there are never overwritten."), tr("dir")};
    QCommandLineOption yes{QStringLiteral("yes"), tr("Deletes without a further question.")};
    QCommandLineOption dir{
        QStringLiteral("dir"),
        tr("Folder to look through with what is below it, instead of the client's own; its files are known from then "
           "on."),
        tr("dir")};
};

Kind kindOf(const QString& name)
{
    static const QMap<QString, Kind> kinds{{QStringLiteral("recordings"), Kind::Recordings},
                                           {QStringLiteral("snapshots"), Kind::Snapshots}};
    return kinds.value(name, Kind::Unknown);
}

Action actionOf(const QString& name)
{
    static const QMap<QString, Action> actions{{QStringLiteral("list"), Action::List},
                                               {QStringLiteral("save-as"), Action::SaveAs},
                                               {QStringLiteral("delete"), Action::Delete},
                                               {QStringLiteral("rescan"), Action::Rescan}};
    return actions.value(name, Action::Unknown);
}

QString description()
{
    return tr("Works on the recordings or the snapshots that this computer holds.\n\n"
              "Actions, after \"recordings\" or \"snapshots\":\n"
              "  list     tells each file with its channel and its times, broken ones too\n"
              "  save-as  copies files into a folder, named by channel and time\n"
              "  delete   deletes files, into the recycle bin where there is one, and forgets them\n"
              "  rescan   finds what was added or removed without the client, of both kinds\n"
              "list --json writes an object a line: path, channel, begin and end (of a snapshot: captured),\n"
              "bytes, ok; where ok is false, problem tells why; guessed is true for a span that the file does\n"
              "not tell. delete and rescan need the window of the data folder closed. The exit code is 8 when a\n"
              "file could not be saved or deleted, or a folder not be looked through.\n") %
           QLatin1Char('\n') % CliTell::exitCodes();
}

void readSpan(OptionReader& reader, const QCommandLineParser& parser, const LocalVerbOptions& options,
              CliCommand* command)
{
    if (parser.isSet(options.begin))
        command->begin = reader.time(options.begin);
    if (parser.isSet(options.end))
        command->end = reader.time(options.end);
    if (command->begin.isValid() && command->end.isValid() && command->begin >= command->end)
        reader.fail(tr("The end, %1, is not after the begin, %2.")
                        .arg(TimeText::plain(command->end), TimeText::plain(command->begin)));
    if (parser.isSet(options.channel))
        command->local.channel = reader.required(options.channel);
}

void readOptions(OptionReader& reader, const QCommandLineParser& parser, const LocalVerbOptions& options,
                 CliCommand* command)
{
    LocalOptions& local = command->local;
    if (local.action == Action::Rescan) {
        if (parser.isSet(options.dir))
            local.folder = reader.required(options.dir);
        return;
    }
    readSpan(reader, parser, options, command);
    if (local.action == Action::List)
        return;
    const bool isChosen = parser.isSet(options.begin) || parser.isSet(options.end) || parser.isSet(options.channel);
    if (isChosen == parser.isSet(options.all))
        reader.fail(tr("Give either --all or what to choose by: --begin, --end, --channel."));
    if (local.action == Action::SaveAs)
        local.target = reader.required(options.to);
    else if (!parser.isSet(options.yes))
        reader.fail(tr("--yes is missing; list tells what would be deleted."));
}

} // namespace

CliCommand CliLocalParser::parse(const QStringList& arguments, CliCommand command)
{
    QStringList rest = arguments;
    QStringList words;
    while (words.size() < 2 && rest.size() > 1 && !rest.at(1).startsWith(QLatin1Char('-')))
        words.append(rest.takeAt(1));
    command.local.kind = kindOf(words.value(0));
    command.local.action = actionOf(words.value(1));

    const CliOptions options;
    const LocalVerbOptions own;
    QCommandLineParser parser;
    parser.setApplicationDescription(description());
    parser.addOptions({options.help, options.data, options.json, options.verbose});
    switch (command.local.action) {
    case Action::List:
        parser.addOptions({own.begin, own.end, own.channel});
        break;
    case Action::SaveAs:
        parser.addOptions({own.begin, own.end, own.channel, own.all, own.to});
        break;
    case Action::Delete:
        parser.addOptions({own.begin, own.end, own.channel, own.all, own.yes});
        break;
    case Action::Rescan:
        parser.addOption(own.dir);
        break;
    case Action::Unknown:
        break;
    }

    const QString again = QLatin1String(" ") % tr("See vemo_client local --help.");
    if (!words.isEmpty() && command.local.kind == Kind::Unknown)
        return CliTell::misuse(tr("\"%1\" is neither recordings nor snapshots.").arg(words.constFirst().left(64)) %
                               again);
    if (words.size() > 1 && command.local.action == Action::Unknown)
        return CliTell::misuse(tr("\"%1\" is no action of local.").arg(words.constLast().left(64)) % again);
    if (!parser.parse(rest))
        return CliTell::misuse(parser.errorText() % again);
    if (parser.isSet(options.help))
        return CliTell::help(parser.helpText().replace(
            QLatin1String(" [options]"),
            QLatin1String(" local ") %
                (words.size() > 1 ? words.join(QLatin1Char(' ')) : QStringLiteral("recordings|snapshots <action>")) %
                QLatin1String(" [options]")));
    if (words.size() < 2)
        return CliTell::misuse(tr("What to do with the local files is missing.") % again);
    if (!parser.positionalArguments().isEmpty())
        return CliTell::misuse(
            tr("\"%1\" is one argument too many.").arg(parser.positionalArguments().constFirst().left(64)) % again);

    OptionReader reader(parser, options);
    command.verb = CliCommand::Verb::Local;
    if (parser.isSet(options.data))
        command.dataDir = parser.value(options.data);
    command.json = parser.isSet(options.json);
    command.verbose = parser.isSet(options.verbose);
    readOptions(reader, parser, own, &command);
    if (!reader.error().isEmpty())
        return CliTell::misuse(reader.error() % again);
    return command;
}

} // namespace vemo_client
