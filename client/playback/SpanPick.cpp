#include "SpanPick.h"

#include <QtGlobal>

namespace vemo_client {

using vemo_base::DayAxis;
using vemo_base::TimeSpan;

namespace {

constexpr qint64 secondMs = 1000;

qint64 wholeSecond(qint64 ms)
{
    return (ms + secondMs / 2) / secondMs * secondMs;
}

} // namespace

void SpanPick::setAxis(const DayAxis& axis)
{
    m_axis = axis;
    m_span.reset();
    m_anchor.reset();
}

bool SpanPick::isOnEdge(double position, double reach) const
{
    return m_span && (qAbs(position - m_axis.positionOf(m_span->beginMs)) <= reach ||
                      qAbs(position - m_axis.positionOf(m_span->endMs)) <= reach);
}

void SpanPick::press(double position, double reach)
{
    m_spanBefore = m_span;
    m_anchor = position;
    if (!isOnEdge(position, reach))
        return;
    const double begin = m_axis.positionOf(m_span->beginMs);
    const double end = m_axis.positionOf(m_span->endMs);
    m_anchor = qAbs(position - begin) < qAbs(position - end) ? end : begin;
}

void SpanPick::move(double position)
{
    if (!m_anchor || !m_axis.isValid())
        return;
    TimeSpan span;
    span.beginMs = wholeSecond(m_axis.timeAt(qMin(*m_anchor, position), DayAxis::Pass::First));
    span.endMs = wholeSecond(m_axis.timeAt(qMax(*m_anchor, position), DayAxis::Pass::Last));
    span.beginMs = qMax(span.beginMs, m_axis.beginMs());
    span.endMs = qBound(span.beginMs + secondMs, span.endMs, m_axis.endMs());
    m_span = span;
}

void SpanPick::release()
{
    m_anchor.reset();
}

void SpanPick::cancel()
{
    if (!m_anchor)
        return;
    m_span = m_spanBefore;
    m_anchor.reset();
}

} // namespace vemo_client
