#pragma once

#include <QDateTime>
#include <QList>
#include <QMetaType>
#include <QString>

namespace VCOMMON {

/// One recording that this computer holds: a video file and the span of a channel that it covers.
struct LocalRecordingIndexInfo
{
    QString devId;
    int channelNo = 0;
    QString channelId;
    QString channelName; ///< as it was when the file was written
    QString problem;     ///< what is wrong with the file, one sentence; empty: nothing
    QString devName;     ///< as channelName, may be empty
    QDateTime beginTime; ///< local
    QDateTime endTime;
    QString filePath; ///< absolute; the key of the record
    qint64 bytes = 0; ///< of the file when it was last looked at
    /// The file does not tell its span itself: it was made of the time at which it was last written.
    bool isSpanGuessed = false;

    bool ok() const { return problem.isEmpty(); }
};

} // namespace VCOMMON

Q_DECLARE_METATYPE(VCOMMON::LocalRecordingIndexInfo)
Q_DECLARE_METATYPE(QList<VCOMMON::LocalRecordingIndexInfo>)
