#pragma once

#include "DayAxis.h"
#include "TimeSpan.h"
#include "vemo_base_global.h"

#include <QColor>
#include <QDate>
#include <QString>

namespace vemo_base {

/// Spans and lengths of time as the pages write them, in the local zone. Plain functions.
class VEMO_BASE_EXPORT SpanWords final
{
public:
    SpanWords() = delete;

    /// "13:00:00", and "24:00:00" for the end of the day.
    static QString clock(qint64 ms, const QDate& day);
    /// "13:00:00 To 15:24:10"
    static QString span(const TimeSpan& span, const QDate& day);
    /// "2 h 15 min", "4 min 10 s", "45 s"
    static QString length(qint64 ms);
    /// "5 h 12 min of 8 h"; nothing is told in the unit of the whole: "0 h of 8 h".
    static QString share(qint64 partMs, qint64 wholeMs);
    static QString recordings(int count); ///< "1 recording", "12 recordings"
    static QString channels(int count);
    /// "UTC+01:00"
    static QString offset(int offsetMs);
    /// About an hour that clocks skip or pass twice, when the position lies in one; else empty.
    static QString clockNote(const DayAxis& axis, double position);
    /// A line of a hover card: a swatch and words, as rich text on one line.
    static QString swatchLine(const QColor& swatch, const QString& words);
};

} // namespace vemo_base
