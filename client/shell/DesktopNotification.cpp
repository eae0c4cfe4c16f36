// platform file: how the desktop is asked to notify
#include "DesktopNotification.h"

#include <QObject>
#include <QVariant>

#if defined(VEMO_WITH_DBUS)
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#endif

namespace vemo_client {

#if defined(VEMO_WITH_DBUS)

void DesktopNotification::show(const QString& title, const QString& text, QObject* context,
                               const std::function<void()>& otherwise)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        QMetaObject::invokeMethod(context, otherwise, Qt::QueuedConnection);
        return;
    }
    const QString service = QStringLiteral("org.freedesktop.Notifications");
    QDBusMessage call = QDBusMessage::createMethodCall(service, QStringLiteral("/org/freedesktop/Notifications"),
                                                       service, QStringLiteral("Notify"));
    constexpr uint replacesNothing = 0;
    constexpr int asLongAsUsual = -1;
    // Servers read markup in the text.
    call << QStringLiteral("Vemo") << replacesNothing << QStringLiteral("folder-download") << title
         << text.toHtmlEscaped() << QStringList() << QVariantMap() << asLongAsUsual;
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(call), context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, context, [watcher, otherwise] {
        const QDBusPendingReply<uint> reply = *watcher;
        watcher->deleteLater();
        if (reply.isError())
            otherwise();
    });
}

#else

void DesktopNotification::show(const QString&, const QString&, QObject* context, const std::function<void()>& otherwise)
{
    QMetaObject::invokeMethod(context, otherwise, Qt::QueuedConnection);
}

#endif

} // namespace vemo_client
