#pragma once

#include <QDateTime>
#include <QString>

#include <functional>

namespace vemo_filesCenter {

/// Names of the files that downloads are saved under. No state; the functions that look at the disk say so.
namespace TaskFiles {

/// `path` with the span in its name (the part before the last "@") replaced by this one; a name without one stays. With
/// `renameOnDisk` a file that stands at `path` is renamed, never onto another one: then the name gets " (2)"; the
/// result is where the file is afterwards, `path` itself when it could not be renamed.
QString makeSegmentFileName(const QString& path, const QDateTime& begin, const QDateTime& end, bool renameOnDisk);

/// Where a download of that name may be written in the folder: the name itself, or with " (2)", " (3)", ... before its
/// suffix when the one before stands on the disk or is claimed by another task. Looks at the disk.
QString freeTargetPath(const QString& folder, const QString& name, const std::function<bool(const QString&)>& claimed);

/// A path in the form in which two paths of the same file are equal.
QString comparable(const QString& path);

} // namespace TaskFiles

/// What a finished file of ours says of itself: the span of the recording in it.
struct RecordingFile
{
    QDateTime begin; ///< local
    QDateTime end;   ///< invalid when the file was never finished or is not ours
    qint64 bytes = 0;

    bool isFinished() const { return begin.isValid() && end.isValid(); }

    /// Reads a few hundred bytes of the file; waits for the disk. Any file may be asked; what it claims is checked
    /// against limits.
    static RecordingFile read(const QString& path);
};

} // namespace vemo_filesCenter
