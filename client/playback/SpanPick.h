#pragma once

#include "DayAxis.h"

#include <optional>

namespace vemo_client {

/// A stretch of time in ms since 1970 UTC.
struct TimeSpan
{
    qint64 beginMs = 0;
    qint64 endMs = 0;

    qint64 lengthMs() const { return endMs - beginMs; }
    bool operator==(const TimeSpan& other) const { return beginMs == other.beginMs && endMs == other.endMs; }
    bool operator!=(const TimeSpan& other) const { return !(*this == other); }
};

/// How a person marks a span on a time axis with the mouse: pressing on empty ground begins a new one, pressing near an
/// edge of the marked one takes that edge along, also past the other edge. Whole seconds. In a doubled hour the begin
/// means the first pass and the end the last one, so that the span holds all that is drawn below it. Positions are
/// those of the DayAxis; no widget, no painter.
class SpanPick final
{
public:
    void setAxis(const DayAxis& axis);
    void setSpan(const std::optional<TimeSpan>& span) { m_span = span; }
    const std::optional<TimeSpan>& span() const { return m_span; }
    bool isDragging() const { return m_anchor.has_value(); }

    /// Whether an edge of the marked span lies within `reach` of the position.
    bool isOnEdge(double position, double reach) const;

    void press(double position, double reach);
    void move(double position);
    /// Ends the drag. A press without a way takes the mark away.
    void release();
    /// As if the drag had never begun.
    void cancel();

private:
    DayAxis m_axis;
    std::optional<TimeSpan> m_span;
    std::optional<TimeSpan> m_spanBefore;
    std::optional<double> m_anchor; ///< the edge that stays
    bool m_takesEdge = false;
    bool m_moved = false;
};

} // namespace vemo_client
