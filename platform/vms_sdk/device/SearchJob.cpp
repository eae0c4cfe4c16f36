#include "SearchJob.h"

#include "onvif/RecordingFileName.h"

namespace vms_sdk {

using namespace onvif;

namespace {

constexpr int eventsAPage = 500;
constexpr int recordingsAPage = 20;
constexpr int pauseMs = 200;
// A device that only ever says "searching" is given up, renewal or not.
constexpr qint64 silenceMs = 120'000;

// From the most exact filter to none: devices refuse topics that they don't know (ONVIF Recording Search 5.8).
const char* const topicFilters[] = {
    ("tns1:RecordingHistory/Track/State|tns1:VideoSource/MotionAlarm|tns1:RuleEngine//.|"
     "tns1:Device/Trigger/DigitalInput"),
    "tns1:RecordingHistory/Track/State|tns1:VideoSource/MotionAlarm",
    "tns1:RecordingHistory/Track/State",
    "",
};
constexpr int filterCount = sizeof(topicFilters) / sizeof(topicFilters[0]);

} // namespace

SearchJob::SearchJob(RecsSearchCondition condition, DeviceSession* session, const SdkLimits& limits, QObject* parent)
    : QObject(parent)
    , m_condition(std::move(condition))
    , m_session(session)
    , m_limits(limits)
    , m_span{m_condition.begin.toMSecsSinceEpoch(), m_condition.end.toMSecsSinceEpoch()}
    , m_builder(m_span, limits.searchEvents)
{
    m_pause.setSingleShot(true);
    m_pause.setInterval(pauseMs);
}

void SearchJob::start()
{
    m_session->ensureLogin([job = QPointer<SearchJob>(this)](const Error& error) {
        if (job)
            job->loggedIn(error);
    });
}

void SearchJob::loggedIn(const Error& error)
{
    if (isOver(error))
        return;
    const std::optional<ChannelInfo> channel = m_session->channel(m_condition.channelNo);
    if (!channel) {
        finish({ErrorKind::NotFound, tr("The device has no channel %1.").arg(m_condition.channelNo), {}});
        return;
    }
    m_channel = *channel;
    if (m_session->isDirect()) {
        // The source tells of its recordings only while it plays.
        answerSegments({{m_span.beginMs, m_span.endMs, 0}});
    } else if (m_channel.recordingToken.isEmpty() || !m_session->offers(Service::Search)) {
        finish({ErrorKind::Unsupported, tr("The device offers no search of recordings."), {}});
    } else {
        m_builder.setVideoTracks(m_session->videoTracks(m_channel.recordingToken));
        m_sinceResult.start();
        findExtent();
    }
}

bool SearchJob::isOver(const Error& error)
{
    if (m_isFinished)
        return true;
    if (error)
        finish(error);
    return m_isFinished;
}

void SearchJob::call(const OnvifRequest& request, Handler handler)
{
    if (!m_session) {
        finish({ErrorKind::Cancelled, tr("The device was logged out."), {}});
        return;
    }
    m_callId =
        m_session->call(Service::Search, request, [job = QPointer<SearchJob>(this), handler](const SoapAnswer& answer) {
            if (!job || job->m_isFinished)
                return;
            job->m_callId = 0;
            (job->*handler)(answer);
        });
}

void SearchJob::findExtent()
{
    call(requests::findRecordings(m_channel.recordingToken), &SearchJob::takeExtentSearch);
}

void SearchJob::takeExtentSearch(const SoapAnswer& answer)
{
    m_searchToken = answers::searchToken(answer.payload());
    if (isRefusal(answer))
        findEvents();
    else if (!isOver(answer.error()))
        m_searchToken.isEmpty() ? findEvents() : pollExtent();
}

void SearchJob::pollExtent()
{
    call(requests::getRecordingSearchResults(m_searchToken, recordingsAPage), &SearchJob::takeExtent);
}

void SearchJob::takeExtent(const SoapAnswer& answer)
{
    if (isOver(isRefusal(answer) ? Error() : answer.error()))
        return;
    const auto results = answers::recordingSearchResults(answer.payload());
    for (const RecordingEntry& entry : results.entries) {
        if (entry.token == m_channel.recordingToken) {
            m_extent = entry;
            m_isExtentKnown = entry.earliestMs.has_value() && entry.latestMs.has_value();
        }
    }
    // A device may tell of all its recordings, asked for one or not: then the search does without the extent.
    m_recordingsSeen += results.entries.size();
    if (results.isValid && !results.completed && !m_isExtentKnown && m_recordingsSeen <= m_limits.searchEvents) {
        if (!pollAgain(results.entries.isEmpty(), &SearchJob::pollExtent))
            finish({ErrorKind::TimedOut, tr("The device does not get on with its search."), {}});
        return;
    }
    endDeviceSearch();
    if (m_isExtentKnown) {
        // What is being written to now reaches up to now, whatever the device remembered last.
        const qint64 latest = m_extent.isRecording ? m_session->deviceNowMs() : *m_extent.latestMs;
        if (*m_extent.earliestMs >= m_span.endMs || latest <= m_span.beginMs) {
            finish({});
            return;
        }
        m_builder.clampTo({*m_extent.earliestMs, latest});
        if (!m_extent.videoTracks.isEmpty())
            m_builder.setVideoTracks(m_extent.videoTracks);
    } else {
        m_builder.clampTo({m_span.beginMs, m_session->deviceNowMs()});
    }
    findEvents();
}

void SearchJob::findEvents()
{
    requests::EventSearch search;
    search.recordingToken = m_channel.recordingToken;
    search.beginMs = m_span.beginMs;
    search.endMs = m_span.endMs;
    search.topicFilter = QString::fromLatin1(topicFilters[m_filter]);
    call(requests::findEvents(search), &SearchJob::takeEventSearch);
}

void SearchJob::takeEventSearch(const SoapAnswer& answer)
{
    m_searchToken = answers::searchToken(answer.payload());
    if (isRefusal(answer)) {
        const bool isUnknown = answer.error().kind == ErrorKind::Unsupported;
        if (!isUnknown && ++m_filter < filterCount)
            findEvents();
        else
            answerExtentOnly();
    } else if (!isOver(answer.error())) {
        m_searchToken.isEmpty() ? answerExtentOnly() : pollEvents();
    }
}

void SearchJob::pollEvents()
{
    call(requests::getEventSearchResults(m_searchToken, eventsAPage), &SearchJob::takeEvents);
}

void SearchJob::takeEvents(const SoapAnswer& answer)
{
    if (isOver(answer.error()))
        return;
    const auto results = answers::eventSearchResults(answer.payload());
    if (!results.isValid) {
        endDeviceSearch();
        finish({ErrorKind::Corrupt, tr("The device's answer cannot be read."), QStringLiteral("no event results")});
        return;
    }
    m_eventsSeen += results.entries.size();
    for (const EventEntry& event : results.entries) {
        const bool isOurs = event.recordingToken.isEmpty() || event.recordingToken == m_channel.recordingToken;
        if (m_eventsSeen > m_limits.searchEvents || (isOurs && !m_builder.add(event))) {
            endDeviceSearch();
            finish({ErrorKind::Corrupt,
                    tr("The device tells of more than %1 events in this time; search a shorter one.")
                        .arg(m_limits.searchEvents),
                    {}});
            return;
        }
    }
    if (!results.completed) {
        if (!pollAgain(results.entries.isEmpty(), &SearchJob::pollEvents))
            finish({ErrorKind::TimedOut, tr("The device does not get on with its search."), {}});
        return;
    }
    endDeviceSearch();
    if (m_eventsSeen == 0 && m_isExtentKnown)
        answerExtentOnly();
    else
        answerSegments(m_builder.build());
}

bool SearchJob::pollAgain(bool isEmpty, void (SearchJob::*poll)())
{
    if (!isEmpty) {
        m_sinceResult.restart();
        (this->*poll)();
        return true;
    }
    if (m_sinceResult.elapsed() > silenceMs) {
        endDeviceSearch();
        return false;
    }
    m_pause.disconnect(this);
    connect(&m_pause, &QTimer::timeout, this, poll);
    m_pause.start();
    return true;
}

void SearchJob::answerExtentOnly()
{
    if (!m_isExtentKnown) {
        finish({ErrorKind::Unsupported, tr("The device offers no search of recordings."), {}});
        return;
    }
    const qint64 latest = m_extent.isRecording ? m_session->deviceNowMs() : *m_extent.latestMs;
    answerSegments({{qMax(*m_extent.earliestMs, m_span.beginMs), qMin(latest, m_span.endMs), 0}});
}

void SearchJob::answerSegments(QVector<RecordingSegment> segments)
{
    if (segments.size() > m_limits.searchRecordings) {
        finish({ErrorKind::Corrupt,
                tr("The device tells of more than %1 recordings in this time; search a shorter one.")
                    .arg(m_limits.searchRecordings),
                {}});
        return;
    }
    if (segments.isEmpty()) {
        finish({});
        return;
    }
    if (!m_session) {
        finish({ErrorKind::Cancelled, tr("The device was logged out."), {}});
        return;
    }
    // Without a replay address the recordings are still worth knowing.
    m_session->findReplay(
        m_condition.channelNo, m_channel.recordingToken,
        [job = QPointer<SearchJob>(this), segments](const Error&, const QUrl& url) {
            if (!job || job->m_isFinished)
                return;
            QList<VideoRecording> recordings;
            recordings.reserve(segments.size());
            for (const RecordingSegment& segment : segments) {
                VideoRecording recording;
                recording.fileName =
                    RecordingFileName{job->m_channel.recordingToken, segment.beginMs, segment.endMs}.encode();
                recording.begin = QDateTime::fromMSecsSinceEpoch(segment.beginMs);
                recording.end = QDateTime::fromMSecsSinceEpoch(segment.endMs);
                recording.type = segment.type;
                recording.replayUri = url;
                recordings.append(recording);
            }
            job->finish({}, recordings);
        });
}

void SearchJob::endDeviceSearch()
{
    // The device drops a search by itself after a while; telling it is a courtesy whose answer does not matter.
    if (m_session && !m_searchToken.isEmpty())
        m_session->call(Service::Search, requests::endSearch(m_searchToken), [](const SoapAnswer&) {});
    m_searchToken.clear();
}

void SearchJob::cancel()
{
    if (m_isFinished)
        return;
    if (m_session && m_callId != 0)
        m_session->cancel(m_callId);
    m_pause.stop();
    endDeviceSearch();
    finish({ErrorKind::Cancelled, tr("The search was cancelled."), {}});
}

void SearchJob::finish(const Error& error, const QList<VideoRecording>& recordings)
{
    if (m_isFinished)
        return;
    m_isFinished = true;
    emit finished(m_condition.requestId, error, recordings);
}

} // namespace vms_sdk
