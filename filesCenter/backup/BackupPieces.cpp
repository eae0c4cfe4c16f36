#include "BackupPieces.h"

#include <BackupDay.h>
#include <BackupSafety.h>

namespace vemo_filesCenter {

using vemo_data::BackupSpan;
using vemo_data::BackupTaskInfo;
using vemo_data::BackupDay::endOf;
using vemo_data::BackupDay::startOf;
using FileInfo = BackupTaskInfo::FileInfo;

namespace {

FileInfo spanOf(const FileInfo& entry)
{
    FileInfo span = entry;
    span.filePath.clear();
    span.finished = false;
    return span;
}

QDateTime floorSecond(const QDateTime& time)
{
    return time.addMSecs(-time.time().msec());
}

QDateTime ceilSecond(const QDateTime& time)
{
    constexpr int secondMs = 1000;
    const int ms = time.time().msec();
    return ms == 0 ? time : time.addMSecs(secondMs - ms);
}

} // namespace

std::optional<BackupPieces::Piece> BackupPieces::next(const BackupTaskInfo& task)
{
    for (int index = 0; index < task.fileInfos.size(); ++index) {
        if (!task.fileInfos.at(index).finished)
            return Piece{spanOf(task.fileInfos.at(index)), index};
    }
    if (task.timeSegments.isEmpty())
        return {};
    const auto whole = [](const vemo_data::BackupTimeSegment& segment) {
        FileInfo span;
        span.startTime = segment.start;
        span.endTime = segment.end;
        return span;
    };
    if (task.fileInfos.isEmpty())
        return Piece{whole(task.timeSegments.first()), -1};

    const FileInfo& last = task.fileInfos.last();
    const QDateTime candidate = endOf(task, last);
    if (candidate >= endOf(task.date, task.timeSegments.last().end))
        return {};
    for (const vemo_data::BackupTimeSegment& segment : task.timeSegments) {
        const QDateTime start = startOf(task.date, segment.start);
        if (start >= candidate)
            return Piece{whole(segment), -1};
        if (endOf(task.date, segment.end) > candidate) {
            FileInfo rest = whole(segment);
            rest.startTime = last.endTime;
            rest.startsInSecondPass = !last.endsInFirstPass && vemo_data::BackupDay::isDoubled(candidate);
            return Piece{rest, -1};
        }
    }
    return {};
}

std::optional<BackupSpan> BackupPieces::clip(const BackupSpan& piece, const QList<vms_sdk::VideoRecording>& recordings)
{
    if (piece.begin >= piece.end)
        return {};
    // Merged, so that a short recording within a long one does not end the piece.
    const QList<BackupSpan> found = vemo_data::BackupSafety::mergedSpans(recordings);
    BackupSpan clipped;
    for (int index = 0; index < found.size(); ++index) {
        const BackupSpan& recording = found.at(index);
        if (!clipped.begin.isValid()) {
            if (recording.begin <= piece.begin && recording.end > piece.begin)
                clipped.begin = piece.begin;
            else if (recording.begin > piece.begin && recording.begin < piece.end)
                clipped.begin = floorSecond(recording.begin);
        }
        if (recording.begin < piece.end && recording.end >= piece.end)
            clipped.end = piece.end;
        else if (recording.end > piece.begin && recording.end < piece.end &&
                 (index + 1 == found.size() || found.at(index + 1).begin >= piece.end))
            clipped.end = qMin(ceilSecond(recording.end), piece.end);
    }
    if (!clipped.begin.isValid() || !clipped.end.isValid() || clipped.begin >= clipped.end)
        return {};
    return clipped;
}

} // namespace vemo_filesCenter
