#pragma once

#include "BackupStop.h"
#include "CliCommand.h"
#include "VerbExit.h"

#include <QObject>
#include <QStringList>

namespace vemo_client {

/// `vemo_client backup run` and `export`: lets the module work on stored tasks and leaves the event loop when it is
/// done. No window system needed; the caller holds the data folder's lock. GUI thread.
class BackupRun final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(BackupRun)

public:
    explicit BackupRun(const CliCommand& command, QObject* parent = nullptr);

    void run();
    /// Ends as the window does when it is closed: what arrived of a piece is kept.
    void interrupt();

private:
    QStringList wantedTasks() const;
    void logIn();
    void begin();
    void beginExport();
    void taskOver(const QString& taskId, int outcome, const QString& message);
    void runOver();
    void exportOver(int totalCnt, int successCnt, int failureCnt);
    void leave(ExitCode code, const QString& sentence = {});

    const CliCommand m_command;
    BackupStop m_stop;
    QStringList m_taskIds;
    bool m_begun = false;
    int m_failed = 0;
    int m_stopped = 0;
    VerbExit m_exit;
};

} // namespace vemo_client
