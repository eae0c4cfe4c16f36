#pragma once

#include "VCOMMON_global.h"

#include <QCoreApplication>
#include <QString>

class QFile;
class QFileDevice;

namespace VCOMMON {

/// What tells two states of a file apart.
struct FileStamp
{
    qint64 sizeBytes = -1;
    qint64 modifiedNs = 0; ///< since 1970, UTC

    bool operator==(const FileStamp& other) const
    {
        return sizeBytes == other.sizeBytes && modifiedNs == other.modifiedNs;
    }
};

/// Calls on plain files that Qt does not offer; any thread.
class VCOMMON_EXPORT PlainFile final
{
    Q_DECLARE_TR_FUNCTIONS(PlainFile)

public:
    PlainFile() = delete;

    /// Opens a file for reading. A link, a folder, a pipe or a device is refused and never waited for. Empty when it
    /// went well, else why it did not, as a sentence.
    static QString open(QFile& file, const QString& path);

    /// Reads the stamp of an open file; false when the system does not tell.
    static bool readStamp(const QFileDevice& file, FileStamp& stamp);
    /// On file systems that let nobody set a time it stays as it is, and that is no failure.
    static bool setModified(QFileDevice& file, qint64 modifiedNs);

private:
    static QString notReadable(const QString& path);
    static QString notThere(const QString& path);
    static QString notPlain(const QString& path);
};

} // namespace VCOMMON
