#pragma once

#include "CliCommand.h"
#include "LocalListing.h"
#include "VerbExit.h"

#include <QHash>
#include <QObject>

namespace VCOMMON {
struct LocalRecordingIndexInfo;
struct LocalRescanResult;
} // namespace VCOMMON

namespace vemo_client {

/// `vemo_client local`: the recordings and snapshots of this computer. GUI thread, no window needed. run() starts; the
/// event loop is left with the exit code. Interrupted, copies made so far stay and a rescan keeps what it found.
class LocalVerb final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LocalVerb)

public:
    explicit LocalVerb(const CliCommand& command, QObject* parent = nullptr);

    /// A window that is open would not notice.
    static bool changesStore(const CliCommand& command);

    void run();
    void interrupt();

private:
    void rescan();
    void askRecordings();
    void takeRecordings(const QList<VCOMMON::LocalRecordingIndexInfo>& records);
    void takeSnapshots();
    void act();
    void list();
    void saveAs();
    void removeRecords();
    void removeFiles();
    void finishRemoval(const QStringList& remaining);
    void fail(const QString& sentence);
    void leave(ExitCode code, const QString& sentence = QString());

    const CliCommand m_command;
    QList<LocalFile> m_files; ///< those chosen
    bool m_anyFailed = false;
    VerbExit m_exit;
};

} // namespace vemo_client
