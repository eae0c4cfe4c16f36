#include "RecordingSegmentBuilder.h"

#include <algorithm>
#include <iterator>
#include <limits>

namespace vms_sdk::onvif {

namespace {

// Stretches closer than this are one: recorders stamp the end of a file and the begin of the next one frame apart.
constexpr qint64 joinGapMs = 200;
// How long an alarm counts that is told as a moment, without begin and end.
constexpr qint64 momentaryAlarmMs = 10'000;
// Different sources of events that are told apart; beyond it, all further ones share a state.
constexpr int maxSources = 1024;

bool isAlarmTopic(const QString& topic)
{
    static const QLatin1String signs[] = {QLatin1String("Motion"), QLatin1String("Alarm"),
                                          QLatin1String("DigitalInput"), QLatin1String("RuleEngine/"),
                                          QLatin1String("Tamper")};
    return std::any_of(std::begin(signs), std::end(signs), [&](QLatin1String sign) { return topic.contains(sign); });
}

} // namespace

RecordingSegmentBuilder::RecordingSegmentBuilder(Span span, int maxEvents)
    : m_span(span)
    , m_maxEvents(maxEvents)
{}

void RecordingSegmentBuilder::clampTo(Span recording)
{
    m_span.beginMs = qMax(m_span.beginMs, recording.beginMs);
    m_span.endMs = qMin(m_span.endMs, recording.endMs);
}

int RecordingSegmentBuilder::sourceNumber(const QString& key)
{
    const auto known = m_sources.constFind(key);
    if (known != m_sources.constEnd())
        return *known;
    if (m_sources.size() >= maxSources)
        return 0;
    const int number = m_sources.size();
    m_sources.insert(key, number);
    m_trackOfSource.append(QString());
    return number;
}

bool RecordingSegmentBuilder::add(const EventEntry& event)
{
    Transition transition;
    transition.timeMs = event.timeMs;
    bool momentary = false;
    if (event.topic.endsWith(QLatin1String("RecordingHistory/Track/State")))
        transition.kind = Kind::TrackState;
    else if (event.topic.endsWith(QLatin1String("RecordingHistory/Recording/State")))
        transition.kind = Kind::RecordingState;
    else if (isAlarmTopic(event.topic))
        transition.kind = Kind::Alarm;
    else
        return true;
    if (!event.state) {
        if (transition.kind != Kind::Alarm)
            return true;
        momentary = true;
    }
    if (m_transitions.size() + (momentary ? 2 : 1) > m_maxEvents)
        return false;
    const bool isTrack = transition.kind == Kind::TrackState;
    const QString key = isTrack ? QString(QStringLiteral("T\n") + event.trackToken)
                                : QString(event.topic + QLatin1Char('\n') + event.sourceKey);
    transition.source = sourceNumber(key);
    if (isTrack)
        m_trackOfSource[transition.source] = event.trackToken;
    transition.isActive = event.state.value_or(true);
    m_transitions.append(transition);
    if (momentary) {
        transition.timeMs += momentaryAlarmMs;
        transition.isActive = false;
        m_transitions.append(transition);
    }
    return true;
}

QVector<RecordingSegmentBuilder::Span>
RecordingSegmentBuilder::activeSpans(const QVector<Transition>& transitions) const
{
    constexpr qint64 closed = std::numeric_limits<qint64>::max();
    QHash<int, qint64> openSince;
    QVector<Span> spans;
    const auto append = [&](qint64 begin, qint64 end) {
        const Span clipped{qMax(begin, m_span.beginMs), qMin(end, m_span.endMs)};
        if (clipped.beginMs < clipped.endMs)
            spans.append(clipped);
    };
    for (const Transition& transition : transitions) {
        const auto known = openSince.find(transition.source);
        if (known == openSince.end()) {
            // A source's first word being "off" means that it was on before.
            if (!transition.isActive)
                append(m_span.beginMs, transition.timeMs);
            openSince.insert(transition.source, transition.isActive ? transition.timeMs : closed);
        } else if (transition.isActive && *known == closed) {
            *known = transition.timeMs;
        } else if (!transition.isActive && *known != closed) {
            append(*known, transition.timeMs);
            *known = closed;
        }
    }
    for (const qint64 since : qAsConst(openSince)) {
        if (since != closed)
            append(since, m_span.endMs);
    }
    std::sort(spans.begin(), spans.end(), [](const Span& a, const Span& b) { return a.beginMs < b.beginMs; });
    QVector<Span> joined;
    for (const Span& span : qAsConst(spans)) {
        if (!joined.isEmpty() && span.beginMs <= joined.last().endMs + joinGapMs)
            joined.last().endMs = qMax(joined.last().endMs, span.endMs);
        else
            joined.append(span);
    }
    return joined;
}

QVector<RecordingSegmentBuilder::Span> RecordingSegmentBuilder::footage() const
{
    QVector<Transition> tracks;
    QVector<Transition> videoTracks;
    QVector<Transition> recording;
    for (const Transition& transition : m_transitions) {
        if (transition.kind == Kind::RecordingState) {
            recording.append(transition);
        } else if (transition.kind == Kind::TrackState) {
            tracks.append(transition);
            if (m_videoTracks.contains(m_trackOfSource.at(transition.source)))
                videoTracks.append(transition);
        }
    }
    QVector<Transition>& chosen = !videoTracks.isEmpty() ? videoTracks : !tracks.isEmpty() ? tracks : recording;
    std::stable_sort(chosen.begin(), chosen.end(),
                     [](const Transition& a, const Transition& b) { return a.timeMs < b.timeMs; });
    return activeSpans(chosen);
}

QVector<RecordingSegment> RecordingSegmentBuilder::build() const
{
    QVector<Transition> alarmTransitions;
    std::copy_if(m_transitions.cbegin(), m_transitions.cend(), std::back_inserter(alarmTransitions),
                 [](const Transition& transition) { return transition.kind == Kind::Alarm; });
    std::stable_sort(alarmTransitions.begin(), alarmTransitions.end(),
                     [](const Transition& a, const Transition& b) { return a.timeMs < b.timeMs; });
    const QVector<Span> alarms = activeSpans(alarmTransitions);
    QVector<RecordingSegment> segments;
    auto alarm = alarms.cbegin();
    for (const Span& stretch : footage()) {
        qint64 position = stretch.beginMs;
        while (alarm != alarms.cend() && alarm->endMs <= position)
            ++alarm;
        // An alarm that reaches into the next stretch is looked at again there.
        for (auto next = alarm; next != alarms.cend() && next->beginMs < stretch.endMs; ++next) {
            if (next->beginMs > position)
                segments.append({position, next->beginMs, 0});
            const qint64 end = qMin(next->endMs, stretch.endMs);
            segments.append({qMax(position, next->beginMs), end, 1});
            position = end;
        }
        if (position < stretch.endMs)
            segments.append({position, stretch.endMs, 0});
    }
    return segments;
}

} // namespace vms_sdk::onvif
