#pragma once

#include <DownloadTaskInfo.h>

namespace vemo_filesCenter {

using vemo_data::DownloadTaskInfo;

/// The records of a task that ends before its span does: what lies on the disk already, and what is still to be
/// fetched. Together they cover the span of the task exactly once.
struct TaskSplit
{
    DownloadTaskInfo finished;
    DownloadTaskInfo rest;
    bool hasRest = false; ///< false: the file reaches the end of the span, `finished` is the whole task

    /// Where in the span a download by file ends that holds so many milliseconds of the recording.
    static QDateTime timeByFile(const DownloadTaskInfo& task, int downloadedMs);

    /// `finished` keeps the task's key, gets state 3, the size of the file and the name of its own span, as does the
    /// file on the disk; `rest` gets a new key, `restState` and the name of its span, with nothing on the disk touched.
    /// `downloadedMs` is kept in both. Looks at the disk and renames.
    static TaskSplit at(const DownloadTaskInfo& task, const QDateTime& splitTime, int downloadedMs, int restState);
};

} // namespace vemo_filesCenter
