#include "CliTell.h"

namespace vemo_client {

namespace {

CliCommand tell(ExitCode code, const QString& text)
{
    CliCommand command;
    command.verb = CliCommand::Verb::Tell;
    command.exitCode = code;
    command.text = text;
    return command;
}

} // namespace

CliCommand CliTell::help(const QString& text)
{
    return tell(ExitCode::Done, text);
}

CliCommand CliTell::version()
{
    return tell(ExitCode::Done, QStringLiteral("vemo_client ") % QCoreApplication::applicationVersion());
}

CliCommand CliTell::misuse(const QString& sentence)
{
    return tell(ExitCode::Usage, sentence);
}

QString CliTell::exitCodes()
{
    return tr(
        "Exit codes: 0 done, 1 failed, 2 wrong use, 3 login refused, 4 recorder not reachable, 5 the recorder's limit "
        "is\n"
        "reached, 6 disk full or not writable, 7 no recording in the span, 8 incomplete (a playable part is there),\n"
        "130 interrupted (what had arrived is kept).\n");
}

} // namespace vemo_client
