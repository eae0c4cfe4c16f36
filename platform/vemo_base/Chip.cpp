#include "Chip.h"

#include "Icons.h"
#include "StylePainter.h"

#include <QPainter>

namespace vemo_base {

namespace {

constexpr int pillHeight = 22;
constexpr int iconSize = 14;
constexpr int iconGap = 5;
constexpr int padding = 9;
constexpr int fontPixels = 12;
constexpr double tint = 0.10;
constexpr double outlineShare = 0.45;

QFont chipFont(QFont font)
{
    font.setPixelSize(fontPixels);
    return font;
}

int iconRoom(const QString& iconName)
{
    return iconName.isEmpty() ? 0 : iconSize + iconGap;
}

QColor shareOf(QColor color, double share)
{
    color.setAlphaF(share);
    return color;
}

} // namespace

Chip::Chip(QWidget* parent)
    : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
}

void Chip::setState(const QString& iconName, const QString& text, Token tone)
{
    m_iconName = iconName;
    m_text = text;
    m_tone = tone;
    setAccessibleName(text);
    updateGeometry();
    update();
}

QSize Chip::sizeHint() const
{
    return {widthOf(m_iconName, m_text, font()), pillHeight};
}

int Chip::widthOf(const QString& iconName, const QString& text, const QFont& font)
{
    return 2 * padding + iconRoom(iconName) + QFontMetrics(chipFont(font)).horizontalAdvance(text);
}

void Chip::paint(QPainter* painter, const QRect& room, const QString& iconName, const QString& text, Token tone,
                 Ground ground, const QFont& font, const QPalette& palette)
{
    const QFont words = chipFont(font);
    const QFontMetrics metrics(words);
    const int fixed = 2 * padding + iconRoom(iconName);
    const QString shown = metrics.elidedText(text, Qt::ElideRight, qMax(0, room.width() - fixed));
    const int width = fixed + metrics.horizontalAdvance(shown);
    const QRect pill(room.x() + (room.width() - width) / 2, room.y() + (room.height() - pillHeight) / 2, width,
                     pillHeight);
    const Qt::LayoutDirection direction = painter->layoutDirection();
    const QColor color = themeColor(StylePainter::modeOf(palette), tone);

    painter->save();
    StylePainter::box(painter, pill, pillHeight / 2.0, ground == Ground::Tinted ? shareOf(color, tint) : QColor(),
                      shareOf(color, outlineShare));
    if (!iconName.isEmpty()) {
        const QRect icon(pill.x() + padding, pill.y() + (pillHeight - iconSize) / 2, iconSize, iconSize);
        const QPixmap shape = Icons::pixmap(iconName, iconSize, color, painter->device()->devicePixelRatioF());
        painter->drawPixmap(QStyle::visualRect(direction, pill, icon), shape);
    }
    painter->setFont(words);
    painter->setPen(color);
    const QRect wordRoom = pill.adjusted(padding + iconRoom(iconName), 0, 0, 0);
    painter->drawText(QStyle::visualRect(direction, pill, wordRoom.adjusted(0, 0, -padding, 0)),
                      Qt::AlignCenter | Qt::TextSingleLine, shown);
    painter->restore();
}

void Chip::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    paint(&painter, rect(), m_iconName, m_text, m_tone, Ground::Tinted, font(), palette());
}

} // namespace vemo_base
