#pragma once

#include <axis/AxisRow.h>
#include <axis/DayAxis.h>
#include <axis/TimeSpan.h>
#include <BackupTaskInfo.h>

#include <QVector>

namespace vemo_filesCenter {

/// What the time axis of a backup task shows, as spans of time: its segments, what became of its pieces, what its
/// device has. A value, no painter.
class BackupAxis final
{
public:
    enum class Kind : int { Nothing = 0, Segment, BackedUp, NoRecording, Recording, Alarm };

    struct Span
    {
        Kind kind = Kind::Nothing;
        vemo_base::TimeSpan time;

        bool operator==(const Span& other) const { return kind == other.kind && time == other.time; }
    };

    BackupAxis() = default;
    /// `curTime`: up to where the unfinished piece is fetched; invalid: not known.
    BackupAxis(const vemo_data::BackupTaskInfo& task, const QDateTime& curTime);

    const vemo_base::DayAxis& day() const { return m_day; }
    const QVector<Span>& segments() const { return m_segments; }
    const QVector<Span>& pieces() const { return m_pieces; }
    /// On the device, cut to the day; without a kind where only spans are known of it.
    const QList<vms_sdk::VideoRecording>& recordings() const { return m_recordings; }

    /// The topmost span at a time: a piece, else a segment, else a recording; Nothing where none lies.
    Span spanAt(qint64 ms) const;
    /// The alarm at a time, or Nothing.
    Span alarmAt(qint64 ms) const;
    /// All that spanAt() can answer, in order of time; for stepping through by keyboard.
    QVector<Span> steps() const;

    /// What differs from `other` is the end of one piece alone: the stretch between both ends. Otherwise its length is
    /// 0 when both show the same and -1 when more differs.
    vemo_base::TimeSpan progressSince(const BackupAxis& other) const;

private:
    vemo_base::DayAxis m_day;
    QVector<Span> m_segments;
    QVector<Span> m_pieces;
    QList<vms_sdk::VideoRecording> m_recordings;
};

} // namespace vemo_filesCenter
