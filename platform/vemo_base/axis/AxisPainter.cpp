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

QFont labelFont(const QFont& font)
{
    QFont small = font;
    small.setPixelSize(labelPixels);
    return small;
}

} // namespace

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

void AxisPainter::hours(QPainter* painter, const QRect& axis, const QFont& font, ThemeMode around)
{
    const double ratio = painter->device()->devicePixelRatioF();
    const int top = axis.bottom() + 1 + tickGap;
    const int labelEvery = DayAxis::labelStep(double(axis.width()) / hoursADay);
    painter->setFont(labelFont(font));
    painter->setPen(themeColor(around, Token::Text2));
    const QColor tickColor = themeColor(around, Token::Control);
    for (int hour = 0; hour <= hoursADay; ++hour) {
        const double x = snapped(axis.x() + double(hour) / hoursADay * axis.width(), ratio);
        painter->fillRect(QRectF(x, top, 1, tick), tickColor);
        if (hour % labelEvery != 0)
            continue;
        painter->drawText(QRectF(x - 2 * halfLabel, top + tick, 4 * halfLabel, labelHeight), Qt::AlignCenter,
                          QString::number(hour));
    }
}

} // namespace vemo_base
