#include "AxisPainter.h"

#include <QFont>
#include <QPainter>
#include <QPolygonF>

#include <cmath>

namespace vemo_base {

namespace {

constexpr int labelPixels = 11;
constexpr int labelHeight = 16;
constexpr int tickGap = 2;
constexpr int tick = 4;
constexpr int hoursADay = 24;

int ticksTop(const QRect& axis)
{
    return axis.bottom() + 1 + tickGap;
}

double hourX(const QRect& axis, int hour, double ratio)
{
    return AxisPainter::snapped(axis.x() + double(hour) / hoursADay * axis.width(), ratio);
}

} // namespace

QFont AxisPainter::labelFont(const QFont& font)
{
    QFont small = font;
    small.setPixelSize(labelPixels);
    return small;
}

QRectF AxisPainter::labelRect(const QRect& axis, int hour, double ratio)
{
    return {hourX(axis, hour, ratio) - 2 * halfLabel, double(ticksTop(axis) + tick), 4 * halfLabel, labelHeight};
}

bool AxisPainter::hasLabel(const QRect& axis, int hour)
{
    return hour % DayAxis::labelStep(double(axis.width()) / hoursADay) == 0;
}

double AxisPainter::snapped(double value, double ratio)
{
    return std::round(value * ratio) / ratio;
}

QRectF AxisPainter::rectOf(const DayAxis::Piece& piece, const QRectF& axis, double ratio)
{
    const double from = snapped(axis.x() + piece.from * axis.width(), ratio);
    const double to = snapped(axis.x() + piece.to * axis.width(), ratio);
    return QRectF(from, axis.y(), qMax(to - from, 1 / ratio), axis.height());
}

void AxisPainter::clockChanges(QPainter* painter, const DayAxis& day, const QRect& axis, const QFont& font)
{
    const double ratio = painter->device()->devicePixelRatioF();
    for (const DayAxis::Piece& piece : day.missing())
        painter->fillRect(rectOf(piece, axis, ratio),
                          QBrush(themeColor(ThemeMode::Dark, Token::Control), Qt::BDiagPattern));
    painter->setFont(labelFont(font));
    painter->setPen(themeColor(ThemeMode::Dark, Token::Text));
    for (const DayAxis::Piece& piece : day.doubled())
        painter->drawText(rectOf(piece, axis, ratio).adjusted(0, 1, 0, 0), int(Qt::AlignHCenter | Qt::AlignTop),
                          QStringLiteral("x2"));
}

void AxisPainter::now(QPainter* painter, const DayAxis& day, const QRect& axis, qint64 nowMs, ThemeMode around)
{
    if (!day.isValid() || nowMs < day.beginMs() || nowMs >= day.endMs())
        return;
    const double ratio = painter->device()->devicePixelRatioF();
    const double x = snapped(axis.x() + day.positionOf(nowMs) * axis.width(), ratio);
    painter->fillRect(QRectF(x, axis.y(), 1, axis.height()), themeColor(ThemeMode::Dark, Token::Text));
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(themeColor(around, Token::Text));
    painter->drawPolygon(QPolygonF(
        {QPointF(x - 3.5, axis.top() - 6), QPointF(x + 4.5, axis.top() - 6), QPointF(x + 0.5, axis.top() - 1)}));
    painter->restore();
}

void AxisPainter::ticks(QPainter* painter, const QRect& axis, ThemeMode around)
{
    const double ratio = painter->device()->devicePixelRatioF();
    for (int hour = 0; hour <= hoursADay; ++hour)
        painter->fillRect(QRectF(hourX(axis, hour, ratio), ticksTop(axis), 1, tick),
                          themeColor(around, Token::Control));
}

void AxisPainter::hours(QPainter* painter, const QRect& axis, const QFont& font, ThemeMode around)
{
    ticks(painter, axis, around);
    painter->setFont(labelFont(font));
    painter->setPen(themeColor(around, Token::Text2));
    for (int hour = 0; hour <= hoursADay; ++hour) {
        if (hasLabel(axis, hour))
            painter->drawText(labelRect(axis, hour, painter->device()->devicePixelRatioF()), Qt::AlignCenter,
                              QString::number(hour));
    }
}

} // namespace vemo_base
