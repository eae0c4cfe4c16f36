#pragma once

#include <QString>

#include <functional>

class QFile;

namespace VCOMMON {

/// Copies a file's bytes without bringing them into the program: by sharing its blocks where the file system can, by
/// copy_file_range, or by CopyFile2. For a worker thread.
class KernelCopy final
{
public:
    enum class End : int {
        Unknown = 0,
        Done,
        Unsupported, ///< nothing was written; not these two files, or not on this system
        Stopped,     ///< by the step
        Failed,      ///< the system's error code tells why
    };
    /// Called about every 20 ms with the bytes that are copied; may wait. False stops the copy.
    using Step = std::function<bool(qint64 doneBytes)>;

    KernelCopy() = delete;

    /// Copies `totalBytes` of `from`, open for reading and found under `fromPath`, into `to`, which is new and open.
    /// Fewer bytes are copied when the source is cut meanwhile.
    static End copy(QFile& from, const QString& fromPath, QFile& to, qint64 totalBytes, const Step& step);
};

} // namespace VCOMMON
