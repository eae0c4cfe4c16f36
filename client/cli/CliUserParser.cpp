#include "CliUserParser.h"

#include "CliOptions.h"
#include "CliTell.h"
#include "OptionReader.h"

#include <SystemWorker.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QMap>

namespace vemo_client {

namespace {

using Action = UserOptions::Action;

QString tr(const char* text)
{
    return QCoreApplication::translate("vemo_client::CliParser", text);
}

/// Options of this verb alone.
struct UserVerbOptions
{
    QCommandLineOption name{QStringLiteral("name"), tr("Name of the user."), tr("name")};
    QCommandLineOption passwordFile{
        QStringLiteral("password-file"),
        tr("File whose first line is the user's password; \"-\" reads it from the standard input."), tr("file")};
    QCommandLineOption powers{
        QStringLiteral("powers"),
        tr("What the user may do, of: live, playback, download, recordings, snapshots, devices, logs, settings."),
        tr("list")};
    QCommandLineOption administrator{QStringLiteral("administrator"),
                                     tr("The user may do everything and manages the others.")};
    QCommandLineOption stay{QStringLiteral("stay-logged-in"),
                            tr("The window opens for this user without asking for the password.")};
};

const QMap<QString, int>& powerNames()
{
    static const QMap<QString, int> names{{QStringLiteral("live"), vemo_worker::PowerLive},
                                          {QStringLiteral("playback"), vemo_worker::PowerPlayback},
                                          {QStringLiteral("download"), vemo_worker::PowerDownload},
                                          {QStringLiteral("recordings"), vemo_worker::PowerLocalRecordings},
                                          {QStringLiteral("snapshots"), vemo_worker::PowerLocalSnapshots},
                                          {QStringLiteral("devices"), vemo_worker::PowerDevices},
                                          {QStringLiteral("logs"), vemo_worker::PowerLogs},
                                          {QStringLiteral("settings"), vemo_worker::PowerSettings}};
    return names;
}

Action actionOf(const QString& name)
{
    static const QMap<QString, Action> actions{{QStringLiteral("add"), Action::Add},
                                               {QStringLiteral("list"), Action::List},
                                               {QStringLiteral("password"), Action::Password},
                                               {QStringLiteral("remove"), Action::Remove}};
    return actions.value(name, Action::Unknown);
}

QString description()
{
    return tr("Works on the users who may log in to the window, for whoever owns the data folder in the operating\n"
              "system; no login is asked for, as with every verb. The window has to be closed for changes.\n\n"
              "Actions, after \"user\":\n"
              "  add       adds a user; the first one is to be an administrator. Accounts that can't be opened any\n"
              "            more are kept under another name, and the new administrator begins anew\n"
              "  list      tells the users and what they may do; with --json an object a line: name,\n"
              "            administrator, powers, enabled, last_login\n"
              "  password  sets a new password, which is the way back in for one that was forgotten\n"
              "  remove    removes a user\n") %
           QLatin1Char('\n') % CliTell::exitCodes();
}

int powersOf(OptionReader& reader, const QCommandLineParser& parser, const UserVerbOptions& options)
{
    if (parser.isSet(options.administrator)) {
        if (parser.isSet(options.powers))
            reader.fail(tr("Give either --administrator or --powers."));
        return vemo_worker::SystemWorker::allPowers;
    }
    int powers = 0;
    const QStringList names = parser.value(options.powers).split(QLatin1Char(','), Qt::SkipEmptyParts);
    for (const QString& name : names) {
        const int power = powerNames().value(name.trimmed());
        if (power == 0)
            reader.fail(tr("\"%1\" is no power; there are: %2.")
                            .arg(name.left(64), QStringList(powerNames().keys()).join(QStringLiteral(", "))));
        powers |= power;
    }
    return powers;
}

} // namespace

CliCommand CliUserParser::parse(const QStringList& arguments, CliCommand command,
                                const std::optional<QString>& environmentPassword)
{
    QStringList rest = arguments;
    QString action;
    if (rest.size() > 1 && !rest.at(1).startsWith(QLatin1Char('-')))
        action = rest.takeAt(1);
    command.user.action = actionOf(action);

    const CliOptions options;
    const UserVerbOptions own;
    QCommandLineParser parser;
    parser.setApplicationDescription(description());
    parser.addOptions({options.help, options.data, options.verbose});
    if (command.user.action == Action::List)
        parser.addOption(options.json);
    else
        parser.addOption(own.name);
    if (command.user.action == Action::Add || command.user.action == Action::Password)
        parser.addOptions({own.passwordFile, own.stay});
    if (command.user.action == Action::Add)
        parser.addOptions({own.powers, own.administrator});

    const QString again = QLatin1String(" ") % tr("See vemo_client user --help.");
    if (!action.isEmpty() && command.user.action == Action::Unknown)
        return CliTell::misuse(tr("\"%1\" is no action of user.").arg(action.left(64)) % again);
    if (!parser.parse(rest))
        return CliTell::misuse(parser.errorText() % again);
    if (parser.isSet(options.help))
        return CliTell::help(parser.helpText().replace(QLatin1String(" [options]"),
                                                       QLatin1String(" user ") %
                                                           (action.isEmpty() ? QStringLiteral("<action>") : action) %
                                                           QLatin1String(" [options]")));
    if (action.isEmpty())
        return CliTell::misuse(tr("What to do with the users is missing.") % again);
    if (!parser.positionalArguments().isEmpty())
        return CliTell::misuse(
            tr("\"%1\" is one argument too many.").arg(parser.positionalArguments().constFirst().left(64)) % again);

    OptionReader reader(parser, options);
    command.verb = CliCommand::Verb::User;
    if (parser.isSet(options.data))
        command.dataDir = parser.value(options.data);
    command.verbose = parser.isSet(options.verbose);
    if (command.user.action == Action::List) {
        command.json = parser.isSet(options.json);
        return command;
    }
    command.user.name = reader.required(own.name);
    if (command.user.action == Action::Add)
        command.user.powers = powersOf(reader, parser, own);
    if (command.user.action != Action::Remove) {
        command.user.stays = parser.isSet(own.stay);
        const std::optional<QString> password = reader.password(environmentPassword);
        if (!password)
            reader.failWithoutPassword();
        command.user.password = password.value_or(QString());
    }
    if (!reader.error().isEmpty())
        return CliTell::misuse(reader.error() % again);
    return command;
}

} // namespace vemo_client
