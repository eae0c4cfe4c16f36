// platform file: desktops that follow the freedesktop.org interfaces; Windows is FileManagerWindows.cpp.
#include "FileManager.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

namespace VCOMMON {

namespace {

constexpr int answerMs = 5000;

/// org.freedesktop.FileManager1, which Nautilus, Dolphin, Nemo, Thunar and others offer.
bool askByBus(const QString& path, FileManager::Target target, QString& error)
{
    // Without an address libdbus would go and start a bus of its own.
    if (qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS") &&
        !QFileInfo::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QLatin1String("/bus"))) {
        error = QStringLiteral("there is no session bus");
        return false;
    }
    const QString name = QStringLiteral("vemo file manager");
    bool done = false;
    {
        // A connection of this thread's own: the shared one may still be at its beginning on another.
        const QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, name);
        QDBusMessage call = QDBusMessage::createMethodCall(
            QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("/org/freedesktop/FileManager1"),
            QStringLiteral("org.freedesktop.FileManager1"),
            target == FileManager::Target::Folder ? QStringLiteral("ShowFolders") : QStringLiteral("ShowItems"));
        const QString uri = QString::fromUtf8(QUrl::fromLocalFile(path).toEncoded());
        call.setArguments({QStringList{uri}, QString()});
        const QDBusMessage answer = bus.call(call, QDBus::Block, answerMs);
        done = answer.type() == QDBusMessage::ReplyMessage;
        if (!done)
            error = answer.errorMessage();
    }
    QDBusConnection::disconnectFromBus(name);
    return done;
}

} // namespace

bool FileManager::showNow(const QString& absolutePath, Target target, QString& error)
{
    if (askByBus(absolutePath, target, error))
        return true;
    const QString program = QStandardPaths::findExecutable(QStringLiteral("xdg-open"));
    if (program.isEmpty()) {
        error += QStringLiteral("; there is no xdg-open either");
        return false;
    }
    const QString folder = target == Target::Folder ? absolutePath : QFileInfo(absolutePath).absolutePath();
    if (QProcess::startDetached(program, {folder}))
        return true;
    error += QStringLiteral("; xdg-open can't be started");
    return false;
}

} // namespace VCOMMON
