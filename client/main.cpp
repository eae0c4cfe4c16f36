#include "cli/CliParser.h"
#include "cli/CliRun.h"
#include "cli/Terminal.h"
#include "shell/Language.h"
#include "shell/Relaunch.h"
#include "shell/WindowRun.h"

#include <PasswordStore.h>
#include <SysPaths.h>

#include <QCoreApplication>
#include <QTimeZone>

#include <cstdlib>

using vemo_client::CliCommand;

namespace {

std::optional<QString> takeEnvironmentPassword()
{
    if (!qEnvironmentVariableIsSet("VEMO_PASSWORD"))
        return std::nullopt;
    const QString password = qEnvironmentVariable("VEMO_PASSWORD");
    // Programs that we start don't get to see it.
    qunsetenv("VEMO_PASSWORD");
    return password;
}

CliCommand parse(const QStringList& arguments, const std::optional<QString>& password)
{
    QCoreApplication::setApplicationName(QStringLiteral("vemo"));
    QCoreApplication::setApplicationVersion(QStringLiteral(VEMO_VERSION));
    return vemo_client::CliParser::parse(arguments, password);
}

/// Without TZ the C library looks at the zone's file at every conversion, which is most of the time that ten thousand
/// tasks take to load and show.
void nameTimeZone()
{
#if defined(Q_OS_LINUX)
    const QByteArray zone = QTimeZone::systemTimeZoneId();
    if (!qEnvironmentVariableIsSet("TZ") && !zone.isEmpty())
        qputenv("TZ", zone);
#endif
}

int run(int& argc, char* argv[])
{
    const std::optional<QString> password = takeEnvironmentPassword();
    CliCommand command;
    {
        // The verbs need no window system; a window needs an application of another class.
        QCoreApplication application(argc, argv);
        const vemo_client::Language language(QStringLiteral("system"));
        command = parse(QCoreApplication::arguments(), password);
        if (command.verb == CliCommand::Verb::Tell) {
            if (command.exitCode == vemo_client::ExitCode::Done)
                vemo_client::Terminal::text(command.text);
            else
                vemo_client::Terminal::error(command.text);
            return static_cast<int>(command.exitCode);
        }
        if (!command.dataDir.isEmpty())
            vemo_worker::SysPaths::setRoot(command.dataDir);
        if (command.verb != CliCommand::Verb::Window && !command.needsWidgets())
            return vemo_client::runVerb(command);
    }
    if (command.needsWidgets())
        return vemo_client::runQueue(argc, argv, command);
    return vemo_client::runWindow(argc, argv, command);
}

} // namespace

int main(int argc, char* argv[])
{
    vemo_client::Relaunch::prepare();
    nameTimeZone();
    const int code = run(argc, argv);
    if (vemo_worker::PasswordStore::hasHungKeyring()) {
        vemo_client::Relaunch::carryOut();
        std::_Exit(code); // everything is stored and closed by now
    }
    return code;
}
