#pragma once

#include <QDateTime>
#include <QList>
#include <QMetaType>
#include <QString>

#include <limits>

namespace vemo_data {

/// States of a download task as they are stored. The in-progress values are the downloading table's own.
enum DownloadTaskState : int {
    TaskWaiting = 0,
    TaskDownloading = 1,
    TaskPaused = 2,
    TaskSucceeded = 3,
    TaskLoginFailed = 4,
    TaskConnectFailed = 5,
    TaskAbnormal = 6,
    TaskInvalidFile = 7,
    TaskGetUrlFailed = 8,
};

enum DownloadMode : int { DownloadByFile = 0, DownloadByTimeRange = 1 };

/// Where a recording lies.
enum RecordingLocation : int {
    LocationDevice = 0,
    LocationPlatformStorage = 1,
    LocationEdgeCard = 2,
    LocationCloud = 3,
    LocationThisComputer = 4, ///< copied or cut locally instead of being streamed
};

/// One download task: what is to be fetched, from where, to which file, and how far it got. A plain value.
struct DownloadTaskInfo
{
    QString taskId; ///< braced UUID text, the key of every map and signal
    QString channelId;
    QString channelName;
    QString devLabel; ///< the device's name, for the saved file's name
    int channelNo = 0;
    QDateTime beginTime; ///< local
    QDateTime endTime;
    int downloadMode = DownloadByFile;
    int state = TaskWaiting;
    int location = 0;          ///< 0 device, 1 platform storage, 2 edge card, 3 cloud, 4 this computer
    int progress = 0;          ///< percent
    qint64 downloadedSize = 0; ///< bytes
    QString fileName; ///< by file: the device's name of the recording, or the local source path; empty by time range
    QString savePath; ///< the file to write; a bare name until the downloading table joins it to a folder
    int downloadedMs = 0; ///< already downloaded; -1: a time range that was broken off
    int durationMs = 0;   ///< of the span; at most what an int holds, some 24 days
};

/// Milliseconds from begin to end, as far as an int holds them.
inline int spanMs(const QDateTime& begin, const QDateTime& end)
{
    constexpr qint64 limit = std::numeric_limits<int>::max();
    return static_cast<int>(qBound(-limit, begin.msecsTo(end), limit));
}

} // namespace vemo_data

Q_DECLARE_METATYPE(vemo_data::DownloadTaskInfo)
Q_DECLARE_METATYPE(QList<vemo_data::DownloadTaskInfo>)
