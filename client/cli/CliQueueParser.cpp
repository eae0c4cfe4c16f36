#include "CliQueueParser.h"

#include "CliActionLine.h"
#include "CliOptions.h"
#include "CliTell.h"
#include "OptionReader.h"
#include "TimeText.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QRegularExpression>
#include <QUuid>

namespace vemo_client {

namespace {

using Action = QueueOptions::Action;

constexpr int longestFileName = 1024;

QString tr(const char* text)
{
    return QCoreApplication::translate("vemo_client::CliParser", text);
}

Action actionOf(const QString& name)
{
    static const QMap<QString, Action> actions{
        {QStringLiteral("list"), Action::List},     {QStringLiteral("add"), Action::Add},
        {QStringLiteral("pause"), Action::Pause},   {QStringLiteral("resume"), Action::Resume},
        {QStringLiteral("cancel"), Action::Cancel}, {QStringLiteral("retry"), Action::Retry},
        {QStringLiteral("clear"), Action::Clear},   {QStringLiteral("run"), Action::Run}};
    return actions.value(name, Action::Unknown);
}

QString description()
{
    return tr("Works on the stored downloads of a data folder while no window of it is open.\n\n"
              "Actions:\n"
              "  list    tells every task\n"
              "  add     stores a download of a span, or of one recording, for each channel\n"
              "  pause   keeps waiting tasks from being started\n"
              "  resume  lets paused tasks wait again\n"
              "  cancel  forgets waiting and paused tasks\n"
              "  retry   lets failed tasks wait again\n"
              "  clear   takes finished and failed tasks off the list; files stay\n"
              "  run     works the waiting tasks off, five at a time, and ends when none is left to do\n"
              "run ends with 8 when a task failed or came out incomplete in it. Passwords are kept in the\n"
              "desktop's keyring, or in an encrypted file; VEMO_SECRETS_PASSWORD puts a password on that file,\n"
              "VEMO_KEYRING=off leaves the keyring alone.\n") %
           QLatin1Char('\n') % CliTell::exitCodes();
}

/// The name of a recording ends in its span: "..._20260110T080000000Z_20260110T090000000Z".
bool readSpan(const QString& fileName, QDateTime* begin, QDateTime* end)
{
    static const QRegularExpression span(QStringLiteral("_(\\d{8}T\\d{9})Z_(\\d{8}T\\d{9})Z$"));
    const QRegularExpressionMatch match = span.match(fileName);
    const auto time = [&match](int index) {
        QDateTime utc = QDateTime::fromString(match.captured(index), QStringLiteral("yyyyMMdd'T'HHmmsszzz"));
        utc.setTimeSpec(Qt::UTC);
        return utc.toLocalTime();
    };
    if (!match.hasMatch() || !time(1).isValid() || !time(2).isValid())
        return false;
    *begin = time(1);
    *end = time(2);
    return true;
}

void readAdd(OptionReader& reader, const QCommandLineParser& parser, const CliOptions& options, CliCommand* command,
             const std::optional<QString>& environmentPassword)
{
    command->device.address = reader.address();
    command->device.user = parser.value(options.user);
    const std::optional<QString> password = reader.password(environmentPassword);
    command->queue.hasPassword = password.has_value();
    command->device.password = password.value_or(QString());
    command->device.tls = reader.tls();
    if (!command->device.tls.caCertificates.isEmpty())
        reader.fail(tr("--ca is not kept for stored recorders; use --pin."));
    command->channels = reader.channels();

    const bool spanGiven = parser.isSet(options.begin) || parser.isSet(options.end);
    if (parser.isSet(options.file)) {
        command->queue.fileName = reader.required(options.file);
        if (command->queue.fileName.size() > longestFileName)
            reader.fail(tr("The name of a recording has at most %1 characters.").arg(longestFileName));
        if (command->channels.size() > 1)
            reader.fail(tr("A recording belongs to one channel; give one --channel with --file."));
        if (!spanGiven && !readSpan(command->queue.fileName, &command->begin, &command->end))
            reader.fail(tr("This name of a recording does not tell its span; give --begin and --end."));
    }
    if (spanGiven || !parser.isSet(options.file)) {
        command->begin = reader.time(options.begin);
        command->end = reader.time(options.end);
    }
    if (command->begin.isValid() && command->end.isValid() && command->begin >= command->end)
        reader.fail(tr("The end, %1, is not after the begin, %2.")
                        .arg(TimeText::plain(command->end), TimeText::plain(command->begin)));
}

void readTasks(OptionReader& reader, const QCommandLineParser& parser, const CliOptions& options, QueueOptions* queue)
{
    queue->all = parser.isSet(options.all);
    const QStringList ids = parser.values(options.id);
    for (const QString& text : ids) {
        const QUuid id(text); // with or without braces
        if (id.isNull())
            reader.fail(tr("\"%1\" is not the id of a task.").arg(text.left(64)));
        queue->ids.append(id.toString());
    }
    if (queue->all == !queue->ids.isEmpty())
        reader.fail(tr("Give either --id or --all."));
}

} // namespace

CliCommand CliQueueParser::parse(const QStringList& arguments, CliCommand command,
                                 const std::optional<QString>& environmentPassword)
{
    CliActionLine line(QStringLiteral("queue"), arguments);
    const CliOptions& options = line.options();
    QCommandLineParser& parser = line.parser();
    command.queue.action = actionOf(line.action());
    switch (command.queue.action) {
    case Action::Add:
        parser.addOptions({options.device, options.user, options.passwordFile, options.channel, options.begin,
                           options.end, options.file, options.pin, options.ca});
        break;
    case Action::Pause:
    case Action::Resume:
    case Action::Cancel:
    case Action::Retry:
    case Action::Clear:
        parser.addOptions({options.id, options.all});
        break;
    case Action::Run:
        parser.addOption(options.noRetry);
        break;
    case Action::List:
    case Action::Unknown:
        break;
    }

    const std::optional<CliCommand> told =
        line.parse(command.queue.action != Action::Unknown, description(), tr("What to do with the queue is missing."));
    if (told)
        return *told;

    OptionReader reader(parser, options);
    command.verb = CliCommand::Verb::Queue;
    line.readCommon(&command);
    if (command.queue.action == Action::Add)
        readAdd(reader, parser, options, &command, environmentPassword);
    else if (command.queue.action == Action::Run)
        command.queue.waitForRetries = !parser.isSet(options.noRetry);
    else if (command.queue.action != Action::List)
        readTasks(reader, parser, options, &command.queue);
    return line.result(reader, command);
}

} // namespace vemo_client
