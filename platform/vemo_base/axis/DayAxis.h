#pragma once

#include "vemo_base_global.h"

#include <QDate>
#include <QTimeZone>
#include <QVector>

namespace vemo_base {

/// The geometry of a day on a time axis: wall-clock time from 0 to 24 hours, whatever the clock does. A value without
/// pixels or painters; any thread. Positions are fractions of the axis, 0 to 1; times are ms since 1970 UTC.
///
/// When clocks go forward an hour of the axis has no time (missing()); when they go back an hour of it stands for two
/// (doubled()), and what happened in either is drawn there.
class VEMO_BASE_EXPORT DayAxis final
{
public:
    /// A stretch of the axis.
    struct Piece
    {
        double from = 0;
        double to = 0;
    };
    /// Which of the two times a position in a doubled hour means.
    enum class Pass : int { Unknown = 0, First, Last };

    DayAxis() = default;
    DayAxis(const QDate& day, const QTimeZone& zone);

    bool isValid() const { return !m_stretches.isEmpty(); }
    const QDate& day() const { return m_day; }
    qint64 beginMs() const;
    qint64 endMs() const;
    qint64 lengthMs() const { return endMs() - beginMs(); } ///< 23, 24 or 25 hours

    /// Of a time before or behind the day: 0 or 1.
    double positionOf(qint64 utcMs) const;
    /// In a missing hour: when the clock was set.
    qint64 timeAt(double position, Pass pass) const;
    /// Where a stretch of time lies, cut to the day; two pieces or more when the clock was set in it.
    QVector<Piece> pieces(qint64 beginMs, qint64 endMs) const;

    QVector<Piece> missing() const;
    QVector<Piece> doubled() const;
    /// Offsets from UTC in ms before and behind the first change of the clock; equal on other days.
    int firstOffsetMs() const;
    int lastOffsetMs() const;

    /// Hours from one label to the next, so that they don't touch: 1 while an hour has 24 px, then 2, 3, 6.
    static int labelStep(double pixelsAnHour);

private:
    /// Between two changes of the clock.
    struct Stretch
    {
        qint64 beginMs = 0;
        qint64 endMs = 0;
        int offsetMs = 0;
    };

    double wallOf(const Stretch& stretch, qint64 utcMs) const;

    QDate m_day;
    qint64 m_wallMidnightMs = 0; ///< the day's 0:00, read as if it were UTC
    QVector<Stretch> m_stretches;
};

} // namespace vemo_base
