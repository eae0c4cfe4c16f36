#pragma once

#include "CliCommand.h"
#include "StoredRecorder.h"
#include "VerbExit.h"

#include <QObject>

namespace vemo_client {

/// `vemo_client backup list`, `add` and `stop`. GUI thread, no window system needed; but for `stop` the caller holds
/// the data folder's lock. run() starts; the event loop is left with the exit code.
class BackupVerb final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(BackupVerb)

public:
    explicit BackupVerb(const CliCommand& command, QObject* parent = nullptr);

    void run();
    void interrupt();

private:
    void list();
    void stop();
    /// Once the recorder is stored.
    void add();
    void leave(ExitCode code, const QString& sentence = {});

    const CliCommand m_command;
    StoredRecorder m_recorder;
    VerbExit m_exit;
};

} // namespace vemo_client
