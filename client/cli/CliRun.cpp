#include "CliRun.h"

#include "BackupRun.h"
#include "BackupVerb.h"
#include "DownloadVerb.h"
#include "Interrupt.h"
#include "LocalVerb.h"
#include "QueueRun.h"
#include "QueueVerb.h"
#include "SearchVerb.h"
#include "Terminal.h"
#include "UserVerb.h"
#include "VerbFolder.h"
#include "WindowLock.h"

#include "settings/TransferSettings.h"

#include <ProgramLog.h>
#include <SysPaths.h>
#include <vaws_download.h>
#include <vms_sdk.h>

#include <QApplication>

namespace vemo_client {

namespace {

using vemo_worker::ProgramLog;

/// The standard error stream belongs to the sentences for the person; diagnostics go there only when they are asked
/// for.
void dropMessage(QtMsgType, const QMessageLogContext&, const QString&) {}

template <typename Verb>
int run(const CliCommand& command)
{
    Verb verb(command);
    Interrupt interrupt;
    QObject::connect(&interrupt, &Interrupt::signalInterrupted, &verb, [&verb] { verb.interrupt(); });
    // From inside the loop, so that a verb that is over at once can leave it.
    QMetaObject::invokeMethod(
        &verb, [&verb] { verb.run(); }, Qt::QueuedConnection);
    return QCoreApplication::exec();
}

void letGo()
{
    vms_sdk::uninit_sdk();
    vaws_download_shutdown();
}

/// The program's log, while the lock on its folder is held.
class LogOfRun final
{
public:
    explicit LogOfRun(const CliCommand& command)
    {
        ProgramLog::instance().start(vemo_worker::SysPaths::logDir(), ProgramLog::levelOf(command.logLevel));
    }
    ~LogOfRun() { ProgramLog::instance().stop(); }
    LogOfRun(const LogOfRun&) = delete;
    LogOfRun& operator=(const LogOfRun&) = delete;
};

bool tells(const Outcome& outcome)
{
    if (outcome.code == ExitCode::Done)
        return false;
    Terminal::error(outcome.sentence);
    return true;
}

int runOnFolderOfItsOwn(const CliCommand& command)
{
    VerbFolder folder;
    const Outcome taken = folder.take();
    if (tells(taken))
        return static_cast<int>(taken.code);
    const int code = command.verb == CliCommand::Verb::Search ? run<SearchVerb>(command) : run<DownloadVerb>(command);
    letGo();
    return code;
}

template <typename Verb>
int runOnDataFolder(const CliCommand& command)
{
    WindowLock lock;
    const Outcome taken = lock.take();
    if (tells(taken))
        return static_cast<int>(taken.code);
    const LogOfRun log(command);
    const TransferSettings transfer;
    const int code = run<Verb>(command);
    letGo();
    return code;
}

int runBackup(const CliCommand& command)
{
    switch (command.backup.action) {
    case BackupOptions::Action::Stop:
        return run<BackupVerb>(command); // the run that it stops holds the data folder
    case BackupOptions::Action::Run:
    case BackupOptions::Action::Export:
        return runOnDataFolder<BackupRun>(command);
    default:
        return runOnDataFolder<BackupVerb>(command);
    }
}

int runUser(const CliCommand& command)
{
    WindowLock lock;
    Outcome outcome;
    if (UserVerb::changesStore(command))
        outcome = lock.take();
    if (outcome.code == ExitCode::Done)
        outcome = UserVerb::run(command);
    tells(outcome);
    return static_cast<int>(outcome.code);
}

/// Nobody looks at the pages, and there may be no display.
void chooseWindowSystem()
{
#if !defined(Q_OS_WIN) && !defined(Q_OS_MACOS)
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
#endif
}

} // namespace

int runVerb(const CliCommand& command)
{
    if (!command.verbose)
        qInstallMessageHandler(dropMessage);
    if (command.verb == CliCommand::Verb::Local)
        return LocalVerb::changesStore(command) ? runOnDataFolder<LocalVerb>(command) : run<LocalVerb>(command);
    if (command.verb == CliCommand::Verb::User)
        return runUser(command);
    if (command.verb == CliCommand::Verb::Backup)
        return runBackup(command);
    return command.verb == CliCommand::Verb::Queue ? runOnDataFolder<QueueVerb>(command) : runOnFolderOfItsOwn(command);
}

int runQueue(int& argc, char** argv, const CliCommand& command)
{
    if (!command.verbose)
        qInstallMessageHandler(dropMessage);
    chooseWindowSystem();
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    return runOnDataFolder<QueueRun>(command);
}

} // namespace vemo_client
