#pragma once

#include <BackupTaskInfo.h>

#include <QStringList>

namespace vemo_filesCenter {

using FileInfo = vemo_data::BackupTaskInfo::FileInfo;

/// The files of a backup's pieces: where one may be written, how one is named when it is over, what a crash left. Waits
/// for the disk, so it runs on the module's thread for disks, with values only. Nothing of others is overwritten.
class BackupPieceFiles final
{
public:
    BackupPieceFiles() = delete;

    /// Stuck: the piece's own leftover can't be removed; Taken: a file stands at the path.
    enum class Room { Unknown = 0, Free, Taken, Stuck };
    /// Removes the piece's own leftover and makes the folder.
    static Room makeRoom(const QString& ownPath, const QString& path);
    /// The same for a path that is taken: `path` when the file there, which no backup claims, could be moved aside to a
    /// name with " (2)", else another name for the piece.
    static QString makeOtherRoom(const QString& path, const QStringList& claimed);

    /// A piece whose download is over.
    struct Ended
    {
        FileInfo entry;    ///< finished when it has a file
        QDateTime reached; ///< where it was cut off
    };
    /// Gives the file of a whole piece the name of its times. Without a file the entry has no path any more.
    static Ended finish(const FileInfo& entry);
    /// The same for a piece that was cut off, which ends there; a file that holds nothing of it is removed. An entry
    /// whose file could not be closed is not for this: it stays as it is until the next start has repaired the file.
    static Ended cutOff(const QDate& date, const FileInfo& entry, const QDateTime& reached);

    /// What a run that was cut off left of the unfinished entry at `index` takes its place: the task's entries, of
    /// which `taken` from there on are settled.
    struct Leftovers
    {
        QList<FileInfo> entries;
        int taken = 0;
    };
    static Leftovers takeOver(vemo_data::BackupTaskInfo task, int index, const QStringList& claimed);

    /// The same for a piece without a leftover of its own, which is yet to be fetched to its path: files of it that no
    /// entry claims, since the store could not be told of them. Nothing is removed.
    static Leftovers adopt(vemo_data::BackupTaskInfo task, int index, const FileInfo& piece,
                           const QStringList& claimed);

    /// In the hour that passes twice a local time leaves open which pass it is; the file knows.
    static QDateTime exactMoment(const QDateTime& local, const QString& filePath);
};

} // namespace vemo_filesCenter
