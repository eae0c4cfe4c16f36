#include "Footage.h"

#include <algorithm>

namespace vemo_client {

using vemo_base::TimeSpan;

namespace {

// Recorders name whole seconds: files that follow each other may look a second apart.
constexpr qint64 seamMs = 1000;

} // namespace

Footage::Footage(const vemo_base::DayAxis& day, const QList<vms_sdk::VideoRecording>& recordings)
    : m_day{day.beginMs(), day.endMs()}
{
    QVector<TimeSpan> spans;
    spans.reserve(recordings.size());
    for (const vms_sdk::VideoRecording& recording : recordings) {
        const TimeSpan span{qMax(m_day.beginMs, recording.begin.toMSecsSinceEpoch()),
                            qMin(m_day.endMs, recording.end.toMSecsSinceEpoch())};
        if (span.lengthMs() > 0)
            spans.append(span);
    }
    std::sort(spans.begin(), spans.end(), [](const TimeSpan& a, const TimeSpan& b) { return a.beginMs < b.beginMs; });
    for (const TimeSpan& span : qAsConst(spans)) {
        if (!m_spans.isEmpty() && span.beginMs <= m_spans.last().endMs + seamMs)
            m_spans.last().endMs = qMax(m_spans.last().endMs, span.endMs);
        else
            m_spans.append(span);
    }
}

Footage Footage::anywhere(const vemo_base::DayAxis& day)
{
    Footage footage;
    footage.m_day = {day.beginMs(), day.endMs()};
    footage.m_spans = {footage.m_day};
    return footage;
}

QVector<TimeSpan>::const_iterator Footage::endingBehind(qint64 ms) const
{
    return std::upper_bound(m_spans.cbegin(), m_spans.cend(), ms,
                            [](qint64 time, const TimeSpan& span) { return time < span.endMs; });
}

bool Footage::covers(qint64 ms) const
{
    const auto span = endingBehind(ms);
    return span != m_spans.cend() && span->beginMs <= ms;
}

std::optional<qint64> Footage::nextFrom(qint64 ms) const
{
    const auto span = endingBehind(ms);
    if (span == m_spans.cend())
        return std::nullopt;
    return qMax(ms, span->beginMs);
}

TimeSpan Footage::gapAt(qint64 ms) const
{
    const auto behind = endingBehind(ms);
    TimeSpan gap = m_day;
    if (behind != m_spans.cend())
        gap.endMs = behind->beginMs;
    if (behind != m_spans.cbegin())
        gap.beginMs = (behind - 1)->endMs;
    return gap;
}

} // namespace vemo_client
