#include "UiSettings.h"

#include "SysPaths.h"

#include <QSettings>

namespace vemo_worker {

namespace {

QString grouped(const QString& key)
{
    return QStringLiteral("ui/") + key;
}

} // namespace

UiSettings::UiSettings() = default;

UiSettings& UiSettings::instance()
{
    static UiSettings settings;
    return settings;
}

QVariant UiSettings::value(const QString& key, const QVariant& defaultValue) const
{
    const QSettings settings(SysPaths::settingsFile(), QSettings::IniFormat);
    return settings.value(grouped(key), defaultValue);
}

void UiSettings::setValue(const QString& key, const QVariant& value)
{
    QSettings settings(SysPaths::settingsFile(), QSettings::IniFormat);
    settings.setValue(grouped(key), value);
}

} // namespace vemo_worker
