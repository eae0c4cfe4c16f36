#include "TilePainter.h"

#include <Icons.h>
#include <StylePainter.h>
#include <Theme.h>

#include <QPainter>

namespace vemo_client {

using vemo_base::StylePainter;
using vemo_base::ThemeMode;
using vemo_base::Token;

namespace {

constexpr int ringWidth = 2;
constexpr int textMargin = 12;
constexpr int textTop = 8;
constexpr int smallPixels = 12;
constexpr int strongPixels = 13;
constexpr int badgeHeight = 22;
constexpr int badgePadding = 10;
constexpr int badgeDot = 8;
constexpr int badgeTop = 8;
constexpr int barGap = 6;
constexpr int messageWidth = 420;
constexpr int messageIcon = 36;
constexpr int iconGap = 12;
constexpr int buttonGap = 16;
constexpr int busyRing = 24;
constexpr int busyDegrees = 100;
constexpr int noteHeight = 28;
constexpr int groundAlpha = 204; // 80 %
constexpr int dropAlpha = 61;    // 24 %
constexpr double tileRadius = 4;
constexpr double noteRadius = 6;

QColor dark(Token token)
{
    return vemo_base::themeColor(ThemeMode::Dark, token);
}

QColor ground()
{
    QColor color = dark(Token::Well);
    color.setAlpha(groundAlpha);
    return color;
}

/// Readable on any footage.
void drawShadowed(QPainter* painter, const QRect& rect, int flags, const QString& text)
{
    painter->setPen(ground());
    for (const QPoint& offset : {QPoint(1, 1), QPoint(-1, 1), QPoint(0, 2), QPoint(0, -1)})
        painter->drawText(rect.translated(offset), flags, text);
    painter->setPen(dark(Token::OnAccent));
    painter->drawText(rect, flags, text);
}

} // namespace

QFont TilePainter::strongFont() const
{
    QFont font = m_font;
    font.setPixelSize(strongPixels);
    font.setWeight(QFont::DemiBold);
    return font;
}

QFont TilePainter::smallFont() const
{
    QFont font = m_font;
    font.setPixelSize(smallPixels);
    return font;
}

QRect TilePainter::mirrored(const QRect& rect) const
{
    return m_face.isMirrored ? QStyle::visualRect(Qt::RightToLeft, m_tile, rect) : rect;
}

QRect TilePainter::videoRect() const
{
    return m_tile.adjusted(ringWidth, ringWidth, -ringWidth, -ringWidth);
}

QRect TilePainter::pictureRect() const
{
    const QRect room = videoRect();
    const QSize shape = m_face.shape.isEmpty() ? m_face.picture.image.size() : m_face.shape;
    if (shape.isEmpty() || room.isEmpty())
        return room;
    const QSize size = shape.scaled(room.size(), Qt::KeepAspectRatio);
    return {room.x() + (room.width() - size.width()) / 2, room.y() + (room.height() - size.height()) / 2, size.width(),
            size.height()};
}

QRect TilePainter::textRect() const
{
    const bool onPicture = m_face.state != TileFace::State::Message && !m_face.picture.isNull();
    return (onPicture ? pictureRect() : videoRect()).adjusted(textMargin, textTop, -textMargin, -textTop);
}

QRect TilePainter::formatRect() const
{
    if (m_face.formatText.isEmpty() || m_face.state == TileFace::State::Message)
        return {};
    const QFontMetrics metrics(smallFont());
    const QRect room = textRect();
    const int clock = m_face.clockText.isEmpty() ? 0 : metrics.horizontalAdvance(m_face.clockText) + 2 * textMargin;
    const int width = metrics.horizontalAdvance(m_face.formatText) + 1;
    if (width > room.width() - clock)
        return {}; // the clock is worth more
    return mirrored({room.right() + 1 - width, room.bottom() + 1 - metrics.height(), width, metrics.height()});
}

QRect TilePainter::badgeRect() const
{
    if (m_face.recordingText.isEmpty())
        return {};
    const QRect room = textRect();
    const int width =
        QFontMetrics(smallFont()).horizontalAdvance(m_face.recordingText) + 2 * badgePadding + badgeDot + 6;
    return mirrored({room.right() + 5 - width, room.top() + badgeTop - textTop, width, badgeHeight});
}

QRect TilePainter::barRect(const QSize& bar) const
{
    const QRect room = textRect();
    QRect place(room.right() + 5 - bar.width(), room.top() + badgeTop - textTop - 3, bar.width(), bar.height());
    const QRect badge = mirrored(badgeRect());
    if (!badge.isEmpty()) {
        place.moveRight(badge.left() - barGap);
        if (place.left() < m_tile.left() + textMargin)
            place.moveTopRight({badge.right(), badge.bottom() + barGap});
    }
    return mirrored(place);
}

QRect TilePainter::messageRect() const
{
    const QRect room = videoRect().adjusted(textMargin, 0, -textMargin, 0);
    const QRect words = QFontMetrics(m_font).boundingRect({0, 0, qMin(messageWidth, qMax(1, room.width())), 10'000},
                                                          Qt::AlignHCenter | Qt::TextWordWrap, m_face.stateText);
    const int icon = m_face.state == TileFace::State::Busy ? busyRing + iconGap
                     : m_face.stateIcon.isEmpty()          ? 0
                                                           : messageIcon + iconGap;
    QRect all(0, 0, qMin(messageWidth, room.width()), words.height() + icon);
    all.moveCenter(room.center());
    return all;
}

QRect TilePainter::ringRect() const
{
    const QRect message = messageRect();
    return {message.center().x() - busyRing / 2, message.top(), busyRing, busyRing};
}

QRect TilePainter::buttonRect(const QSize& button) const
{
    const QRect message = messageRect();
    return {message.center().x() - button.width() / 2, message.bottom() + buttonGap, button.width(), button.height()};
}

void TilePainter::paintTexts(QPainter* painter) const
{
    const QRect room = textRect();
    const int leading = m_face.isMirrored ? Qt::AlignRight : Qt::AlignLeft;
    painter->setFont(strongFont());
    const int badge = m_face.recordingText.isEmpty() ? 0 : badgeRect().width() + barGap;
    drawShadowed(painter, room, leading | Qt::AlignTop,
                 painter->fontMetrics().elidedText(m_face.title, Qt::ElideRight, qMax(0, room.width() - badge)));
    if (m_face.state == TileFace::State::Message)
        return;
    painter->setFont(smallFont());
    drawShadowed(painter, room, leading | Qt::AlignBottom,
                 painter->fontMetrics().elidedText(m_face.clockText, Qt::ElideRight, room.width()));
    const QRect format = formatRect();
    if (!format.isEmpty())
        drawShadowed(painter, format, Qt::AlignCenter, m_face.formatText);
}

void TilePainter::paintBadge(QPainter* painter) const
{
    const QRect badge = badgeRect();
    StylePainter::box(painter, badge, badge.height() / 2.0, ground(), Qt::transparent, 0);
    painter->setPen(Qt::NoPen);
    painter->setBrush(dark(Token::AxisAlarm));
    const QRect dot(badge.left() + badgePadding, badge.center().y() - badgeDot / 2 + 1, badgeDot, badgeDot);
    painter->drawEllipse(m_face.isMirrored ? QStyle::visualRect(Qt::RightToLeft, badge, dot) : dot);
    painter->setFont(smallFont());
    painter->setPen(dark(Token::Text));
    const int offset = badgePadding + badgeDot + 6;
    painter->drawText(badge.adjusted(m_face.isMirrored ? 0 : offset, 0, m_face.isMirrored ? -offset : 0, 0),
                      (m_face.isMirrored ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter, m_face.recordingText);
}

void TilePainter::paintState(QPainter* painter) const
{
    const QRect message = messageRect();
    int top = message.top();
    if (m_face.state == TileFace::State::Busy) {
        const QRectF ring = QRectF(ringRect()).adjusted(1, 1, -1, -1);
        painter->setBrush(Qt::NoBrush);
        painter->setPen(QPen(dark(Token::Track), 2));
        painter->drawEllipse(ring);
        painter->setPen(QPen(dark(Token::AccentText), 2, Qt::SolidLine, Qt::RoundCap));
        painter->drawArc(ring, -m_face.ringDegrees * 16, busyDegrees * 16);
        top += busyRing + iconGap;
    } else if (!m_face.stateIcon.isEmpty()) {
        painter->drawPixmap(QRect(message.center().x() - messageIcon / 2, top, messageIcon, messageIcon),
                            vemo_base::Icons::pixmap(m_face.stateIcon, messageIcon, dark(Token::Text2), m_ratio));
        top += messageIcon + iconGap;
    }
    painter->setFont(m_font);
    const QRect words(message.left(), top, message.width(), message.bottom() + 1 - top);
    const int flags = Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap;
    if (m_face.state == TileFace::State::Busy && !m_face.picture.isNull()) {
        drawShadowed(painter, words, flags, m_face.stateText);
    } else {
        painter->setPen(dark(Token::Text));
        painter->drawText(words, flags, m_face.stateText);
    }
}

void TilePainter::paintNote(QPainter* painter) const
{
    painter->setFont(smallFont());
    const QRect room = textRect();
    const QFontMetrics metrics = painter->fontMetrics();
    const QString text = metrics.elidedText(m_face.note, Qt::ElideMiddle, qMax(0, room.width() - 2 * badgePadding));
    QRect box(0, 0, metrics.horizontalAdvance(text) + 2 * badgePadding, noteHeight);
    box.moveCenter(room.center());
    box.moveBottom(room.bottom() - metrics.height() - textTop);
    StylePainter::box(painter, box, noteRadius, ground(), Qt::transparent, 0);
    painter->setPen(dark(Token::Text));
    painter->drawText(box, Qt::AlignCenter, text);
}

void TilePainter::paint(QPainter* painter) const
{
    const QRect picture = pictureRect();
    const bool hasPicture = !m_face.picture.isNull() && m_face.state != TileFace::State::Message;
    painter->fillRect(m_tile, dark(Token::Well));
    painter->setRenderHint(QPainter::Antialiasing);
    if (!hasPicture || picture != videoRect())
        StylePainter::box(painter, m_tile, tileRadius, Qt::black, Qt::transparent, 0);
    if (hasPicture) {
        const QSize exact = (QSizeF(picture.size()) * m_ratio).toSize();
        painter->setRenderHint(QPainter::SmoothPixmapTransform, m_face.picture.image.size() != exact);
        painter->drawImage(picture, m_face.picture.image);
    }
    paintTexts(painter);
    if (!m_face.recordingText.isEmpty())
        paintBadge(painter);
    if (m_face.state != TileFace::State::Picture)
        paintState(painter);
    if (!m_face.note.isEmpty())
        paintNote(painter);
    if (m_face.isDropTarget) {
        QColor tint = dark(Token::AccentText);
        tint.setAlpha(dropAlpha);
        StylePainter::box(painter, m_tile, tileRadius, tint, Qt::transparent, 0);
    }
    if (m_face.isSelected || m_face.isDropTarget)
        StylePainter::box(painter, QRectF(m_tile).adjusted(1, 1, -1, -1), tileRadius, Qt::transparent,
                          dark(m_face.isFocused ? Token::Focus : Token::AccentText), ringWidth);
}

} // namespace vemo_client
