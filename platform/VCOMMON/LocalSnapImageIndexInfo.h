#pragma once

#include <QDateTime>
#include <QList>
#include <QMetaType>
#include <QString>

namespace VCOMMON {

/// One still picture of a channel that this computer holds.
struct LocalSnapImageIndexInfo
{
    QString devId;
    int channelNo = 0;
    QString channelName;   ///< as it was when the picture was taken
    QString problem;       ///< what is wrong with the file, one sentence; empty: nothing
    QString devName;       ///< as channelName, may be empty
    QDateTime captureTime; ///< local
    QString filePath;      ///< absolute; the key of the record
    qint64 bytes = 0;      ///< of the file when it was last looked at

    bool ok() const { return problem.isEmpty(); }
};

} // namespace VCOMMON

Q_DECLARE_METATYPE(VCOMMON::LocalSnapImageIndexInfo)
Q_DECLARE_METATYPE(QList<VCOMMON::LocalSnapImageIndexInfo>)
