#pragma once

#include "DownloadRuns.h"

#include <DownloadTaskInfo.h>
#include <VmsTypes.h>

#include <QMap>
#include <QObject>

namespace VCOMMON {
class VCopyLocalFile;
}

namespace vemo_filesCenter {

using vemo_data::DownloadTaskInfo;

/// Moves recordings to disk: a device's stream, or files of this computer, into the file of a task, in one of four ways
/// that follow from the task's mode and location. One object a process, on the GUI thread; it takes every task that it
/// is given and keeps no queue.
///
/// A task that is fed by a stream first gets its task in the media download SDK, then its stream. What becomes of it is
/// told by DownloadSignals, on the GUI thread; an event that ends the task also ends its stream. After a task was
/// cancelled or stopped nothing more is told of it. The callbacks of the SDK come on its threads and only queue; the
/// maps are touched on the GUI thread alone. Bytes that the SDK took over are reported to the device client SDK, which
/// reads no more from the network than that.
class DownloadWorker final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DownloadWorker)

public:
    enum Control : int { ControlResume = 0, ControlPause = 1, ControlCancel = 2 };

    static DownloadWorker& instance();

    /// For recordings of this computer by time range it returns when their index has answered; events are processed
    /// meanwhile.
    void startDownloadTask(const DownloadTaskInfo& task);
    /// `op` is a Control; any other does nothing.
    void controlTask(const QString& taskId, int op);
    bool isTaskPaused(const QString& taskId) const;
    bool isCopyTask(const QString& taskId) const;
    /// Ends the task, what was written stays; milliseconds downloaded, 0 when none.
    int downloadedMsecs(const QString& taskId);
    /// Ends the task, what was written stays; local time of the last frame written, invalid when none.
    QDateTime lastFrameTime(const QString& taskId);

private slots:
    void slotCopyFileProgress(const QString& taskId, qint64 done, qint64 total);
    void slotCopyFileFinished(const QString& source, const QString& taskId, bool ok);
    void slotStreamData(quint64 streamId, const QByteArray& data);
    void slotStreamEventPush(quint64 streamId, vms_sdk::StreamEvent event);
    void slotPlaybackByFileProgressPush(quint64 streamId, uint done, uint total);
    void slotPlaybackByTimeProgressPush(quint64 streamId, const QDateTime& time);

private:
    struct Stopped
    {
        qint64 downloadedMs = 0;
        QString lastFrameTime;
    };

    DownloadWorker();
    ~DownloadWorker() override;

    void startCopy(const DownloadTaskInfo& task);
    void startByFile(const DownloadTaskInfo& task, const QString& devId, int channelNo);
    void startByTimeRange(const DownloadTaskInfo& task, const QString& devId, int channelNo);
    void startLocalTimeRange(const DownloadTaskInfo& task, const QString& devId, int channelNo);
    /// Whether the task runs; tells of it when it doesn't.
    bool acceptLibraryResult(const QString& taskId, int result);
    void followStream(const QString& taskId, quint64 streamId);

    /// Takes the stream out of the maps and ends it; nothing when the task has none.
    void endStream(const QString& taskId);
    void cancel(const QString& taskId);
    Stopped stop(const QString& taskId);

    void libraryEvent(const QString& taskId, int event, int value);
    bool isCurrentRun(const QString& taskId, quint64 run) const;

    static void onLibraryEvent(const char* taskId, int event, int value);
    static void onFileToggle(const char* taskId, const char* fileName, int offset, const char* toggleTime);
    static void onBitRate(int kbitPerSecond);
    static void onConsumed(const char* taskId, int64_t bytes);

    QMap<QString, VCOMMON::VCopyLocalFile*> m_copyJobs;
    QMap<quint64, QString> m_taskIdByStream;
    QMap<QString, quint64> m_streamByTaskId;
    DownloadRuns m_runs;
};

} // namespace vemo_filesCenter
