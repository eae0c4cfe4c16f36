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
    QString devName;     ///< the same, may be empty
    QDateTime beginTime; ///< local
    QDateTime endTime;
    QString filePath; ///< absolute; the key of the record
};

} // namespace VCOMMON

Q_DECLARE_METATYPE(VCOMMON::LocalRecordingIndexInfo)
Q_DECLARE_METATYPE(QList<VCOMMON::LocalRecordingIndexInfo>)
