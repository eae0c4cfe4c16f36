#pragma once

#include <DownloadTaskInfo.h>

#include <QCoreApplication>
#include <QString>

namespace vemo_filesCenter {

/// Texts of tasks and recordings that more than one table shows. GUI thread, no state.
class TaskTexts final
{
    Q_DECLARE_TR_FUNCTIONS(vemo_filesCenter::TaskTexts)

public:
    TaskTexts() = delete;

    /// The channel's name, or that it or its device is gone.
    static QString channel(const vemo_data::DownloadTaskInfo& task);
    /// Why a task of that state failed, in the words of the table; empty for any other state.
    static QString failure(int state);
    /// The same as a sentence, for where the media download SDK said nothing.
    static QString failureCause(int state);
    /// "1024 B (00:31:00)": bytes, KB or MB, and the recorded length.
    static QString size(const vemo_data::DownloadTaskInfo& task);
    static QString size(qint64 bytes, const QDateTime& begin, const QDateTime& end);

    /// "41 min", "2 h 05 min", "less than a minute"
    static QString duration(qint64 seconds);
    /// "48.2 MB/s"
    static QString rate(double bytesPerSecond);
};

} // namespace vemo_filesCenter
