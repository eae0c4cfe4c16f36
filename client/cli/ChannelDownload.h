#pragma once

#include "DownloadVerdict.h"
#include "RecordingSearch.h"

#include <QElapsedTimer>
#include <QObject>

namespace vemo_client {

class RecorderSession;

/// The download of one channel's span through the module, as another module of the client would ask for it, together
/// with the search that tells what there is to be had. GUI thread. start() once; signalFinished comes once, and then
/// outcome() holds.
class ChannelDownload final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ChannelDownload)

public:
    struct Progress
    {
        double fraction = 0; ///< of the span that was asked for
        qint64 bytes = 0;
        double bytesPerSecond = 0;
        int secondsLeft = -1; ///< -1: cannot be told yet
    };

    ChannelDownload(RecorderSession& session, int channelNo, const Span& asked, QObject* parent = nullptr);

    void start(const QString& path);
    /// Reads how far the library is; call it some times a second.
    void poll();
    /// From here on the end of the task is no answer: the program is about to end it.
    void expectEnd() { m_ended = true; }
    /// The downloads were ended because the person interrupted; what arrived is kept as a finished file.
    void interrupted();
    /// What ended the stream of this download; for the sentence.
    void setStreamError(const vms_sdk::Error& error);
    /// The session could not be opened: ends with its outcome.
    void sessionFailed();

    int channelNo() const { return m_channelNo; }
    bool isStarted() const { return !m_taskId.isEmpty(); }
    bool isRefused() const { return m_refused; }
    bool isFinished() const { return m_finished; }
    const Outcome& outcome() const { return m_outcome; }
    const Progress& progress() const { return m_progress; }
    const DownloadReport& report() const { return m_report; }
    double seconds() const { return m_seconds; }
    /// Footage was compared with the recorder's list.
    bool isCompared() const;

signals:
    void signalFinished();

private:
    void taskEnded(const QString& taskId);
    void searchEnded();
    void concludeIfReady();
    void conclude(const Outcome& outcome);
    void cancelTask();
    void updateProgress();

    RecorderSession& m_session;
    const int m_channelNo;
    const Span m_asked;
    RecordingSearch m_search;
    QString m_path;
    QString m_taskId;
    bool m_refused = false;
    bool m_ended = false;
    bool m_finished = false;
    DownloadReport m_report;
    vms_sdk::Error m_streamError;
    Outcome m_outcome;
    Progress m_progress;
    QElapsedTimer m_clock;
    qint64 m_lastPollMs = 0;
    qint64 m_lastBytes = 0;
    double m_seconds = 0;
};

} // namespace vemo_client
