#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>

namespace vemo_filesCenter {

/// The manifest of a folder of backups, two files beside the videos: "SHA256SUMS", which `sha256sum -c` checks, and
/// "manifest.json", {"version": 1, "files": [{"file", "device", "channel_no", "channel", "begin", "end" (ISO 8601 UTC,
/// of the recording in the file), "bytes", "sha256" (hex)}]}. Each is replaced as a whole, the JSON last: a file that
/// it names has its line in the other. Functions wait for the disk; one thread at a time a folder.
class BackupManifestFile final
{
public:
    BackupManifestFile() = delete;

    struct Record
    {
        QString file; ///< name without its folder
        QString device;
        int channelNo = 0;
        QString channel;
        QDateTime begin;
        QDateTime end;
        qint64 bytes = 0;
        QByteArray sha256; ///< 32 bytes
    };

    static QString sumsName();
    static QString jsonName();

    /// In the order of the names; empty when there is none or it is not ours. At most 16 MiB are read.
    static QList<Record> read(const QString& folder);
    /// Those of the files that stand where they are said to be and are not in the manifest of their folder.
    static QStringList unlisted(const QStringList& filePaths);
    /// Adds the records, in place of those of the same files; false when a file could not be written. What an earlier
    /// one that was cut off left beside them, "manifest.json.xxxxxx", is removed.
    static bool merge(const QString& folder, const QList<Record>& records);
};

} // namespace vemo_filesCenter
