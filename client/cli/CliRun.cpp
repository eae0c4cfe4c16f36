#include "CliRun.h"

#include "DownloadVerb.h"
#include "Interrupt.h"
#include "SearchVerb.h"
#include "Terminal.h"
#include "VerbFolder.h"

#include <vaws_download.h>
#include <vms_sdk.h>

#include <QCoreApplication>

namespace vemo_client {

namespace {

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

} // namespace

int runVerb(const CliCommand& command)
{
    VerbFolder folder;
    if (const Outcome taken = folder.take(); taken.code != ExitCode::Done) {
        Terminal::error(taken.sentence);
        return static_cast<int>(taken.code);
    }
    if (!command.verbose)
        qInstallMessageHandler(dropMessage);
    const int code = command.verb == CliCommand::Verb::Search ? run<SearchVerb>(command) : run<DownloadVerb>(command);
    vms_sdk::uninit_sdk();
    vaws_download_shutdown();
    return code;
}

} // namespace vemo_client
