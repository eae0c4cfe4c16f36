#pragma once

#include "vemo_worker_global.h"

#include <QObject>
#include <QString>

namespace vemo_worker {

/// What a user may do; bits of one mask.
enum Power : int {
    PowerLive = 1,
    PowerPlayback = 2,
    PowerLocalSnapshots = 4,
    PowerLocalRecordings = 8,
    PowerDevices = 16,  ///< adding, editing and removing recorders
    PowerUsers = 32,    ///< administrators: other users and their powers
    PowerSettings = 64, ///< settings that concern everybody on this computer
    PowerLogs = 128,
    PowerDownload = 8388608, ///< downloads and backups
};

/// The current user and the machine. One object a process, on the GUI thread. Until someone else is made current, the
/// user is the local administrator, who may do everything.
class VEMO_WORKER_EXPORT SystemWorker final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SystemWorker)

public:
    static constexpr int allPowers = 0x7fffffff;

    static SystemWorker& instance();

    /// True when the current user has every bit of `power`.
    bool isCurUserHasPower(int power) const;
    void setCurUser(const QString& name, int powers);
    QString curUserName() const;

    /// Free space for this user on the disk that holds the path, or would hold it, in MB; -1 when that can't be told.
    qint64 getDiskFreeSpace(const QString& path) const;

signals:
    void signalCurUserChanged();

private:
    SystemWorker();

    QString m_userName;
    int m_powers = allPowers;
};

} // namespace vemo_worker
