#pragma once

#include <VmsTypes.h>

#include <QDate>
#include <QDateTime>
#include <QList>
#include <QMetaType>
#include <QString>
#include <QTime>

namespace vemo_data {

/// A span of each day whose recordings are backed up, local time of day.
struct BackupTimeSegment
{
    QTime start;
    QTime end;
};

/// What a device holds, or is known to have held, as an exact span of time.
struct BackupSpan
{
    QDateTime begin;
    QDateTime end;
};

/// States of a backup task. They are the running client's: a stored task is stopped.
enum BackupTaskState : int {
    BackupStopped = 0,
    BackupRunning = 1,
    BackupFinished = 2, ///< every time segment of the day is covered
    BackupWaiting = 3,  ///< queued behind running tasks, or until a retry
};

/// The backup of one channel's recordings of one day. A plain value.
struct BackupTaskInfo
{
    /// One piece of a time segment and what became of it.
    struct FileInfo
    {
        QTime startTime;
        QTime endTime;         ///< shortened to the time reached when the piece ended early
        QString filePath;      ///< full path; empty: no recording in the piece, or its file was removed
        bool finished = false; ///< settled, not fetched again

        // The hour that passes twice when summer time ends: a start means its first pass and an end its second, except
        bool startsInSecondPass = false;
        bool endsInFirstPass = false;
    };

    QString taskId; ///< braced UUID text, the key of every map and signal
    QDate date;
    QString channelId;
    QString channelName; ///< at creation
    QString deviceNo;    ///< the device's identifier
    int channelNo = 0;
    QList<BackupTimeSegment> timeSegments; ///< ascending, disjoint
    QList<FileInfo> fileInfos;             ///< one for each piece started, in order
    int state = BackupStopped;
    QList<vms_sdk::VideoRecording> recordings; ///< of the day, while the task runs
    QDateTime latestTime;                      ///< nothing at or after this moment is backed up
    QDateTime pieceStart;                      ///< of the range being downloaded
    QDateTime pieceEnd;
    QDateTime curTime;      ///< how far the download of the piece has come
    QDateTime reportedTime; ///< the `curTime` last told
    int curFileIndex = 0;   ///< the entry of `fileInfos` being fetched

    QList<BackupSpan> held; ///< what the device held of the day at the last search, merged, in order; stored
    bool searched = false;  ///< `held` is known
    int emptyLooks = 0;     ///< searches behind the day's end, one after the other, that found nothing; stored
};

/// A finished file of a backup that is not in its folder's manifest yet.
struct BackupUnlisted
{
    QString filePath;
    QString deviceNo;
    int channelNo = 0;
    QString channelName;
};

} // namespace vemo_data

Q_DECLARE_METATYPE(vemo_data::BackupTaskInfo)
Q_DECLARE_METATYPE(QList<vemo_data::BackupTaskInfo>)
Q_DECLARE_METATYPE(vemo_data::BackupTaskInfo::FileInfo)
Q_DECLARE_METATYPE(QList<vemo_data::BackupTaskInfo::FileInfo>)
