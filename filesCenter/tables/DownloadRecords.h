#pragma once

#include <DownloadTaskInfo.h>

namespace vemo_filesCenter {

using vemo_data::DownloadTaskInfo;

/// What the end of a download, or of one of its files, means for the stored records: parts that are on the disk become
/// finished records, the rest of the span keeps waiting or fails. Ends the worker's task where a part is to be known.
/// Everything that one call changes is stored by one commit. With it the media download SDK's report of the task is
/// kept. GUI thread; no state, no rows.
class DownloadRecords final
{
public:
    DownloadRecords() = delete;

    /// Finished: state 3 when the file is there, else 7.
    static void finish(const DownloadTaskInfo& task, double seconds);
    /// Failed with `failureState`: what a running task, that is no copy, has downloaded becomes the finished record.
    static void fail(const DownloadTaskInfo& task, int failureState, bool isRunning, double seconds);
    /// Like a failure, but the rest waits (`restState` 0 or 2).
    static void breakOff(const DownloadTaskInfo& task, int restState, double seconds);
    /// The worker closed the file at `path` and goes on in the task's own; the record of the running task afterwards.
    static DownloadTaskInfo closeFile(const DownloadTaskInfo& task, const QString& path, int msecs,
                                      const QDateTime& time);

    /// The media download SDK's report as JSON, empty when it does not know the task.
    static QByteArray reportOf(const QString& taskId);

private:
    /// Whether there was a part to keep; then it and the rest are stored.
    static bool split(const DownloadTaskInfo& task, int restState, double seconds);
};

} // namespace vemo_filesCenter
