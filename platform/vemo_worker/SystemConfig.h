#pragma once

#include "vemo_worker_global.h"

#include <QObject>
#include <QString>

namespace vemo_worker {

/// The client's configuration: folders for video files and the date format. One object a process, on the GUI thread.
/// Kept in the settings file; a folder that was never chosen is the default below the user's videos folder.
class VEMO_WORKER_EXPORT SystemConfig final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SystemConfig)

public:
    static SystemConfig& instance();

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
    /// As QDate::toString() takes it; "yyyy-MM-dd" unless another was chosen.
    QString getDateFormat() const;

    void setVideoFilePath(const QString& folder);
    void setDownloadPath(const QString& folder);
    void setRecordingBackupPath(const QString& folder);
    void setDateFormat(const QString& format);

signals:
    void signalConfigChanged();

private:
    SystemConfig();

    QString folderBelowVideos(const QString& key, const QString& defaultName) const;
    void store(const QString& key, const QString& value);
};

} // namespace vemo_worker
