#pragma once

#include "vemo_contact_global.h"

#include <QObject>
#include <QStringList>

namespace vemo_contact {

/// The signals by which a host without pages lets the Files Center work on stored backup tasks. One object a process,
/// it lives on the GUI thread and holds no state.
class VEMO_CONTACT_EXPORT BackupAccess final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(BackupAccess)

public:
    static BackupAccess& instance();

    enum Outcome : int {
        Unknown = 0,
        Covered = 1, ///< every time segment is settled
        Ahead = 2,   ///< the rest has not been recorded yet
        Failed = 3,
        Stopped = 4,
        Empty = 5, ///< the device holds nothing of that day
    };

signals:
    /// Works the tasks off in this order: device check, search, backup, at most `tries` times each. Their devices are
    /// logged in or about to be. Answered by a signalTaskOver for each and, once the manifests are written,
    /// signalRunOver.
    void signalRun(const QStringList& taskIds, int tries);
    /// Stops what runs; its tasks are over with what they have.
    void signalStopRun();
    void signalTaskOver(const QString& taskId, int outcome, const QString& message);
    /// How many tasks run, and how many are still to come.
    void signalRunChanged(int running, int waiting);
    void signalRunOver();

    /// Copies the finished files of these tasks into the folder.
    void signalExport(const QStringList& taskIds, const QString& folder);
    void signalExportFileFailed(const QString& filePath);
    void signalExportOver(int totalCnt, int successCnt, int failureCnt);

private:
    BackupAccess();
};

} // namespace vemo_contact
