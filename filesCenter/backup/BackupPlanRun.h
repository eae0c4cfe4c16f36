#pragma once

#include <BackupTaskInfo.h>

#include <QHash>
#include <QList>
#include <QObject>
#include <QStringList>
#include <QTimer>

namespace vemo_filesCenter {

/// Works stored backup tasks off without a page, as their rows would, by BackupStarts; in the order given, as many at
/// once as the worker runs. Served by vemo_contact::BackupAccess. A device that is not logged in yet is
/// waited for for a minute; a task that failed so many times as were granted is over and stopped. One object a process,
/// on the GUI thread, owned by the module's entry.
class BackupPlanRun final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(BackupPlanRun)

public:
    explicit BackupPlanRun(QObject* parent);
    ~BackupPlanRun() override;

private:
    struct Job
    {
        vemo_data::BackupTaskInfo task;
        int triesLeft = 0;
        int deviceTurns = 0;    ///< how often its device was not there yet
        bool isStarted = false; ///< handed to the worker
        QString failure;        ///< the last one that was counted, with its time
    };

    void run(const QStringList& taskIds, int tries);
    void stop();
    void startMore();
    void checkDevices();
    void notStarted(const QString& taskId, bool isEmpty);
    /// Those that were stopped, once their files are settled.
    void endStopped();
    /// What the worker has told of a task it was handed, once it is done telling.
    void follow(const QString& taskId);
    void over(const QString& taskId, int outcome);
    void leaveWhenIdle();

    QStringList m_waiting;      ///< in the order given
    QHash<QString, Job> m_jobs; ///< those under way
    QStringList m_forDevice;    ///< of them, those whose device is not logged in yet
    QTimer m_deviceTimer;
    int m_tries = 1;
    bool m_isStopping = false;
    bool m_isRunning = false;
};

} // namespace vemo_filesCenter
