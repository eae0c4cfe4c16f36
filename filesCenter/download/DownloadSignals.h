#pragma once

#include <DownloadTaskInfo.h>

#include <QObject>

namespace vemo_filesCenter {

using vemo_data::DownloadTaskInfo;

/// The module's hub of download signals. One object a process; it lives on the GUI thread, only carries signals, and
/// every receiver is called on the GUI thread.
class DownloadSignals final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DownloadSignals)

public:
    static DownloadSignals& instance();

signals: // in this order: it is the order of their indexes
    void signalDownloadingTasksCnt(int count);
    void signalSuccessTasksCnt(int count);
    void signalFailedTasksCnt(int count);
    void signalTotalTasksCntChanged(int total);
    void signalAddDownloadTaskToFailedTable(const vemo_data::DownloadTaskInfo& task);
    void signalAddDownloadTaskToDownloadingTable(const vemo_data::DownloadTaskInfo& task);
    /// `eventId` is a DownloadEvent, `progress` a percentage where the event has one.
    void signalDownloadEvent(const QString& taskId, int eventId, int progress);
    /// The file `fileName` of a running task is finished, `offset` ms long; the next begins at `toggleTime`.
    void signalDownloadFileToggle(const QString& taskId, const QString& fileName, int offset,
                                  const QDateTime& toggleTime);

private:
    DownloadSignals();
};

} // namespace vemo_filesCenter
