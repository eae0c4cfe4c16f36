#pragma once

#include "VCOMMON_global.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QString>

class QIODevice;

namespace VCOMMON {

/// What a video file says of the recording in it.
struct VCOMMON_EXPORT RecordingFile
{
    Q_DECLARE_TR_FUNCTIONS(VCOMMON::RecordingFile)

public:
    /// Where the span was found, the surest first.
    enum class Source : int {
        Unknown = 0,
        Tags,     ///< begin and end, or begin and length, as our own files tell them
        Header,   ///< creation time and length
        Name,     ///< the file's name, as downloads are named
        WriteTime ///< when the file was last written, less its length: a guess
    };

    QDateTime begin;       ///< local; by the tags of our own files, else invalid
    QDateTime end;         ///< likewise; invalid also when the file was never finished
    QDateTime likelyBegin; ///< by the surest source there is
    QDateTime likelyEnd;
    Source source = Source::Unknown; ///< of the likely span
    qint64 bytes = 0;
    qint64 writtenUtcMs = 0;
    QString channelName; ///< these may be empty
    QString recorderName;
    int channelNo = 0;
    QString problem; ///< what is wrong with the file, one sentence; empty: nothing

    /// A whole file of ours.
    bool isFinished() const { return begin.isValid() && end.isValid(); }

    /// Reads a few hundred bytes of most files, a few MB at the most; waits for the disk, but at no pipe and no device.
    /// Any file may be asked; what it claims is checked against limits. A file that can't be read has a problem.
    static RecordingFile read(const QString& path);

private:
    void take(QIODevice& device);
    void takeName(const QString& fileName);
};

} // namespace VCOMMON
