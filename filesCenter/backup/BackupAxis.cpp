#include "BackupAxis.h"

#include <BackupDay.h>

#include <QTimeZone>

#include <algorithm>

namespace vemo_filesCenter {

using vemo_base::TimeSpan;
using vemo_data::BackupTaskInfo;
namespace BackupDay = vemo_data::BackupDay;

namespace {

TimeSpan spanOf(const QDateTime& begin, const QDateTime& end)
{
    return {begin.toMSecsSinceEpoch(), end.toMSecsSinceEpoch()};
}

bool holds(const TimeSpan& span, qint64 ms)
{
    return span.beginMs <= ms && ms < span.endMs;
}

bool isSameRecording(const vms_sdk::VideoRecording& a, const vms_sdk::VideoRecording& b)
{
    return a.begin == b.begin && a.end == b.end && a.type == b.type;
}

} // namespace

BackupAxis::BackupAxis(const BackupTaskInfo& task, const QDateTime& curTime)
    : m_day(task.date, QTimeZone::systemTimeZone())
    , m_recordings(task.recordings)
{
    for (const vemo_data::BackupTimeSegment& segment : task.timeSegments)
        m_segments.append({Kind::Segment, spanOf(BackupDay::startOf(task.date, segment.start),
                                                 BackupDay::endOf(task.date, segment.end))});
    for (const BackupTaskInfo::FileInfo& entry : task.fileInfos) {
        TimeSpan time = spanOf(BackupDay::startOf(task, entry), BackupDay::endOf(task, entry));
        if (entry.finished) {
            m_pieces.append({entry.filePath.isEmpty() ? Kind::NoRecording : Kind::BackedUp, time});
        } else if (curTime.isValid() && holds(time, curTime.toMSecsSinceEpoch())) {
            time.endMs = curTime.toMSecsSinceEpoch();
            m_pieces.append({Kind::BackedUp, time});
        }
    }
    if (!m_recordings.isEmpty())
        return;
    for (const vemo_data::BackupSpan& span : task.held) {
        vms_sdk::VideoRecording recording;
        recording.begin = span.begin;
        recording.end = span.end;
        m_recordings.append(recording);
    }
}

BackupAxis::Span BackupAxis::spanAt(qint64 ms) const
{
    for (const QVector<Span>* spans : {&m_pieces, &m_segments}) {
        for (const Span& span : *spans) {
            if (holds(span.time, ms))
                return span;
        }
    }
    const int index = vemo_base::AxisRow::recordingAt(m_recordings, ms);
    if (index < 0)
        return {};
    const vms_sdk::VideoRecording& recording = m_recordings.at(index);
    TimeSpan time = spanOf(recording.begin, recording.end);
    time.beginMs = qMax(time.beginMs, m_day.beginMs());
    time.endMs = qMin(time.endMs, m_day.endMs());
    return {recording.type != 0 ? Kind::Alarm : Kind::Recording, time};
}

BackupAxis::Span BackupAxis::alarmAt(qint64 ms) const
{
    const int index = vemo_base::AxisRow::recordingAt(m_recordings, ms);
    if (index < 0 || m_recordings.at(index).type == 0)
        return {};
    return {Kind::Alarm, spanOf(m_recordings.at(index).begin, m_recordings.at(index).end)};
}

QVector<BackupAxis::Span> BackupAxis::steps() const
{
    QVector<Span> steps = m_segments + m_pieces;
    for (const vms_sdk::VideoRecording& recording : m_recordings) {
        const Span span = spanAt(qMax(m_day.beginMs(), recording.begin.toMSecsSinceEpoch()));
        if (span.kind == Kind::Recording || span.kind == Kind::Alarm)
            steps.append(span);
    }
    std::stable_sort(steps.begin(), steps.end(),
                     [](const Span& a, const Span& b) { return a.time.beginMs < b.time.beginMs; });
    return steps;
}

TimeSpan BackupAxis::progressSince(const BackupAxis& other) const
{
    const TimeSpan more{0, -1};
    if (m_day.day() != other.m_day.day() || m_segments != other.m_segments ||
        m_pieces.size() != other.m_pieces.size() || m_recordings.size() != other.m_recordings.size() ||
        !std::equal(m_recordings.cbegin(), m_recordings.cend(), other.m_recordings.cbegin(), isSameRecording))
        return more;
    TimeSpan changed;
    for (int i = 0; i < m_pieces.size(); ++i) {
        const Span& now = m_pieces.at(i);
        const Span& before = other.m_pieces.at(i);
        if (now == before)
            continue;
        if (changed.lengthMs() != 0 || now.kind != before.kind || now.time.beginMs != before.time.beginMs)
            return more;
        changed = {qMin(now.time.endMs, before.time.endMs), qMax(now.time.endMs, before.time.endMs)};
    }
    return changed;
}

} // namespace vemo_filesCenter
