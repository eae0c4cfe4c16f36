#pragma once

#include "DeviceSession.h"
#include "onvif/RecordingSegmentBuilder.h"

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QTimer>

namespace vms_sdk {

/// One search for the recordings of a channel. Lives on the SOAP thread, owned by SoapWorker. Asks for the recording's
/// extent, then for the events of its history, page by page, and makes recordings of them; a device without event
/// search gets one recording for its extent. finished() comes exactly once, later; cancel() answers within one turn of
/// the event loop, whatever the device does.
class SearchJob final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SearchJob)

public:
    SearchJob(RecsSearchCondition condition, DeviceSession* session, const SdkLimits& limits,
              QObject* parent = nullptr);

    QString requestId() const { return m_condition.requestId; }
    DeviceSession* session() const { return m_session; }
    void start();
    void cancel();

signals:
    void finished(const QString& requestId, const vms_sdk::Error& error,
                  const QList<vms_sdk::VideoRecording>& recordings);

private:
    using Handler = void (SearchJob::*)(const onvif::SoapAnswer&);

    void loggedIn(const Error& error);
    void call(const onvif::OnvifRequest& request, Handler handler);
    void findExtent();
    void takeExtentSearch(const onvif::SoapAnswer& answer);
    void pollExtent();
    void takeExtent(const onvif::SoapAnswer& answer);
    void findEvents();
    void takeEventSearch(const onvif::SoapAnswer& answer);
    void pollEvents();
    void takeEvents(const onvif::SoapAnswer& answer);
    /// Asks for the next page, after a pause when the last one was empty. False when nothing has come for too long.
    bool pollAgain(bool isEmpty, void (SearchJob::*poll)());
    void answerExtentOnly();
    void answerSegments(QVector<onvif::RecordingSegment> segments);
    void endDeviceSearch();
    void finish(const Error& error, const QList<VideoRecording>& recordings = {});
    bool isOver(const Error& error);

    const RecsSearchCondition m_condition;
    QPointer<DeviceSession> m_session;
    const SdkLimits m_limits;
    const onvif::RecordingSegmentBuilder::Span m_span;
    onvif::RecordingSegmentBuilder m_builder;
    ChannelInfo m_channel;
    onvif::RecordingEntry m_extent;
    QString m_searchToken;
    quint64 m_callId = 0;
    int m_filter = 0; ///< which topic filter is being tried
    int m_eventsSeen = 0;
    int m_recordingsSeen = 0;
    bool m_isExtentKnown = false;
    bool m_isFinished = false;
    QTimer m_pause;
    QElapsedTimer m_sinceResult;
};

} // namespace vms_sdk
