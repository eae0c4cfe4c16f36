#pragma once

#include <DownloadTaskInfo.h>

#include <QByteArray>
#include <QList>

#include <functional>

class QObject;

namespace vemo_filesCenter {

using vemo_data::DownloadTaskInfo;

/// Puts the stored tasks right that a crash interrupted: what such a task left on the disk becomes a finished record of
/// its own, the rest of its span waits (or is paused, when the task was). Footage is found by what the media download
/// SDK repaired, by the path that the task was started with, and by the names that its parts get; files say themselves
/// which span they hold. What is on the disk is believed, not the record. No file is overwritten; removed is only what
/// the repair closed for such a task when another one of its files holds the same footage.
class DownloadRecovery final
{
public:
    /// A finished file with footage of a task.
    struct Piece
    {
        QString path;
        QDateTime begin;
        QDateTime end;
        qint64 bytes = 0;
        bool isLast = false; ///< the file that was written last: one that ends within a second has nothing behind it
    };

    struct Changes
    {
        QList<DownloadTaskInfo> updates;
        QList<DownloadTaskInfo> adds;
        QStringList doubles; ///< repaired files whose footage others hold, to be removed once the rest is stored
    };

    DownloadRecovery() = delete;

    /// Once a process, before stored tasks are handed out: begins or awaits the repair, stores what follows from it and
    /// calls `done` on the GUI thread; before run() returns when little is to be done, else by the event loop, and not
    /// when `context` is gone.
    static void run(QObject* context, const std::function<void()>& done);

    /// The records that take the place of the task, by its pieces in order of time; empty when no piece is of use.
    static Changes plan(const DownloadTaskInfo& task, const QList<Piece>& pieces);
    /// All changes for the stored tasks. `repairReport` is the JSON of vaws_download_repair_report. Waits for the disk
    /// and renames parts to their spans.
    static Changes recover(const QList<DownloadTaskInfo>& tasks, const QByteArray& repairReport);
};

} // namespace vemo_filesCenter
