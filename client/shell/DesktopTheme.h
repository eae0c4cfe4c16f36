#pragma once

#include <QObject>

#if defined(VEMO_WITH_DBUS)
class QDBusVariant;
#endif

namespace vemo_client {

/// Watches whether the desktop wants dark or light windows and tells the Theme. Made once, before the Theme's palette
/// is applied, because the desktop's own palette is what is known at once; where the desktop tells more (the settings
/// portal, the registry), that follows and is kept up with. GUI thread; never waits for the desktop.
class DesktopTheme final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DesktopTheme)

public:
    explicit DesktopTheme(QObject* parent = nullptr);
    ~DesktopTheme() override;

#if defined(VEMO_WITH_DBUS)
private slots:
    void slotSettingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void askPortal();
    static void take(const QVariant& colorScheme);
#endif
};

} // namespace vemo_client
