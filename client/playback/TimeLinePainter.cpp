#include "TimeLinePainter.h"

#include <axis/AxisPainter.h>
#include <ThemeTokens.h>

#include <QDateTime>
#include <QPainter>

#include <cmath>

namespace vemo_client {

using vemo_base::AxisPainter;
using vemo_base::AxisRow;
using vemo_base::ThemeMode;
using vemo_base::TimeSpan;
using vemo_base::Token;

namespace {

constexpr int lineHeight = 4;
constexpr int captionPixels = 12;
constexpr int tickGap = 2;
constexpr int tick = 4;
constexpr int flagHeight = 20;
constexpr int flagPadding = 6;
constexpr double flagRadius = 4;
constexpr double markTint = 0.24;

QColor dark(Token token)
{
    return vemo_base::themeColor(ThemeMode::Dark, token);
}

} // namespace

TimeLinePainter::TimeLinePainter(QPainter* painter, const vemo_base::DayAxis& day, const TimeView& view,
                                 const QRect& axis, const QFont& font)
    : m_painter(painter)
    , m_day(day)
    , m_view(view)
    , m_axis(axis)
    , m_dayRect(dayRect(view, axis))
    , m_font(font)
    , m_ratio(painter->device()->devicePixelRatioF())
{}

QRect TimeLinePainter::dayRect(const TimeView& view, const QRect& axis)
{
    const double width = axis.width() / view.length();
    return QRect(axis.x() - int(std::lround(view.from() * width)), axis.y(), int(std::lround(width)), axis.height());
}

double TimeLinePainter::xOf(qint64 ms) const
{
    return m_axis.x() + m_view.placeOf(m_day.positionOf(ms)) * m_axis.width();
}

bool TimeLinePainter::isShown(double x) const
{
    return x >= m_axis.left() - 0.5 && x <= m_axis.right() + 1.5;
}

void TimeLinePainter::row(const QRect& rect, const Row& row) const
{
    m_painter->fillRect(rect, dark(Token::Axis));
    const auto fill = [this, &rect](const QVector<AxisRow::Run>& runs, int top, int height, Token token) {
        for (const AxisRow::Run& run : runs)
            m_painter->fillRect(QRectF(rect.x() + run.from / m_ratio, top, (run.to - run.from) / m_ratio, height),
                                dark(run.kind == AxisRow::Kind::Alarm ? Token::AxisAlarm : token));
    };
    const int upper = rect.height() - lineHeight;
    fill(row.chosen, rect.y(), upper, Token::AxisSegment);
    fill(row.owned, rect.y(), upper, Token::AxisBackedUp);
    fill(row.runs, rect.y() + upper, lineHeight, Token::AxisRecording);
}

void TimeLinePainter::name(const QRect& rect, const QString& text, bool isStrong) const
{
    QFont caption = m_font;
    caption.setPixelSize(captionPixels);
    if (isStrong)
        caption.setWeight(QFont::DemiBold);
    m_painter->setFont(caption);
    m_painter->setPen(dark(isStrong ? Token::Text : Token::Text2));
    m_painter->drawText(rect, int(Qt::AlignLeading | Qt::AlignVCenter),
                        m_painter->fontMetrics().elidedText(text, Qt::ElideRight, rect.width()));
}

void TimeLinePainter::words(const QRect& rect, const QString& text, bool isError) const
{
    QFont caption = m_font;
    caption.setPixelSize(captionPixels);
    m_painter->setFont(caption);
    m_painter->setPen(dark(isError ? Token::Error : Token::Text2));
    m_painter->drawText(rect, int(Qt::AlignLeading | Qt::AlignVCenter),
                        m_painter->fontMetrics().elidedText(text, Qt::ElideRight, rect.width()));
}

void TimeLinePainter::clock() const
{
    m_painter->save();
    m_painter->setClipRect(m_axis.adjusted(-4, -AxisPainter::caretRoom, 4, 0));
    AxisPainter::clockChanges(m_painter, m_day, m_dayRect, m_font);
    AxisPainter::now(m_painter, m_day, m_dayRect, QDateTime::currentMSecsSinceEpoch(), ThemeMode::Dark);
    m_painter->restore();
}

void TimeLinePainter::span(const TimeSpan& span) const
{
    const double begin = xOf(span.beginMs);
    const double end = xOf(span.endMs);
    const double from = qMax(double(m_axis.left()), qMin(begin, end));
    const double to = qMin(double(m_axis.right() + 1), qMax(begin, end));
    if (to < from)
        return;
    const QColor color = dark(Token::AccentText);
    QColor tint = color;
    tint.setAlphaF(markTint);
    m_painter->fillRect(QRectF(from, m_axis.top(), qMax(1.0, to - from), m_axis.height()), tint);
    m_painter->save();
    m_painter->setRenderHint(QPainter::Antialiasing);
    m_painter->setPen(Qt::NoPen);
    m_painter->setBrush(color);
    for (const double edge : {begin, end}) {
        if (!isShown(edge))
            continue;
        const double x = AxisPainter::snapped(edge, m_ratio);
        m_painter->fillRect(QRectF(x - 1, m_axis.top() - 4, 2, m_axis.height() + 4), color);
        m_painter->drawRoundedRect(QRectF(x - handle / 2.0, m_axis.top() - handle, handle, handle - 2), 3, 3);
    }
    m_painter->restore();
}

void TimeLinePainter::flag(double x, int top, const QString& text, const QColor& fill, const QColor& ink,
                           bool isStrong) const
{
    QFont font = m_font;
    font.setPixelSize(captionPixels);
    if (isStrong)
        font.setWeight(QFont::DemiBold);
    const int width = QFontMetrics(font).horizontalAdvance(text) + 2 * flagPadding;
    const double left = qBound(double(m_axis.left() - AxisPainter::halfLabel), x - width / 2.0,
                               double(m_axis.right() + AxisPainter::halfLabel - width));
    const QRectF box(left, top, width, flagHeight);
    m_painter->save();
    m_painter->setRenderHint(QPainter::Antialiasing);
    m_painter->setPen(Qt::NoPen);
    m_painter->setBrush(fill);
    m_painter->drawRoundedRect(box, flagRadius, flagRadius);
    m_painter->setFont(font);
    m_painter->setPen(ink);
    m_painter->drawText(box, Qt::AlignCenter, text);
    m_painter->restore();
}

void TimeLinePainter::pointer(int x, const QString& text) const
{
    m_painter->fillRect(QRectF(AxisPainter::snapped(x, m_ratio), m_axis.top(), 1 / m_ratio, m_axis.height()),
                        dark(Token::Text2));
    flag(x, m_axis.bottom() + tickGap + tick, text, dark(Token::Overlay), dark(Token::Text), false);
}

void TimeLinePainter::cursor(qint64 ms, const QString& text) const
{
    const double x = AxisPainter::snapped(xOf(ms), m_ratio);
    if (!isShown(x))
        return;
    const QColor color = dark(Token::Text);
    m_painter->fillRect(QRectF(x - 1, m_axis.top() - 6, 2, m_axis.height() + 6), color);
    flag(x, m_axis.top() - topRoom + 4, text, color, dark(Token::Well), true);
}

void TimeLinePainter::scale() const
{
    m_painter->setFont(AxisPainter::labelFont(m_font));
    const QVector<TimeView::Mark> marks = m_view.marks(m_axis.width());
    const int top = m_axis.bottom() + 1 + tickGap;
    for (const TimeView::Mark& mark : marks) {
        const double x = AxisPainter::snapped(m_axis.x() + m_view.placeOf(mark.position) * m_axis.width(), m_ratio);
        m_painter->fillRect(QRectF(x, top, 1, mark.text.isEmpty() ? tick / 2 : tick), dark(Token::Control));
        if (mark.text.isEmpty())
            continue;
        m_painter->setPen(dark(Token::Text2));
        m_painter->drawText(QRectF(x - 3 * AxisPainter::halfLabel, top + tick, 6 * AxisPainter::halfLabel,
                                   scaleRoom - tick - tickGap - 4),
                            Qt::AlignCenter, mark.text);
    }
}

} // namespace vemo_client
