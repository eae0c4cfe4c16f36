#include "SystemConfig.h"

#include <SettingsFile.h>

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include <limits>

namespace vemo_worker {

namespace {

constexpr char videoKey[] = "paths/video";
constexpr char downloadKey[] = "paths/download";
constexpr char backupKey[] = "paths/backup";
constexpr char localRecordingKey[] = "paths/recordings";
constexpr char localSnapshotKey[] = "paths/snapshots";
constexpr char dateFormatKey[] = "format/date";
constexpr char snapshotFormatKey[] = "format/snapshot";
constexpr char languageKey[] = "format/language";
constexpr char largestFileKey[] = "download/largest_file_bytes";
constexpr char clockTrackKey[] = "download/clock_track";
constexpr char bandwidthKey[] = "download/bandwidth_bytes_per_second";
constexpr char goOnKey[] = "download/go_on_at_start";
constexpr char recycleBinKey[] = "files/recycle_bin";
constexpr char logDaysKey[] = "logs/days";

constexpr qint64 mebibyte = 1024 * 1024;
// A file must hold a key frame and what follows it; a rate below this is no use to anybody.
constexpr qint64 smallestFileLimit = 64 * mebibyte;
constexpr qint64 smallestBandwidth = 64 * 1024;
constexpr int defaultLogDays = 365;
constexpr int mostLogDays = 3650;

QVariant stored(const char* key, const QVariant& otherwise = {})
{
    return vemo_data::SettingsFile::instance().value(QLatin1String(key), otherwise);
}

/// 0 stays, what is not 0 lies in the range.
template <typename Number>
Number zeroOrWithin(Number least, Number value, Number most)
{
    return value <= 0 ? 0 : qBound(least, value, most);
}

QString oneOf(const QStringList& choices, const QString& value)
{
    return choices.contains(value) ? value : choices.first();
}

QStringList snapshotFormats()
{
    return {QStringLiteral("JPG"), QStringLiteral("BMP")};
}

QStringList languages()
{
    return {QStringLiteral("system"), QStringLiteral("en"), QStringLiteral("de"), QStringLiteral("zh_CN")};
}

const char* keyOf(SystemConfig::Telling kind)
{
    switch (kind) {
    case SystemConfig::Telling::GoodNews:
        return "notifications/good_news";
    case SystemConfig::Telling::Warnings:
        return "notifications/warnings";
    case SystemConfig::Telling::Desktop:
        break;
    }
    return "notifications/desktop";
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
    const QString chosen = stored(videoKey).toString();
    if (!chosen.isEmpty())
        return chosen;
    const QString path = QStandardPaths::writableLocation(QStandardPaths::MoviesLocation) + QStringLiteral("/Vemo");
    if (makeDefault)
        QDir().mkpath(path);
    return path;
}

QString SystemConfig::folderBelowVideos(const char* key, const QString& defaultName) const
{
    const QString chosen = stored(key).toString();
    if (!chosen.isEmpty())
        return chosen;
    QDir videos(getVideoFilePath(true));
    if (videos.exists())
        videos.mkdir(defaultName);
    return videos.filePath(defaultName);
}

QString SystemConfig::getDownloadPath() const
{
    return folderBelowVideos(downloadKey, QStringLiteral("Downloads"));
}

QString SystemConfig::getRecordingBackupPath() const
{
    return folderBelowVideos(backupKey, QStringLiteral("Backup"));
}

QString SystemConfig::getLocalRecordingPath() const
{
    return folderBelowVideos(localRecordingKey, QStringLiteral("Recordings"));
}

QString SystemConfig::getLocalSnapshotPath() const
{
    return folderBelowVideos(localSnapshotKey, QStringLiteral("Snapshots"));
}

void SystemConfig::setVideoFilePath(const QString& folder)
{
    store(videoKey, folder);
}

void SystemConfig::setDownloadPath(const QString& folder)
{
    store(downloadKey, folder);
}

void SystemConfig::setRecordingBackupPath(const QString& folder)
{
    store(backupKey, folder);
}

QString SystemConfig::getDateFormat() const
{
    const QString chosen = stored(dateFormatKey).toString();
    return chosen.isEmpty() ? QStringLiteral("yyyy-MM-dd") : chosen;
}

void SystemConfig::setDateFormat(const QString& format)
{
    store(dateFormatKey, format);
}

QString SystemConfig::snapshotFormat() const
{
    return oneOf(snapshotFormats(), stored(snapshotFormatKey).toString());
}

void SystemConfig::setSnapshotFormat(const QString& format)
{
    store(snapshotFormatKey, oneOf(snapshotFormats(), format));
}

qint64 SystemConfig::largestFileBytes() const
{
    return zeroOrWithin(smallestFileLimit, stored(largestFileKey).toLongLong(), std::numeric_limits<qint64>::max());
}

void SystemConfig::setLargestFileBytes(qint64 bytes)
{
    store(largestFileKey, zeroOrWithin(smallestFileLimit, bytes, std::numeric_limits<qint64>::max()));
}

bool SystemConfig::clockTrack() const
{
    return stored(clockTrackKey, false).toBool();
}

void SystemConfig::setClockTrack(bool on)
{
    store(clockTrackKey, on);
}

bool SystemConfig::useRecycleBin() const
{
    return stored(recycleBinKey, true).toBool();
}

void SystemConfig::setUseRecycleBin(bool on)
{
    store(recycleBinKey, on);
}

qint64 SystemConfig::bandwidthLimit() const
{
    return zeroOrWithin(smallestBandwidth, stored(bandwidthKey).toLongLong(), std::numeric_limits<qint64>::max());
}

void SystemConfig::setBandwidthLimit(qint64 bytesPerSecond)
{
    store(bandwidthKey, zeroOrWithin(smallestBandwidth, bytesPerSecond, std::numeric_limits<qint64>::max()));
}

bool SystemConfig::goOnWithDownloads() const
{
    return stored(goOnKey, true).toBool();
}

void SystemConfig::setGoOnWithDownloads(bool on)
{
    store(goOnKey, on);
}

QString SystemConfig::language() const
{
    return oneOf(languages(), stored(languageKey).toString());
}

void SystemConfig::setLanguage(const QString& language)
{
    store(languageKey, oneOf(languages(), language));
}

bool SystemConfig::isTold(Telling kind) const
{
    return stored(keyOf(kind), true).toBool();
}

void SystemConfig::setTold(Telling kind, bool on)
{
    store(keyOf(kind), on);
}

int SystemConfig::logDays() const
{
    return zeroOrWithin(1, stored(logDaysKey, defaultLogDays).toInt(), mostLogDays);
}

void SystemConfig::setLogDays(int days)
{
    store(logDaysKey, zeroOrWithin(1, days, mostLogDays));
}

void SystemConfig::store(const char* key, const QVariant& value)
{
    vemo_data::SettingsFile& settings = vemo_data::SettingsFile::instance();
    // The file holds every value as text.
    if (settings.value(QLatin1String(key)).toString() == value.toString())
        return;
    settings.setValue(QLatin1String(key), value);
    emit signalConfigChanged();
}

} // namespace vemo_worker
