#include "BackupSafety.h"

#include "BackupDay.h"

#include <algorithm>

namespace vemo_data {

namespace {

QList<BackupSpan> merged(QList<BackupSpan> spans)
{
    std::sort(spans.begin(), spans.end(), [](const BackupSpan& a, const BackupSpan& b) { return a.begin < b.begin; });
    QList<BackupSpan> result;
    for (const BackupSpan& span : qAsConst(spans)) {
        if (!span.begin.isValid() || !span.end.isValid() || span.end <= span.begin)
            continue;
        if (!result.isEmpty() && span.begin <= result.last().end)
            result.last().end = qMax(result.last().end, span.end);
        else
            result.append(span);
    }
    return result;
}

/// Both merged and in order.
QList<BackupSpan> common(const QList<BackupSpan>& some, const QList<BackupSpan>& others)
{
    QList<BackupSpan> result;
    auto a = some.begin();
    auto b = others.begin();
    while (a != some.end() && b != others.end()) {
        const BackupSpan both{qMax(a->begin, b->begin), qMin(a->end, b->end)};
        if (both.begin < both.end)
            result.append(both);
        (a->end < b->end ? a : b)++;
    }
    return result;
}

qint64 seconds(const QList<BackupSpan>& spans)
{
    qint64 ms = 0;
    for (const BackupSpan& span : spans)
        ms += span.begin.msecsTo(span.end);
    return (ms + 500) / 1000;
}

QList<BackupSpan> segmentsOf(const BackupTaskInfo& task)
{
    QList<BackupSpan> spans;
    for (const BackupTimeSegment& segment : task.timeSegments)
        spans.append({BackupDay::startOf(task.date, segment.start), BackupDay::endOf(task.date, segment.end)});
    return merged(spans);
}

QList<BackupSpan> filesOf(const BackupTaskInfo& task)
{
    QList<BackupSpan> spans;
    for (const BackupTaskInfo::FileInfo& entry : task.fileInfos) {
        if (entry.finished && !entry.filePath.isEmpty())
            spans.append({BackupDay::startOf(task, entry), BackupDay::endOf(task, entry)});
    }
    return merged(spans);
}

} // namespace

QList<BackupSpan> BackupSafety::mergedSpans(const QList<vms_sdk::VideoRecording>& recordings)
{
    QList<BackupSpan> spans;
    for (const vms_sdk::VideoRecording& recording : recordings)
        spans.append({recording.begin, recording.end});
    return merged(spans);
}

BackupSafety BackupSafety::of(const BackupTaskInfo& task)
{
    BackupSafety safety;
    safety.isKnown = task.searched || !task.recordings.isEmpty();
    const QList<BackupSpan> onDevice = task.recordings.isEmpty() ? task.held : mergedSpans(task.recordings);
    const QList<BackupSpan> wanted = common(onDevice, segmentsOf(task));
    safety.held = seconds(wanted);
    safety.safe = seconds(common(wanted, filesOf(task)));
    return safety;
}

void BackupSafety::add(const BackupSafety& other)
{
    isKnown = isKnown || other.isKnown;
    held += other.held;
    safe += other.safe;
}

} // namespace vemo_data
