#pragma once

#include <QLocalServer>
#include <QObject>
#include <QString>

namespace vemo_client {

/// The way in which a run of the backups in a data folder hears that it is to stop: a local socket named after the
/// folder, open to the same user alone. GUI thread.
class BackupStop final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(BackupStop)

public:
    explicit BackupStop(QObject* parent = nullptr);

    /// From now on requests are heard; the caller holds the folder's lock.
    void listen();
    /// Asks the run to stop and waits until it has ended, at most `waitMs`. False when there is none.
    static bool request(int waitMs);

signals:
    void signalStop();

private:
    static QString name();

    QLocalServer m_server;
};

} // namespace vemo_client
