#pragma once

#include "vemo_worker_global.h"

#include <QObject>
#include <QString>
#include <QVariant>

namespace vemo_worker {

/// The client's configuration, the same for everybody on this computer. One object a process, on the GUI thread. Kept
/// in the settings file; what was never chosen, or stands there with a value that can't be, has its default. Every
/// setter stores at once and tells signalConfigChanged when something changed; a value out of its range is brought into
/// it.
class VEMO_WORKER_EXPORT SystemConfig final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SystemConfig)

public:
    static SystemConfig& instance();

    // Folders. A folder that was never chosen is the default below the user's videos folder.

    /// Where the client puts video files. With `makeDefault` the default folder is made when it is missing; a chosen
    /// one never is, since it may lie on a disk that is not there now.
    QString getVideoFilePath(bool makeDefault) const;
    /// Target of downloads; default: "Downloads" in the video folder, made when that folder is there.
    QString getDownloadPath() const;
    /// Root of recording backups; default: "Backup" in the video folder, made when that folder is there.
    QString getRecordingBackupPath() const;
    /// Where recordings of live video lie: "Recordings" in the video folder, made when that folder is there.
    QString getLocalRecordingPath() const;
    /// Where snapshots lie: "Snapshots" in the video folder, likewise.
    QString getLocalSnapshotPath() const;

    void setVideoFilePath(const QString& folder);
    void setDownloadPath(const QString& folder);
    void setRecordingBackupPath(const QString& folder);

    // Files.

    /// As QDate::toString() takes it; "yyyy-MM-dd" unless another was chosen.
    QString getDateFormat() const;
    void setDateFormat(const QString& format);
    /// "JPG" or "BMP".
    QString snapshotFormat() const;
    void setSnapshotFormat(const QString& format);
    /// A download goes on in a new file beyond so many bytes; 0: no limit.
    qint64 largestFileBytes() const;
    void setLargestFileBytes(qint64 bytes);
    /// Files get a text track with the wall clock. Off by default.
    bool clockTrack() const;
    void setClockTrack(bool on);
    /// Deleted files go to the recycle bin where their disk has one. On by default.
    bool useRecycleBin() const;
    void setUseRecycleBin(bool on);

    // Downloads.

    /// Bytes a second for all downloads together; 0: no limit.
    qint64 bandwidthLimit() const;
    void setBandwidthLimit(qint64 bytesPerSecond);
    /// Downloads that were waiting when the client ended go on when it starts; otherwise they come back paused. On by
    /// default.
    bool goOnWithDownloads() const;
    void setGoOnWithDownloads(bool on);

    // The client.

    /// "system", "en", "de" or "zh_CN"; "system" unless one was chosen.
    QString language() const;
    void setLanguage(const QString& language);

    /// What is told beside the bell, which keeps everything.
    enum class Telling : int {
        GoodNews = 1, ///< toasts of information and success
        Warnings,     ///< toasts of warnings; errors are always shown
        Desktop       ///< a notification of the desktop when the queue is done and the window is not looked at
    };
    /// All are on by default.
    bool isTold(Telling kind) const;
    void setTold(Telling kind, bool on);

    /// Entries of the files-center log that are older are removed; 0: they are kept. 365 by default.
    int logDays() const;
    void setLogDays(int days);

signals:
    void signalConfigChanged();

private:
    SystemConfig();

    QString folderBelowVideos(const char* key, const QString& defaultName) const;
    void store(const char* key, const QVariant& value);
};

} // namespace vemo_worker
