#pragma once

#include "OnvifAnswers.h"

#include <QHash>
#include <QVector>

namespace vms_sdk::onvif {

/// A stretch of footage without a gap and with one type. Times are ms since 1970 UTC.
struct RecordingSegment
{
    qint64 beginMs = 0;
    qint64 endMs = 0;
    int type = 0; ///< 1 alarm or motion, 0 otherwise

    bool operator==(const RecordingSegment& other) const
    {
        return beginMs == other.beginMs && endMs == other.endMs && type == other.type;
    }
};

/// Makes segments of the events of one recording. Footage is where a track's state (RecordingHistory/Track/State) says
/// that data is present, on any of its video tracks; it is cut where an alarm or motion begins and ends, so that the
/// type holds for the whole segment, and stretches that touch are joined. An end that is missing lies at the end of
/// what is known; a begin that is missing at the begin of the span. Events may come in any order. Pure; keeps at most
/// the given number of events.
class RecordingSegmentBuilder final
{
public:
    struct Span
    {
        qint64 beginMs = 0;
        qint64 endMs = 0;
    };

    /// `span` is what was searched; footage beyond it is cut off.
    RecordingSegmentBuilder(Span span, int maxEvents);

    /// What the recorder tells of the recording: nothing lies outside.
    void clampTo(Span recording);
    /// Only these tracks count, as soon as one of them has a state.
    void setVideoTracks(const QStringList& trackTokens) { m_videoTracks = trackTokens; }

    /// False when there are more events than may be kept.
    bool add(const EventEntry& event);
    /// In order of time.
    QVector<RecordingSegment> build() const;

private:
    enum class Kind : quint8 { TrackState, RecordingState, Alarm };
    struct Transition
    {
        qint64 timeMs = 0;
        int source = 0;
        Kind kind = Kind::TrackState;
        bool isActive = false;
    };

    int sourceNumber(const QString& key);
    QVector<Span> footage() const;
    QVector<Span> activeSpans(const QVector<Transition>& transitions) const;

    Span m_span;
    const int m_maxEvents;
    QStringList m_videoTracks;
    QVector<Transition> m_transitions;
    QHash<QString, int> m_sources;
    QVector<QString> m_trackOfSource; ///< by source number
};

} // namespace vms_sdk::onvif
