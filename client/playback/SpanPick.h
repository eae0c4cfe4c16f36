#pragma once

#include <axis/DayAxis.h>
#include <axis/TimeSpan.h>

#include <optional>

namespace vemo_client {

/// How a person marks a span on a time axis with the mouse: pressing on empty ground begins a new one, pressing near an
/// edge of the marked one takes that edge along, also past the other edge. Whole seconds. In a doubled hour the begin
/// means the first pass and the end the last one, so that the span holds all that is drawn below it. Positions are
/// those of the DayAxis; no widget, no painter.
class SpanPick final
{
public:
    void setAxis(const vemo_base::DayAxis& axis);
    void setSpan(const std::optional<vemo_base::TimeSpan>& span) { m_span = span; }
    const std::optional<vemo_base::TimeSpan>& span() const { return m_span; }
    bool isDragging() const { return m_anchor.has_value(); }

    /// Whether an edge of the marked span lies within `reach` of the position.
    bool isOnEdge(double position, double reach) const;

    void press(double position, double reach);
    void move(double position);
    /// Ends the drag; a press without a way changes nothing.
    void release();
    /// As if the drag had never begun.
    void cancel();

private:
    vemo_base::DayAxis m_axis;
    std::optional<vemo_base::TimeSpan> m_span;
    std::optional<vemo_base::TimeSpan> m_spanBefore;
    std::optional<double> m_anchor; ///< the edge that stays
};

} // namespace vemo_client
