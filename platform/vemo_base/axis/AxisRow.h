#pragma once

#include "DayAxis.h"
#include "TimeSpan.h"

#include <VmsTypes.h>

#include <QList>
#include <QSet>
#include <QVector>

namespace vemo_base {

/// A channel's day laid on the device pixels of an axis: as many runs of one kind as can be seen, however many
/// recordings there are. A value, no painter.
class VEMO_BASE_EXPORT AxisRow final
{
public:
    enum class Kind : quint8 { Nothing = 0, Recording = 1, Alarm = 2 };

    struct Run
    {
        int from = 0; ///< device pixels, `to` not included
        int to = 0;
        Kind kind = Kind::Nothing;
    };

    /// A piece of the day, found once, drawn often.
    struct Stretch
    {
        DayAxis::Piece piece;
        Kind kind = Kind::Nothing;
    };

    static QVector<Stretch> stretches(const DayAxis& axis, const QList<vms_sdk::VideoRecording>& recordings);
    /// The chosen ones alone, by their indices, as Recording.
    static QVector<Stretch> chosenStretches(const DayAxis& axis, const QList<vms_sdk::VideoRecording>& recordings,
                                            const QSet<int>& chosen);
    /// Spans of any kind, as Recording.
    static QVector<Stretch> spanStretches(const DayAxis& axis, const QVector<TimeSpan>& spans);

    /// The kinds' runs without those of Nothing; an alarm wins, and no alarm is narrower than `leastAlarm` pixels.
    /// `view` is the part of the day that the pixels show.
    static QVector<Run> runs(const QVector<Stretch>& stretches, int pixels, int leastAlarm, const DayAxis::Piece& view);
    /// Of the whole day.
    static QVector<Run> runs(const DayAxis& axis, const QList<vms_sdk::VideoRecording>& recordings, int pixels,
                             int leastAlarm);

    /// The recording at a time, -1: none. An alarm wins over the recording that it lies in.
    static int recordingAt(const QList<vms_sdk::VideoRecording>& recordings, qint64 ms);
    /// What lies between the recordings around a time that none of them holds, within the axis.
    static void gapAt(const DayAxis& axis, const QList<vms_sdk::VideoRecording>& recordings, qint64 ms, qint64* beginMs,
                      qint64* endMs);
    /// Time of the axis that recordings cover, what overlaps counted once.
    static qint64 coveredMs(const DayAxis& axis, const QList<vms_sdk::VideoRecording>& recordings);
};

} // namespace vemo_base
