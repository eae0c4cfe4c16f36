#pragma once

#include "vemo_contact_global.h"

#include <QDateTime>
#include <QObject>

class QWidget;

namespace vemo_contact {

/// The signals by which the modules of the client ask one another for something. One object a process, it lives on the
/// GUI thread and every signal is emitted there, by whoever asks; it holds no state. Channel ids are what
/// vemo_base::BaseTools::formatChannelId() splits, task ids are braced UUID texts made by the requester.
class VEMO_CONTACT_EXPORT ModuleAccess final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ModuleAccess)

public:
    static ModuleAccess& instance();

signals:
    /// Queues the download of one recording of a device, named by the file name that a search gave.
    void signalDownloadRecordingByFile(QWidget* parent, const QString& channelId, int location, const QString& fileName,
                                       const QDateTime& begin, const QDateTime& end);
    /// Queues the download of a span of time.
    void signalDownloadRecordingByTimeRange(QWidget* parent, const QString& channelId, int location,
                                            const QDateTime& begin, const QDateTime& end);
    /// Downloads a span of time to `savePath` at once, past the download tables and the store.
    void signalDownloadRecordingByTimeRangeImplicitly(const QString& channelId, int location, const QString& taskId,
                                                      const QString& savePath, const QDateTime& begin,
                                                      const QDateTime& end);
    /// The answer to signalDownloadRecordingByTimeRangeImplicitly.
    void signalDownloadRecordingByTimeRangeImplicitlyResult(const QString& taskId, bool ok);
    /// A download of this span was handed to the download engine.
    void signalDownloadRecordingTrigger(const QString& devId, int channelNo, const QDateTime& begin,
                                        const QDateTime& end, int location);

    /// The host is to create the form of this type (19: Files Center).
    void signalCreateModuleForm(int formType);
    /// The person wants to look for recordings: the host is to show the page that does it.
    void signalShowPlayback();
    /// 0: local recordings, 1: downloading.
    void signalSwitchToSubPageInFilesCenter(int subPage);

private:
    ModuleAccess();
};

} // namespace vemo_contact
