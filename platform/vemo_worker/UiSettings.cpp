#include "UiSettings.h"

#include "SystemWorker.h"

#include <SettingsFile.h>

namespace vemo_worker {

namespace {

QString grouped(const QString& key)
{
    return QStringLiteral("ui/") + key;
}

/// A user may have any name.
QString ofUser(const QString& key)
{
    const QByteArray name = SystemWorker::instance().curUserName().toUtf8().toHex();
    return QStringLiteral("users/%1/%2").arg(QLatin1String(name), key);
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
    return vemo_data::SettingsFile::instance().value(grouped(key), defaultValue);
}

void UiSettings::setValue(const QString& key, const QVariant& value)
{
    vemo_data::SettingsFile::instance().setValue(grouped(key), value);
}

QVariant UiSettings::personalValue(const QString& key, const QVariant& defaultValue) const
{
    return value(ofUser(key), value(key, defaultValue));
}

void UiSettings::setPersonalValue(const QString& key, const QVariant& value)
{
    setValue(key, value);
    if (!SystemWorker::instance().curUserName().isEmpty())
        setValue(ofUser(key), value);
}

} // namespace vemo_worker
