#pragma once

#include <QDateTime>
#include <QObject>
#include <QSet>

namespace vemo_filesCenter {

/// Downloads without any row or record: started at once in the DownloadWorker, each answered by
/// ModuleAccess::signalDownloadRecordingByTimeRangeImplicitlyResult when it succeeds or fails. A task that is refused
/// for want of disk space is not answered. When the client is about to quit, what runs is ended, the part that is there
/// kept, and answered as failed. One object a process, on the GUI thread.
class ImplicitDownload final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ImplicitDownload)

public:
    static ImplicitDownload& instance();

    /// A task id that is running already is ignored, whatever else is asked for.
    void download(const QString& channelId, int location, const QString& taskId, const QString& savePath,
                  const QDateTime& begin, const QDateTime& end);

private slots:
    void slotDownloadEvent(const QString& taskId, int eventId, int progress);
    void slotPrepareQuitSystem();

private:
    ImplicitDownload();

    void answer(const QString& taskId, bool ok);

    QSet<QString> m_implicitTaskIds; ///< started and not yet answered
};

} // namespace vemo_filesCenter
