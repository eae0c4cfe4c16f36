#include "ChannelDownload.h"

#include "Failures.h"
#include "RecorderSession.h"
#include "TimeText.h"

#include <BaseTools.h>
#include <ModuleAccess.h>
#include <vaws_download.h>

#include <QFileInfo>
#include <QStorageInfo>
#include <QUuid>

namespace vemo_client {

namespace {

constexpr int locationDevice = 0;
/// Weight of the newest reading in the rate that is shown.
constexpr double rateSmoothing = 0.3;

} // namespace

ChannelDownload::ChannelDownload(RecorderSession& session, int channelNo, const Span& asked, QObject* parent)
    : QObject(parent)
    , m_session(session)
    , m_channelNo(channelNo)
    , m_asked(asked)
    , m_search(session.devId(), channelNo, asked)
{
    connect(&m_search, &RecordingSearch::signalFinished, this, &ChannelDownload::searchEnded);
    connect(&vemo_contact::ModuleAccess::instance(),
            &vemo_contact::ModuleAccess::signalDownloadRecordingByTimeRangeImplicitlyResult, this,
            &ChannelDownload::taskEnded);
    m_clock.start();
}

void ChannelDownload::start(const QString& path)
{
    m_path = path;
    m_taskId = QUuid::createUuid().toString();
    const QString channelId = vemo_base::BaseTools::instance().formatChannelId(m_session.devId(), m_channelNo);
    emit vemo_contact::ModuleAccess::instance().signalDownloadRecordingByTimeRangeImplicitly(
        channelId, locationDevice, m_taskId, path, m_asked.begin, m_asked.end);
    // A task that the library does not take never gets a result; the library tells it at once.
    m_report = DownloadReport::ofTask(m_taskId);
    m_refused = !m_report.known || m_report.event == VAWS_EVENT_DISK_LOW;
    m_search.start();
    if (m_refused)
        concludeIfReady();
}

bool ChannelDownload::isCompared() const
{
    return !m_session.isDirect() && m_search.isFinished() && !m_search.error();
}

void ChannelDownload::poll()
{
    if (m_finished || !isStarted() || m_ended)
        return;
    const DownloadReport report = DownloadReport::ofTask(m_taskId);
    if (!report.known)
        return;
    m_report = report;
    updateProgress();
}

void ChannelDownload::updateProgress()
{
    const qint64 now = m_clock.elapsed();
    const qint64 passedMs = now - m_lastPollMs;
    if (passedMs > 0 && m_report.bytes >= m_lastBytes) {
        const double rate = double(m_report.bytes - m_lastBytes) * 1000.0 / double(passedMs);
        m_progress.bytesPerSecond = m_progress.bytesPerSecond > 0
                                        ? (1 - rateSmoothing) * m_progress.bytesPerSecond + rateSmoothing * rate
                                        : rate;
    }
    m_lastPollMs = now;
    m_lastBytes = m_report.bytes;
    m_progress.bytes = m_report.bytes;
    const double total = double(m_asked.begin.msecsTo(m_asked.end));
    if (m_report.end.isValid())
        m_progress.fraction =
            qMax(m_progress.fraction, qBound(0.0, double(m_asked.begin.msecsTo(m_report.end)) / total, 1.0));
    if (m_progress.fraction > 0 && m_progress.fraction < 1)
        m_progress.secondsLeft = int(double(now) / 1000.0 * (1 - m_progress.fraction) / m_progress.fraction + 0.5);
}

void ChannelDownload::interrupted()
{
    if (m_finished)
        return;
    m_ended = true;
    if (isStarted() && !m_refused)
        m_report = DownloadReport::ofTask(m_taskId);
    const QString where = m_session.place(m_channelNo).text;
    if (m_report.frames > 0)
        conclude(
            {ExitCode::Interrupted, tr("%1: interrupted; what had arrived is kept in %2.").arg(where, m_report.path)});
    else
        conclude({ExitCode::Interrupted, tr("%1: interrupted before anything had arrived.").arg(where)});
}

void ChannelDownload::setStreamError(const vms_sdk::Error& error)
{
    m_streamError = error;
}

void ChannelDownload::sessionFailed()
{
    if (m_finished)
        return;
    cancelTask();
    conclude(m_session.failure());
}

void ChannelDownload::taskEnded(const QString& taskId)
{
    if (taskId != m_taskId || m_ended)
        return;
    m_ended = true;
    m_seconds = double(m_clock.nsecsElapsed()) / 1e9;
    m_report = DownloadReport::ofTask(m_taskId);
    updateProgress();
    concludeIfReady();
}

void ChannelDownload::searchEnded()
{
    if (m_finished)
        return;
    if (m_session.isOpen() && !m_session.info().channels.isEmpty() && !m_session.hasChannel(m_channelNo)) {
        cancelTask();
        conclude(Failures::unknownChannel(m_channelNo, m_session.info().channels, m_session.addressText()));
        return;
    }
    if (!m_search.error() && m_search.recordings().isEmpty() && !m_ended && !m_refused) {
        poll();
        if (m_report.frames == 0) {
            cancelTask();
            conclude({ExitCode::NoRecording, tr("%1: no recording from %2 to %3.")
                                                 .arg(m_session.place(m_channelNo).text, TimeText::plain(m_asked.begin),
                                                      TimeText::plain(m_asked.end))});
            return;
        }
    }
    concludeIfReady();
}

/// The verdict needs both answers, the download's and the search's; and the login's, when something failed.
void ChannelDownload::concludeIfReady()
{
    if (m_finished || !(m_ended || m_refused) || !(m_search.isFinished() || m_refused))
        return;
    if (m_session.hasFailed()) {
        conclude(m_session.failure());
        return;
    }
    DownloadFacts facts;
    facts.place = m_session.place(m_channelNo);
    facts.asked = m_asked;
    facts.report = m_report;
    if (facts.report.path.isEmpty())
        facts.report.path = m_path;
    facts.refused = m_refused;
    facts.freeBytes = QStorageInfo(QFileInfo(m_path).absolutePath()).bytesAvailable();
    facts.streamError = m_streamError;
    if (isCompared())
        facts.listed = m_search.spans();
    conclude(judgeDownload(facts));
}

void ChannelDownload::conclude(const Outcome& outcome)
{
    m_finished = true;
    if (m_seconds == 0)
        m_seconds = double(m_clock.nsecsElapsed()) / 1e9;
    m_outcome = outcome;
    emit signalFinished();
}

void ChannelDownload::cancelTask()
{
    if (isStarted() && !m_refused && !m_ended)
        vaws_download_cancel(m_taskId.toUtf8().constData());
    m_ended = true;
    m_report = DownloadReport();
}

} // namespace vemo_client
