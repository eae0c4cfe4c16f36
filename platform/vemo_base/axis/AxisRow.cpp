#include "AxisRow.h"

#include <algorithm>
#include <cmath>

namespace vemo_base {

namespace {

using Kind = AxisRow::Kind;

constexpr double rounding = 1e-6;

void lay(QVector<Kind>* line, const DayAxis& axis, const vms_sdk::VideoRecording& recording, Kind kind, int least)
{
    const int pixels = line->size();
    const QVector<DayAxis::Piece> pieces =
        axis.pieces(recording.begin.toMSecsSinceEpoch(), recording.end.toMSecsSinceEpoch());
    for (const DayAxis::Piece& piece : pieces) {
        int from = int(std::floor(piece.from * pixels + rounding));
        int to = qMax(int(std::ceil(piece.to * pixels - rounding)), from + least);
        to = qMin(to, pixels);
        from = qMax(0, qMin(from, to - least));
        for (int pixel = from; pixel < to; ++pixel)
            (*line)[pixel] = qMax(line->at(pixel), kind);
    }
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

QVector<AxisRow::Run> AxisRow::runs(const DayAxis& axis, const QList<vms_sdk::VideoRecording>& recordings, int pixels,
                                    int leastAlarm)
{
    QVector<Kind> line(qMax(0, pixels), Kind::Nothing);
    for (const vms_sdk::VideoRecording& recording : recordings) {
        const bool isAlarm = recording.type != 0;
        lay(&line, axis, recording, isAlarm ? Kind::Alarm : Kind::Recording, isAlarm ? leastAlarm : 1);
    }
    return runsOf(line);
}

QVector<AxisRow::Run> AxisRow::chosenRuns(const DayAxis& axis, const QList<vms_sdk::VideoRecording>& recordings,
                                          const QSet<int>& chosen, int pixels)
{
    QVector<Kind> line(qMax(0, pixels), Kind::Nothing);
    for (const int index : chosen) {
        if (index >= 0 && index < recordings.size())
            lay(&line, axis, recordings.at(index), Kind::Recording, 1);
    }
    return runsOf(line);
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
