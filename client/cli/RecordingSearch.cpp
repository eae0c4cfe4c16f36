#include "RecordingSearch.h"

#include <vms_sdk.h>

#include <QUuid>

namespace vemo_client {

RecordingSearch::RecordingSearch(const QString& devId, int channelNo, const Span& span, QObject* parent)
    : QObject(parent)
{
    m_condition.requestId = QUuid::createUuid().toString();
    m_condition.devId = devId;
    m_condition.channelNo = channelNo;
    m_condition.begin = span.begin;
    m_condition.end = span.end;

    const vms_sdk::ClientSignals& client = vms_sdk::ClientSignals::instance();
    connect(&client, &vms_sdk::ClientSignals::signalSearchVideoRecordingsRes, this,
            [this](const QString& requestId, int errorCode, const QList<vms_sdk::VideoRecording>& recordings) {
                if (requestId != m_condition.requestId || m_finished)
                    return;
                if (errorCode != 0) {
                    m_error = vms_sdk::search_error(requestId);
                    m_error.kind = static_cast<vms_sdk::ErrorKind>(errorCode);
                }
                m_recordings = recordings;
                finish();
            });
    connect(&client, &vms_sdk::ClientSignals::signalRequestTimeout, this, [this](const QString& requestId) {
        if (requestId != m_condition.requestId || m_finished)
            return;
        m_error.kind = vms_sdk::ErrorKind::TimedOut;
        m_error.message = tr("The recorder did not answer the search for recordings in time.");
        finish();
    });
}

RecordingSearch::~RecordingSearch()
{
    if (!m_finished)
        vms_sdk::cancel_request(m_condition.requestId);
}

void RecordingSearch::start()
{
    vms_sdk::search_video_recordings_req(m_condition);
}

QList<Span> RecordingSearch::spans() const
{
    QList<Span> spans;
    for (const vms_sdk::VideoRecording& recording : m_recordings)
        spans.append({recording.begin, recording.end});
    return spans;
}

void RecordingSearch::finish()
{
    m_finished = true;
    emit signalFinished();
}

} // namespace vemo_client
