#include "AxisRow.h"

#include <algorithm>
#include <cmath>

namespace vemo_base {

namespace {

using Kind = AxisRow::Kind;

constexpr double rounding = 1e-6;

/// The pixels of a part of the day, and what is laid on them.
class Line final
{
public:
    Line(const DayAxis& axis, int pixels, const DayAxis::Piece& view)
        : m_axis(axis)
        , m_kinds(qMax(0, pixels), Kind::Nothing)
        , m_view(view)
        , m_beginMs(axis.timeAt(view.from, DayAxis::Pass::First))
        , m_endMs(axis.timeAt(view.to, DayAxis::Pass::Last))
    {}

    void lay(const TimeSpan& span, Kind kind, int least)
    {
        // Most of a day lies outside of a part that was zoomed to.
        if (span.endMs <= m_beginMs || span.beginMs > m_endMs)
            return;
        const int pixels = m_kinds.size();
        const double scale = pixels / (m_view.to - m_view.from);
        const QVector<DayAxis::Piece> pieces = m_axis.pieces(span.beginMs, span.endMs);
        for (const DayAxis::Piece& piece : pieces) {
            const double begin = qMax(0.0, (piece.from - m_view.from) * scale);
            const double end = qMin(double(pixels), (piece.to - m_view.from) * scale);
            if (end <= 0 || begin >= pixels)
                continue;
            int from = int(std::floor(begin + rounding));
            int to = qMax(int(std::ceil(end - rounding)), from + least);
            to = qMin(to, pixels);
            from = qMax(0, qMin(from, to - least));
            for (int pixel = from; pixel < to; ++pixel)
                m_kinds[pixel] = qMax(m_kinds.at(pixel), kind);
        }
    }
    void lay(const vms_sdk::VideoRecording& recording, Kind kind, int least)
    {
        lay({recording.begin.toMSecsSinceEpoch(), recording.end.toMSecsSinceEpoch()}, kind, least);
    }

    const QVector<Kind>& kinds() const { return m_kinds; }

private:
    const DayAxis& m_axis;
    QVector<Kind> m_kinds;
    DayAxis::Piece m_view;
    qint64 m_beginMs;
    qint64 m_endMs;
};

QVector<AxisRow::Run> runsOf(const QVector<Kind>& line)
{
    QVector<AxisRow::Run> runs;
    for (int from = 0; from < line.size();) {
        int to = from + 1;
        while (to < line.size() && line.at(to) == line.at(from))
            ++to;
        if (line.at(from) != Kind::Nothing)
            runs.append({from, to, line.at(from)});
        from = to;
    }
    return runs;
}

} // namespace

QVector<AxisRow::Run> AxisRow::runs(const DayAxis& axis, const QList<vms_sdk::VideoRecording>& recordings, int pixels,
                                    int leastAlarm, const DayAxis::Piece& view)
{
    Line line(axis, pixels, view);
    for (const vms_sdk::VideoRecording& recording : recordings) {
        const bool isAlarm = recording.type != 0;
        line.lay(recording, isAlarm ? Kind::Alarm : Kind::Recording, isAlarm ? leastAlarm : 1);
    }
    return runsOf(line.kinds());
}

QVector<AxisRow::Run> AxisRow::chosenRuns(const DayAxis& axis, const QList<vms_sdk::VideoRecording>& recordings,
                                          const QSet<int>& chosen, int pixels, const DayAxis::Piece& view)
{
    Line line(axis, pixels, view);
    for (const int index : chosen) {
        if (index >= 0 && index < recordings.size())
            line.lay(recordings.at(index), Kind::Recording, 1);
    }
    return runsOf(line.kinds());
}

QVector<AxisRow::Run> AxisRow::spanRuns(const DayAxis& axis, const QVector<TimeSpan>& spans, int pixels,
                                        const DayAxis::Piece& view)
{
    Line line(axis, pixels, view);
    for (const TimeSpan& span : spans)
        line.lay(span, Kind::Recording, 1);
    return runsOf(line.kinds());
}

int AxisRow::recordingAt(const QList<vms_sdk::VideoRecording>& recordings, qint64 ms)
{
    int found = -1;
    for (int i = 0; i < recordings.size(); ++i) {
        const vms_sdk::VideoRecording& recording = recordings.at(i);
        if (ms < recording.begin.toMSecsSinceEpoch() || ms >= recording.end.toMSecsSinceEpoch())
            continue;
        if (found < 0 || recording.type > recordings.at(found).type)
            found = i;
    }
    return found;
}

void AxisRow::gapAt(const DayAxis& axis, const QList<vms_sdk::VideoRecording>& recordings, qint64 ms, qint64* beginMs,
                    qint64* endMs)
{
    *beginMs = axis.beginMs();
    *endMs = axis.endMs();
    for (const vms_sdk::VideoRecording& recording : recordings) {
        const qint64 recordingEndMs = recording.end.toMSecsSinceEpoch();
        const qint64 recordingBeginMs = recording.begin.toMSecsSinceEpoch();
        if (recordingEndMs <= ms)
            *beginMs = qMax(*beginMs, recordingEndMs);
        else if (recordingBeginMs > ms)
            *endMs = qMin(*endMs, recordingBeginMs);
    }
}

qint64 AxisRow::coveredMs(const DayAxis& axis, const QList<vms_sdk::VideoRecording>& recordings)
{
    QVector<QPair<qint64, qint64>> spans;
    spans.reserve(recordings.size());
    for (const vms_sdk::VideoRecording& recording : recordings)
        spans.append({qMax(axis.beginMs(), recording.begin.toMSecsSinceEpoch()),
                      qMin(axis.endMs(), recording.end.toMSecsSinceEpoch())});
    std::sort(spans.begin(), spans.end());
    qint64 coveredMs = 0;
    qint64 reachedMs = axis.beginMs();
    for (const auto& span : qAsConst(spans)) {
        const qint64 fromMs = qMax(span.first, reachedMs);
        if (span.second > fromMs) {
            coveredMs += span.second - fromMs;
            reachedMs = span.second;
        }
    }
    return coveredMs;
}

} // namespace vemo_base
