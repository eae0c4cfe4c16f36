#include "CliBackupParser.h"

#include "CliActionLine.h"
#include "CliOptions.h"
#include "CliTell.h"
#include "OptionReader.h"

#include <BackupTaskData.h>

#include <QCommandLineParser>
#include <QCoreApplication>

#include <algorithm>

namespace vemo_client {

namespace {

using Action = BackupOptions::Action;
using vemo_data::BackupTimeSegment;

constexpr int mostDays = 366;
constexpr int mostTries = 100;

QString tr(const char* text)
{
    return QCoreApplication::translate("vemo_client::CliParser", text);
}

Action actionOf(const QString& name)
{
    static const QMap<QString, Action> actions{{QStringLiteral("list"), Action::List},
                                               {QStringLiteral("add"), Action::Add},
                                               {QStringLiteral("run"), Action::Run},
                                               {QStringLiteral("stop"), Action::Stop},
                                               {QStringLiteral("export"), Action::Export}};
    return actions.value(name, Action::Unknown);
}

QString description()
{
    return tr("Plans backups, a task for each channel and day, and works them off while no window of the data folder "
              "is open.\n\n"
              "Actions:\n"
              "  list    tells the tasks, and how much of what the recorder holds is safe\n"
              "  add     stores a task for each channel and day\n"
              "  run     works off the day's tasks and those that were missed, oldest first, and ends\n"
              "  stop    lets a run that is at work end with what it has\n"
              "  export  copies the finished files of a day, with their checksums\n"
              "run ends with 8 when a task failed or stayed incomplete in it.\n") %
           QLatin1Char('\n') % CliTell::exitCodes();
}

QDate readDate(OptionReader& reader, const QString& text)
{
    const QDate today = QDate::currentDate();
    if (text == QLatin1String("today"))
        return today;
    if (text == QLatin1String("yesterday"))
        return today.addDays(-1);
    const QDate date = QDate::fromString(text, Qt::ISODate);
    if (!date.isValid())
        reader.fail(tr("\"%1\" is not a day; days are written as 2026-01-10.").arg(text.left(64)));
    return date;
}

int readNumber(OptionReader& reader, const QString& text, const QString& name, int most)
{
    bool ok = false;
    const int number = text.toInt(&ok);
    if (!ok || number < 1 || number > most)
        reader.fail(tr("--%1 takes a number from 1 to %2.").arg(name).arg(most));
    return number;
}

/// Ascending and apart; whole minutes, the last one included.
QList<BackupTimeSegment> readSegments(OptionReader& reader, const QString& text)
{
    constexpr int lastSecond = 59;
    QList<BackupTimeSegment> segments;
    const QStringList parts = text.split(QLatin1Char(','));
    for (const QString& part : parts) {
        const QStringList times = part.trimmed().split(QLatin1Char('-'));
        const QTime start = QTime::fromString(times.value(0), QStringLiteral("HH:mm"));
        QTime end = QTime::fromString(times.value(1), QStringLiteral("HH:mm"));
        if (times.value(1) == QLatin1String("24:00"))
            end = QTime(23, 59);
        if (times.size() != 2 || !start.isValid() || !end.isValid() || end < start) {
            reader.fail(tr("\"%1\" is not a span of the day; spans are written as 08:00-12:00.").arg(part.left(64)));
            return {};
        }
        segments.append({start, end.addSecs(lastSecond)});
    }
    std::sort(segments.begin(), segments.end(),
              [](const BackupTimeSegment& a, const BackupTimeSegment& b) { return a.start < b.start; });
    for (int index = 1; index < segments.size(); ++index) {
        if (segments.at(index).start <= segments.at(index - 1).end)
            reader.fail(tr("The spans of --segments overlap at %1; an end takes its whole minute in.")
                            .arg(segments.at(index).start.toString(QStringLiteral("HH:mm"))));
    }
    if (segments.size() > vemo_data::BackupTaskData::maxSegments)
        reader.fail(tr("At most %1 spans a day.").arg(vemo_data::BackupTaskData::maxSegments));
    return segments;
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
    command->channels = reader.channels();
    BackupOptions& backup = command->backup;
    reader.required(options.date);
    if (parser.isSet(options.days))
        backup.days = readNumber(reader, parser.value(options.days), QStringLiteral("days"), mostDays);
    backup.segments = parser.isSet(options.segments) ? readSegments(reader, parser.value(options.segments))
                                                     : QList<BackupTimeSegment>{{QTime(0, 0), QTime(23, 59, 59)}};
}

} // namespace

CliCommand CliBackupParser::parse(const QStringList& arguments, CliCommand command,
                                  const std::optional<QString>& environmentPassword)
{
    CliActionLine line(QStringLiteral("backup"), arguments);
    const CliOptions& options = line.options();
    QCommandLineParser& parser = line.parser();
    BackupOptions& backup = command.backup;
    backup.action = actionOf(line.action());
    if (backup.action == Action::Add)
        parser.addOptions({options.device, options.user, options.passwordFile, options.channel, options.pin, options.ca,
                           options.date, options.days, options.segments});
    else if (backup.action == Action::Run)
        parser.addOptions({options.date, options.channel, options.tries});
    else if (backup.action == Action::List)
        parser.addOptions({options.date, options.channel});
    else if (backup.action == Action::Export)
        parser.addOptions({options.date, options.channel, options.to});

    const std::optional<CliCommand> told =
        line.parse(backup.action != Action::Unknown, description(), tr("What to do with the backups is missing."));
    if (told)
        return *told;

    OptionReader reader(parser, options);
    command.verb = CliCommand::Verb::Backup;
    line.readCommon(&command);
    if (backup.action != Action::Stop && parser.isSet(options.date))
        backup.date = readDate(reader, parser.value(options.date));
    if (backup.action == Action::Add)
        readAdd(reader, parser, options, &command, environmentPassword);
    else if (backup.action != Action::Stop && parser.isSet(options.channel))
        command.channels = reader.channels();
    if (backup.action == Action::Run && parser.isSet(options.tries))
        backup.tries = readNumber(reader, parser.value(options.tries), QStringLiteral("tries"), mostTries);
    if (backup.action == Action::Export) {
        reader.required(options.date);
        backup.to = reader.required(options.to);
    }
    return line.result(reader, command);
}

} // namespace vemo_client
