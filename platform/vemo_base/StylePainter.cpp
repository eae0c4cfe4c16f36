#include "StylePainter.h"

#include "Theme.h"

#include <QPainter>
#include <QPainterPath>
#include <QPalette>

namespace vemo_base {

namespace {

constexpr double ringWidth = 2.0;
constexpr double controlRadius = 6.0;
constexpr double panelRadius = 8.0;
constexpr double checkRadius = 4.0;
constexpr double checkOutline = 1.5;
constexpr int darkBelow = 128;

void tick(QPainter* painter, const QRectF& rect)
{
    QPainterPath path;
    path.moveTo(rect.left() + rect.width() * 0.27, rect.top() + rect.height() * 0.52);
    path.lineTo(rect.left() + rect.width() * 0.44, rect.top() + rect.height() * 0.69);
    path.lineTo(rect.left() + rect.width() * 0.74, rect.top() + rect.height() * 0.34);
    painter->drawPath(path);
}

} // namespace

ThemeMode StylePainter::modeOf(const QPalette& palette)
{
    return palette.color(QPalette::Window).lightness() < darkBelow ? ThemeMode::Dark : ThemeMode::Light;
}

void StylePainter::box(QPainter* painter, const QRectF& rect, double radius, const QColor& fill, const QColor& outline,
                       double outlineWidth)
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(fill.isValid() ? QBrush(fill) : QBrush(Qt::NoBrush));
    if (outline.isValid()) {
        painter->setPen(QPen(outline, outlineWidth));
        const double half = outlineWidth / 2;
        painter->drawRoundedRect(rect.adjusted(half, half, -half, -half), radius - half, radius - half);
    } else {
        painter->setPen(Qt::NoPen);
        painter->drawRoundedRect(rect, radius, radius);
    }
    painter->restore();
}

void StylePainter::hairline(QPainter* painter, const QRectF& rect, Qt::Edge edge, ThemeMode mode)
{
    const double thickness = 1.0 / painter->device()->devicePixelRatioF();
    QRectF line = rect;
    switch (edge) {
    case Qt::TopEdge:
        line.setHeight(thickness);
        break;
    case Qt::BottomEdge:
        line.setTop(rect.bottom() - thickness);
        break;
    case Qt::LeftEdge:
        line.setWidth(thickness);
        break;
    case Qt::RightEdge:
        line.setLeft(rect.right() - thickness);
        break;
    }
    painter->fillRect(line, themeColor(mode, Token::Border));
}

void StylePainter::panelCorner(QPainter* painter, const QRectF& panel, Qt::Corner corner, const QPalette& palette)
{
    QRectF square(panel.topLeft(), QSizeF(panelRadius, panelRadius));
    if (corner == Qt::TopRightCorner || corner == Qt::BottomRightCorner)
        square.moveRight(panel.right());
    if (corner == Qt::BottomLeftCorner || corner == Qt::BottomRightCorner)
        square.moveBottom(panel.bottom());
    QPainterPath outside;
    outside.addRect(square);
    QPainterPath inside;
    inside.addRoundedRect(panel, panelRadius, panelRadius);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setClipRect(square, Qt::IntersectClip);
    painter->fillPath(outside.subtracted(inside), palette.color(QPalette::Window));
    box(painter, panel, panelRadius, QColor(), themeColor(modeOf(palette), Token::Border));
    painter->restore();
}

void StylePainter::focusRing(QPainter* painter, const QRectF& rect, double radius, ThemeMode mode)
{
    box(painter, rect, radius, QColor(), themeColor(mode, Token::Focus), ringWidth);
}

void StylePainter::focusRingInside(QPainter* painter, const QRectF& rect, double radius)
{
    box(painter, rect, radius, QColor(), Theme::instance().color(Token::Focus), ringWidth);
}

void StylePainter::checkBox(QPainter* painter, const QRect& rect, QStyle::State state, ThemeMode mode)
{
    const bool enabled = state & QStyle::State_Enabled;
    const bool marked = state & (QStyle::State_On | QStyle::State_NoChange);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (!marked) {
        const Token outline = !enabled                          ? Token::Border
                              : state & QStyle::State_MouseOver ? Token::AccentText
                                                                : Token::Control;
        box(painter, rect, checkRadius, themeColor(mode, Token::Field), themeColor(mode, outline), checkOutline);
    } else {
        if (!enabled)
            painter->setOpacity(0.5);
        const Token fill = state & QStyle::State_MouseOver && enabled ? Token::AccentHover : Token::Accent;
        const Token outline = mode == ThemeMode::Dark ? Token::AccentText : fill;
        box(painter, rect, checkRadius, themeColor(mode, fill), themeColor(mode, outline), 1.0);
        painter->setPen(QPen(themeColor(mode, Token::OnAccent), 1.75, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter->setBrush(Qt::NoBrush);
        if (state & QStyle::State_On)
            tick(painter, rect);
        else
            painter->drawLine(QPointF(rect.left() + rect.width() * 0.28, rect.top() + rect.height() / 2.0),
                              QPointF(rect.left() + rect.width() * 0.72, rect.top() + rect.height() / 2.0));
    }
    painter->restore();
}

void StylePainter::pushButton(QPainter* painter, const QRect& rect, QStyle::State state, ButtonKind kind,
                              ThemeMode mode)
{
    const bool enabled = state & QStyle::State_Enabled;
    const bool down = enabled && state & (QStyle::State_Sunken | QStyle::State_On);
    const bool hover = enabled && !down && state & QStyle::State_MouseOver;
    const auto color = [mode](Token token) { return themeColor(mode, token); };

    switch (kind) {
    case ButtonKind::Primary: {
        const Token fill = !enabled ? Token::Track
                           : down   ? Token::AccentPress
                           : hover  ? Token::AccentHover
                                    : Token::Accent;
        box(painter, rect, controlRadius, color(fill), QColor());
        return;
    }
    case ButtonKind::Danger: {
        QColor fill = color(enabled ? Token::ErrorFill : Token::Track);
        if (down)
            fill = fill.darker(125);
        else if (hover)
            fill = fill.darker(110);
        box(painter, rect, controlRadius, fill, QColor());
        return;
    }
    case ButtonKind::Quiet:
        if (down || hover)
            box(painter, rect, controlRadius, color(down ? Token::Press : Token::Hover), QColor());
        return;
    case ButtonKind::Secondary:
    case ButtonKind::Unknown:
        break;
    }
    const QColor fill = down ? color(Token::Press) : hover ? color(Token::Hover) : QColor();
    box(painter, rect, controlRadius, fill, color(enabled ? Token::Control : Token::Border));
}

QColor StylePainter::pushButtonText(QStyle::State state, ButtonKind kind, ThemeMode mode)
{
    if (!(state & QStyle::State_Enabled))
        return themeColor(mode, Token::Text3);
    const bool filled = kind == ButtonKind::Primary || kind == ButtonKind::Danger;
    return themeColor(mode, filled ? Token::OnAccent : Token::Text);
}

void StylePainter::field(QPainter* painter, const QRect& rect, QStyle::State state, bool invalid, ThemeMode mode)
{
    Token outline = Token::Control;
    if (!(state & QStyle::State_Enabled))
        outline = Token::Border;
    else if (invalid)
        outline = Token::Error;
    else if (state & QStyle::State_MouseOver)
        outline = Token::AccentText;
    box(painter, rect, controlRadius, themeColor(mode, Token::Field), themeColor(mode, outline));
}

void StylePainter::progress(QPainter* painter, const QRectF& groove, double fraction, const QColor& track,
                            const QColor& bar)
{
    const double radius = groove.height() / 2;
    box(painter, groove, radius, track, QColor());
    if (fraction <= 0)
        return;
    QRectF done = groove;
    done.setWidth(qBound(groove.height(), groove.width() * fraction, groove.width()));
    box(painter, done, radius, bar, QColor());
}

} // namespace vemo_base
