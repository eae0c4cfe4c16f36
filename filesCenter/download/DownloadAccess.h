#pragma once

#include <DownloadTaskInfo.h>

#include <QList>
#include <QObject>
#include <QTimer>

class QWidget;

namespace vemo_filesCenter {

using vemo_data::DownloadTaskInfo;

/// Where the download requests of other modules come in, by the signals of ModuleAccess. One object a process, made by
/// FilesCenterInit, on the GUI thread. A request needs the power to download, or the person is alerted and nothing
/// happens; it has the host make the Files Center form. Requests for the queue are collected until none came for 200 ms
/// and stored as one list; implicit ones start at once.
class DownloadAccess final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DownloadAccess)

public:
    static DownloadAccess& instance();

private slots:
    void slotDownloadRecordingByFile(QWidget* parent, const QString& channelId, int location, const QString& fileName,
                                     const QDateTime& begin, const QDateTime& end);
    void slotDownloadRecordingByTimeRange(QWidget* parent, const QString& channelId, int location,
                                          const QDateTime& begin, const QDateTime& end);
    void slotDownloadRecordingByTimeRangeImplicitly(const QString& channelId, int location, const QString& taskId,
                                                    const QString& savePath, const QDateTime& begin,
                                                    const QDateTime& end);
    void slotTimeout();

private:
    DownloadAccess();

    bool admit();

    QList<DownloadTaskInfo> m_pendingTasks;
    QTimer m_batchTimer;
};

} // namespace vemo_filesCenter
