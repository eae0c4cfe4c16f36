#include "SystemConfig.h"

#include "SysPaths.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>

namespace vemo_worker {

namespace {

QString videoKey()
{
    return QStringLiteral("paths/video");
}

QString downloadKey()
{
    return QStringLiteral("paths/download");
}

QString backupKey()
{
    return QStringLiteral("paths/backup");
}

QString localRecordingKey()
{
    return QStringLiteral("paths/recordings");
}

QString localSnapshotKey()
{
    return QStringLiteral("paths/snapshots");
}

QString dateFormatKey()
{
    return QStringLiteral("format/date");
}

QString stored(const QString& key)
{
    const QSettings settings(SysPaths::settingsFile(), QSettings::IniFormat);
    return settings.value(key).toString();
}

} // namespace

SystemConfig::SystemConfig() = default;

SystemConfig& SystemConfig::instance()
{
    static SystemConfig config;
    return config;
}

QString SystemConfig::getVideoFilePath(bool makeDefault) const
{
    const QString chosen = stored(videoKey());
    if (!chosen.isEmpty())
        return chosen;
    const QString path = QStandardPaths::writableLocation(QStandardPaths::MoviesLocation) + QStringLiteral("/Vemo");
    if (makeDefault)
        QDir().mkpath(path);
    return path;
}

QString SystemConfig::folderBelowVideos(const QString& key, const QString& defaultName) const
{
    const QString chosen = stored(key);
    if (!chosen.isEmpty())
        return chosen;
    QDir videos(getVideoFilePath(true));
    if (videos.exists())
        videos.mkdir(defaultName);
    return videos.filePath(defaultName);
}

QString SystemConfig::getDownloadPath() const
{
    return folderBelowVideos(downloadKey(), QStringLiteral("Downloads"));
}

QString SystemConfig::getRecordingBackupPath() const
{
    return folderBelowVideos(backupKey(), QStringLiteral("Backup"));
}

QString SystemConfig::getLocalRecordingPath() const
{
    return folderBelowVideos(localRecordingKey(), QStringLiteral("Recordings"));
}

QString SystemConfig::getLocalSnapshotPath() const
{
    return folderBelowVideos(localSnapshotKey(), QStringLiteral("Snapshots"));
}

QString SystemConfig::getDateFormat() const
{
    const QString chosen = stored(dateFormatKey());
    return chosen.isEmpty() ? QStringLiteral("yyyy-MM-dd") : chosen;
}

void SystemConfig::store(const QString& key, const QString& value)
{
    {
        QSettings settings(SysPaths::settingsFile(), QSettings::IniFormat);
        if (settings.value(key).toString() == value)
            return;
        settings.setValue(key, value);
    }
    emit signalConfigChanged();
}

void SystemConfig::setVideoFilePath(const QString& folder)
{
    store(videoKey(), folder);
}

void SystemConfig::setDownloadPath(const QString& folder)
{
    store(downloadKey(), folder);
}

void SystemConfig::setRecordingBackupPath(const QString& folder)
{
    store(backupKey(), folder);
}

void SystemConfig::setDateFormat(const QString& format)
{
    store(dateFormatKey(), format);
}

} // namespace vemo_worker
