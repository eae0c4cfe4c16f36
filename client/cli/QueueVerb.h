#pragma once

#include "CliCommand.h"
#include "StoredRecorder.h"
#include "VerbExit.h"

#include <DownloadTaskInfo.h>

#include <QObject>
#include <QSet>

namespace vemo_client {

/// `vemo_client queue` save for `run`: reads and edits the stored tasks of the data folder. GUI thread, no window
/// system needed; the caller holds the folder's lock. run() starts; the event loop is left with the exit code.
class QueueVerb final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(QueueVerb)

public:
    explicit QueueVerb(const CliCommand& command, QObject* parent = nullptr);

    void run();
    void interrupt();

private:
    void list();
    void edit();
    void add();
    void request();
    void tellAdded();
    void print(const QList<vemo_data::DownloadTaskInfo>& tasks);
    void leave(ExitCode code, const QString& sentence = {}) { m_exit.leave(code, sentence); }

    const CliCommand m_command;
    StoredRecorder m_recorder;
    QSet<QString> m_before; ///< tasks that were stored before the adding
    VerbExit m_exit;
};

} // namespace vemo_client
