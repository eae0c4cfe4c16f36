#pragma once

#include "DayAxis.h"
#include "ThemeTokens.h"
#include "vemo_base_global.h"

#include <QRect>

class QFont;
class QPainter;

namespace vemo_base {

/// What all day axes of the client draw alike. `axis` is the axis' ground in the painter's coordinates; what lies on it
/// has the dark theme's colours always, what lies above or below takes those of `around`. Edges are snapped to device
/// pixels. Nothing here is kept; GUI thread.
class VEMO_BASE_EXPORT AxisPainter final
{
public:
    AxisPainter() = delete;

    /// Room that the now-caret takes above the axis, and hours() below.
    static constexpr int caretRoom = 7;
    static constexpr int hoursRoom = 22;
    /// A label at either end stands over the end of the axis by so much.
    static constexpr int halfLabel = 12;

    static double snapped(double value, double ratio);
    /// A piece of the day as a rectangle of the axis' height, at least one device pixel wide.
    static QRectF rectOf(const DayAxis::Piece& piece, const QRectF& axis, double ratio);

    /// Hatches the hour that clocks skip, marks the one that passes twice with "x2".
    static void clockChanges(QPainter* painter, const DayAxis& day, const QRect& axis, const QFont& font);
    /// The line of now and its caret; nothing when now is another day.
    static void now(QPainter* painter, const DayAxis& day, const QRect& axis, qint64 nowMs, ThemeMode around);
    /// A tick an hour.
    static void ticks(QPainter* painter, const QRect& axis, ThemeMode around);
    /// Ticks, and the labels "0" to "24" centred on their hours, fewer where they would touch.
    static void hours(QPainter* painter, const QRect& axis, const QFont& font, ThemeMode around);

    static QFont labelFont(const QFont& font);
    /// The room of an hour's label, and whether it has any.
    static QRectF labelRect(const QRect& axis, int hour, double ratio);
    static bool hasLabel(const QRect& axis, int hour);
};

} // namespace vemo_base
