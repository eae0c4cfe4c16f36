#include "AxisRow.h"

#include <algorithm>
#include <cmath>

namespace vemo_base {

namespace {

using Kind = AxisRow::Kind;

constexpr double rounding = 1e-6;

void lay(QVector<AxisRow::Stretch>* stretches, const DayAxis& axis, const TimeSpan& span, Kind kind)
{
    const QVector<DayAxis::Piece> pieces = axis.pieces(span.beginMs, span.endMs);
    for (const DayAxis::Piece& piece : pieces)
        stretches->append({piece, kind});
}

TimeSpan spanOf(const vms_sdk::VideoRecording& recording)
{
    return {recording.begin.toMSecsSinceEpoch(), recording.end.toMSecsSinceEpoch()};
}

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

QVector<AxisRow::Stretch> AxisRow::stretches(const DayAxis& axis, const QList<vms_sdk::VideoRecording>& recordings)
{
    QVector<Stretch> stretches;
    stretches.reserve(recordings.size());
    for (const vms_sdk::VideoRecording& recording : recordings)
        lay(&stretches, axis, spanOf(recording), recording.type != 0 ? Kind::Alarm : Kind::Recording);
    return stretches;
}

QVector<AxisRow::Stretch>
AxisRow::chosenStretches(const DayAxis& axis, const QList<vms_sdk::VideoRecording>& recordings, const QSet<int>& chosen)
{
    QVector<Stretch> stretches;
    for (const int index : chosen) {
        if (index >= 0 && index < recordings.size())
            lay(&stretches, axis, spanOf(recordings.at(index)), Kind::Recording);
    }
    return stretches;
}

QVector<AxisRow::Stretch> AxisRow::spanStretches(const DayAxis& axis, const QVector<TimeSpan>& spans)
{
    QVector<Stretch> stretches;
    for (const TimeSpan& span : spans)
        lay(&stretches, axis, span, Kind::Recording);
    return stretches;
}

QVector<AxisRow::Run> AxisRow::runs(const QVector<Stretch>& stretches, int pixels, int leastAlarm,
                                    const DayAxis::Piece& view)
{
    QVector<Kind> line(qMax(0, pixels), Kind::Nothing);
    const double scale = pixels / (view.to - view.from);
    for (const Stretch& stretch : stretches) {
        // Most of a day lies outside of a part that was zoomed to.
        if (stretch.piece.to <= view.from || stretch.piece.from >= view.to)
            continue;
        const double begin = qMax(0.0, (stretch.piece.from - view.from) * scale);
        const double end = qMin(double(pixels), (stretch.piece.to - view.from) * scale);
        const int least = stretch.kind == Kind::Alarm ? leastAlarm : 1;
        int from = int(std::floor(begin + rounding));
        int to = qMax(int(std::ceil(end - rounding)), from + least);
        to = qMin(to, pixels);
        from = qMax(0, qMin(from, to - least));
        for (int pixel = from; pixel < to; ++pixel)
            line[pixel] = qMax(line.at(pixel), stretch.kind);
    }
    return runsOf(line);
}

QVector<AxisRow::Run> AxisRow::runs(const DayAxis& axis, const QList<vms_sdk::VideoRecording>& recordings, int pixels,
                                    int leastAlarm)
{
    return runs(stretches(axis, recordings), pixels, leastAlarm, {0, 1});
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
