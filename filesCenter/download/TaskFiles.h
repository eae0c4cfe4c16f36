#pragma once

#include <RecordingFile.h>

#include <QDateTime>
#include <QString>

#include <functional>

namespace vemo_filesCenter {

using VCOMMON::RecordingFile; // what a file of such a name says of itself

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

} // namespace vemo_filesCenter
