// platform file: which program may come to the front
#include "SingleWindow.h"

#include <QCryptographicHash>
#include <QDir>
#include <QLocalSocket>

#if defined(Q_OS_WIN)
#include <qt_windows.h>
#endif

namespace vemo_client {

using vemo_data::FolderLock;

namespace {

constexpr int answerMs = 1000;

/// One name a data folder: names of local sockets are short and know no separators.
QString serverName(const QString& dataDir)
{
    const QByteArray path = QDir(dataDir).canonicalPath().toUtf8();
    return QStringLiteral("vemo-") +
           QString::fromLatin1(QCryptographicHash::hash(path, QCryptographicHash::Sha256).toHex().left(24));
}

} // namespace

SingleWindow::SingleWindow(const QString& dataDir, QObject* parent)
    : QObject(parent)
    , m_name(serverName(dataDir))
    , m_lockPath(dataDir + QStringLiteral("/window.lock"))
{
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&m_server, &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket* peer = m_server.nextPendingConnection()) {
            connect(peer, &QLocalSocket::disconnected, peer, &QObject::deleteLater);
            emit signalRaise();
        }
    });
}

SingleWindow::~SingleWindow() = default;

SingleWindow::Outcome SingleWindow::take()
{
    const FolderLock::Outcome outcome = m_lock.take(m_lockPath);
    if (outcome == FolderLock::Outcome::Taken) {
        // What a crashed window left under the name is nobody's any more.
        QLocalServer::removeServer(m_name);
        m_server.listen(m_name);
        return Outcome::Taken;
    }
    // Another failure than a held lock, such as a folder without right to write, is told by the stores.
    if (outcome != FolderLock::Outcome::Held)
        return Outcome::Taken;
#if defined(Q_OS_WIN)
    // The desktop lets a program come to the front only when the one that is there now agrees.
    AllowSetForegroundWindow(ASFW_ANY);
#endif
    QLocalSocket first;
    first.connectToServer(m_name);
    return first.waitForConnected(answerMs) ? Outcome::Raised : Outcome::Held;
}

} // namespace vemo_client
