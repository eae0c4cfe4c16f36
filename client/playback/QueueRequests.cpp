#include "QueueRequests.h"

#include <BaseTools.h>
#include <DataSignals.h>
#include <ModuleAccess.h>

namespace vemo_client {

using vemo_base::TimeSpan;

namespace {

/// The module gathers requests for a moment and the store writes them; requests that are all known are not announced.
constexpr int answerMs = 2000;

} // namespace

QueueRequests::QueueRequests(QObject* parent)
    : QObject(parent)
{
    m_answerTimer.setSingleShot(true);
    m_answerTimer.setInterval(answerMs);
    connect(&m_answerTimer, &QTimer::timeout, this, &QueueRequests::tell);
    connect(&vemo_data::DataSignals::instance(), &vemo_data::DataSignals::signalAddDownloadTasksToLocalDB, this,
            [this](const QList<vemo_data::DownloadTaskInfo>& tasks) {
                if (m_asked == 0)
                    return;
                m_added = qMin(m_asked, m_added + tasks.size());
                if (m_added == m_asked)
                    tell();
            });
}

void QueueRequests::askFor(const QVector<Recording>& recordings, QWidget* asker)
{
    expect(recordings.size());
    for (const Recording& wanted : recordings) {
        const QString channelId =
            vemo_base::BaseTools::instance().formatChannelId(wanted.channel.devId, wanted.channel.channelNo);
        emit vemo_contact::ModuleAccess::instance().signalDownloadRecordingByFile(
            asker, channelId, vemo_data::LocationDevice, wanted.recording.fileName, wanted.recording.begin,
            wanted.recording.end);
    }
}

void QueueRequests::askFor(const QVector<ChannelRef>& channels, const TimeSpan& span, QWidget* asker)
{
    expect(channels.size());
    const QDateTime begin = QDateTime::fromMSecsSinceEpoch(span.beginMs);
    const QDateTime end = QDateTime::fromMSecsSinceEpoch(span.endMs);
    for (const ChannelRef& channel : channels) {
        const QString channelId = vemo_base::BaseTools::instance().formatChannelId(channel.devId, channel.channelNo);
        emit vemo_contact::ModuleAccess::instance().signalDownloadRecordingByTimeRange(
            asker, channelId, vemo_data::LocationDevice, begin, end);
    }
}

void QueueRequests::expect(int asked)
{
    m_asked += asked;
    if (m_asked > 0)
        m_answerTimer.start();
}

void QueueRequests::tell()
{
    m_answerTimer.stop();
    const int asked = m_asked;
    const int added = m_added;
    m_asked = 0;
    m_added = 0;
    emit signalQueued(added, asked);
}

} // namespace vemo_client
