// platform file: where the desktop keeps its choice of dark or light
#include "DesktopTheme.h"

#include <Theme.h>

#include <QGuiApplication>
#include <QPalette>
#include <QVariant>

#if defined(Q_OS_WIN)
#include <QSettings>
#elif defined(VEMO_WITH_DBUS)
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#endif

namespace vemo_client {

#if defined(Q_OS_WIN)

namespace {

void readRegistry()
{
    const QSettings settings(
        QStringLiteral("HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize"),
        QSettings::NativeFormat);
    const bool light = settings.value(QStringLiteral("AppsUseLightTheme"), 1).toInt() != 0;
    vemo_base::Theme::instance().setDesktopMode(light ? vemo_base::ThemeMode::Light : vemo_base::ThemeMode::Dark);
}

} // namespace

DesktopTheme::DesktopTheme(QObject* parent)
    : QObject(parent)
{
    readRegistry();
    // The choice is made in another program's window, so ours is activated after it.
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this, [](Qt::ApplicationState state) {
        if (state == Qt::ApplicationActive)
            readRegistry();
    });
}

#else

namespace {

vemo_base::ThemeMode modeOfPalette()
{
    constexpr int darkBelow = 128;
    return QGuiApplication::palette().color(QPalette::Window).lightness() < darkBelow ? vemo_base::ThemeMode::Dark
                                                                                      : vemo_base::ThemeMode::Light;
}

} // namespace

DesktopTheme::DesktopTheme(QObject* parent)
    : QObject(parent)
{
    vemo_base::Theme::instance().setDesktopMode(modeOfPalette());
#if defined(VEMO_WITH_DBUS)
    askPortal();
#endif
}

#if defined(VEMO_WITH_DBUS)

namespace {

const auto portalService = QLatin1String("org.freedesktop.portal.Desktop");
const auto portalPath = QLatin1String("/org/freedesktop/portal/desktop");
const auto portalInterface = QLatin1String("org.freedesktop.portal.Settings");
const auto appearanceGroup = QLatin1String("org.freedesktop.appearance");
const auto colorSchemeKey = QLatin1String("color-scheme");

} // namespace

void DesktopTheme::askPortal()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    bus.connect(portalService, portalPath, portalInterface, QStringLiteral("SettingChanged"), this,
                SLOT(slotSettingChanged(QString, QString, QDBusVariant)));
    QDBusMessage question =
        QDBusMessage::createMethodCall(portalService, portalPath, portalInterface, QStringLiteral("Read"));
    question << QString(appearanceGroup) << QString(colorSchemeKey);
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [watcher] {
        const QDBusPendingReply<QDBusVariant> reply = *watcher;
        watcher->deleteLater();
        if (!reply.isError())
            take(reply.value().variant());
    });
}

void DesktopTheme::slotSettingChanged(const QString& group, const QString& key, const QDBusVariant& value)
{
    if (group == appearanceGroup && key == colorSchemeKey)
        take(value.variant());
}

/// 1 wants dark, 2 wants light, 0 leaves it to the palette.
void DesktopTheme::take(const QVariant& colorScheme)
{
    // Older portals wrap the value twice.
    const QVariant value =
        colorScheme.canConvert<QDBusVariant>() ? colorScheme.value<QDBusVariant>().variant() : colorScheme;
    if (value.toUInt() == 1)
        vemo_base::Theme::instance().setDesktopMode(vemo_base::ThemeMode::Dark);
    else if (value.toUInt() == 2)
        vemo_base::Theme::instance().setDesktopMode(vemo_base::ThemeMode::Light);
}

#endif
#endif

DesktopTheme::~DesktopTheme() = default;

} // namespace vemo_client
