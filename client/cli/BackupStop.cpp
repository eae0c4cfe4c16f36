#include "BackupStop.h"

#include <SysPaths.h>

#include <QCryptographicHash>
#include <QDir>
#include <QLocalSocket>

namespace vemo_client {

namespace {

constexpr int connectMs = 1000;

} // namespace

BackupStop::BackupStop(QObject* parent)
    : QObject(parent)
{
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    // The peer stays connected until this process has ended.
    connect(&m_server, &QLocalServer::newConnection, this, &BackupStop::signalStop);
}

QString BackupStop::name()
{
    const QByteArray folder = QDir(vemo_worker::SysPaths::dataDir()).canonicalPath().toUtf8();
    return QStringLiteral("vemo-backup-") +
           QString::fromLatin1(QCryptographicHash::hash(folder, QCryptographicHash::Sha256).toHex().left(24));
}

void BackupStop::listen()
{
    QLocalServer::removeServer(name()); // left by a crash; the lock says that nobody listens
    m_server.listen(name());
}

bool BackupStop::request(int waitMs)
{
    QLocalSocket run;
    run.connectToServer(name());
    if (!run.waitForConnected(connectMs))
        return false;
    run.waitForDisconnected(waitMs);
    return true;
}

} // namespace vemo_client
