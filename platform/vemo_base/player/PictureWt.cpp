#include "PictureWt.h"

#include "Icons.h"
#include "Theme.h"

#include <QPainter>

namespace vemo_base {

namespace {

constexpr int textMargin = 24;
constexpr int textTop = 14;
constexpr int textPixels = 14;
constexpr int messageWidth = 480;
constexpr int messageIcon = 36;
constexpr int noteMs = 5000;
constexpr int notePadding = 12;
constexpr int noteHeight = 32;
constexpr int noteAlpha = 204; // 80 %
constexpr double radius = 6;

QColor dark(Token token)
{
    return themeColor(ThemeMode::Dark, token);
}

QFont strong(const QFont& base)
{
    QFont font = base;
    font.setPixelSize(textPixels);
    font.setWeight(QFont::DemiBold);
    return font;
}

/// Readable on any footage.
void drawShadowed(QPainter& painter, const QRect& rect, int flags, const QString& text)
{
    QColor shadow = dark(Token::Well);
    shadow.setAlpha(noteAlpha);
    painter.setPen(shadow);
    for (const QPoint& offset : {QPoint(1, 1), QPoint(-1, 1), QPoint(0, 2), QPoint(0, -1)})
        painter.drawText(rect.translated(offset), flags, text);
    painter.setPen(dark(Token::OnAccent));
    painter.drawText(rect, flags, text);
}

} // namespace

PictureWt::PictureWt(QWidget* parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("playerPicture"));
    setPalette(Theme::palette(ThemeMode::Dark));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    m_noteTimer.setSingleShot(true);
    m_noteTimer.setInterval(noteMs);
    connect(&m_noteTimer, &QTimer::timeout, this, [this] {
        m_note.clear();
        update();
    });
}

void PictureWt::setPicture(const QImage& picture)
{
    m_picture = picture;
    update(pictureRect());
}

void PictureWt::setPictureShape(const QSize& shape)
{
    if (m_shape == shape)
        return;
    m_shape = shape;
    update();
    emit signalPictureSizeChanged(pictureSize());
}

void PictureWt::setChannelName(const QString& name)
{
    m_channelName = name;
    update();
}

void PictureWt::setClockText(const QString& text)
{
    if (m_clockText == text)
        return;
    m_clockText = text;
    update(clockRect());
}

void PictureWt::setMessage(const QString& iconName, const QString& text)
{
    if (m_message == text && m_messageIcon == iconName)
        return;
    m_messageIcon = iconName;
    m_message = text;
    setAccessibleDescription(text);
    update();
}

void PictureWt::showNote(const QString& text)
{
    m_note = text;
    m_noteTimer.start();
    update();
}

QRect PictureWt::pictureRect() const
{
    if (m_shape.isEmpty())
        return rect();
    const QSize size = m_shape.scaled(this->size(), Qt::KeepAspectRatio);
    return {(width() - size.width()) / 2, (height() - size.height()) / 2, size.width(), size.height()};
}

QSize PictureWt::pictureSize() const
{
    return m_shape.isEmpty() ? QSize() : (QSizeF(pictureRect().size()) * devicePixelRatioF()).toSize();
}

QRect PictureWt::clockRect() const
{
    return {pictureRect().left(), pictureRect().top(), pictureRect().width(), textTop + 2 * textPixels};
}

void PictureWt::mouseDoubleClickEvent(QMouseEvent*)
{
    emit signalDoubleClicked();
}

void PictureWt::resizeEvent(QResizeEvent*)
{
    emit signalPictureSizeChanged(pictureSize());
}

void PictureWt::paintMessage(QPainter& painter) const
{
    const QRect room = rect().adjusted(textMargin, 0, -textMargin, 0);
    QRect words(0, 0, qMin(messageWidth, room.width()), height());
    words = painter.boundingRect(words, Qt::AlignHCenter | Qt::TextWordWrap, m_message);
    const int iconRoom = m_messageIcon.isEmpty() ? 0 : messageIcon + 12;
    words.moveCenter(rect().center() + QPoint(0, iconRoom / 2));
    if (iconRoom > 0)
        painter.drawPixmap(QRect((width() - messageIcon) / 2, words.top() - iconRoom, messageIcon, messageIcon),
                           Icons::pixmap(m_messageIcon, messageIcon, dark(Token::Text2), devicePixelRatioF()));
    painter.setPen(dark(Token::Text));
    painter.drawText(words, Qt::AlignHCenter | Qt::TextWordWrap, m_message);
}

void PictureWt::paintNote(QPainter& painter, const QRect& picture) const
{
    const int most = picture.width() - 2 * textMargin - 2 * notePadding;
    const QString text = painter.fontMetrics().elidedText(m_note, Qt::ElideMiddle, most);
    QRect box(0, 0, painter.fontMetrics().horizontalAdvance(text) + 2 * notePadding, noteHeight);
    box.moveCenter(picture.center());
    box.moveBottom(picture.bottom() - textMargin);
    QColor ground = dark(Token::Well);
    ground.setAlpha(noteAlpha);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    painter.drawRoundedRect(box, radius, radius);
    painter.setPen(dark(Token::Text));
    painter.drawText(box, Qt::AlignCenter, text);
}

void PictureWt::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QRect picture = pictureRect();
    const bool shown = !m_picture.isNull() && !m_shape.isEmpty() && m_message.isEmpty();
    if (!shown || picture != rect())
        painter.fillRect(rect(), Qt::black);
    if (!m_message.isEmpty())
        return paintMessage(painter);
    if (shown) {
        painter.setRenderHint(QPainter::SmoothPixmapTransform, m_picture.size() != pictureSize());
        painter.drawImage(picture, m_picture);
    }
    const QFont plain = painter.font();
    painter.setFont(strong(plain));
    const QRect texts = picture.adjusted(textMargin, textTop, -textMargin, -textTop);
    const int clockWidth = painter.fontMetrics().horizontalAdvance(m_clockText);
    const int nameWidth = texts.width() - clockWidth - textMargin;
    drawShadowed(painter, texts, Qt::AlignLeft | Qt::AlignTop,
                 painter.fontMetrics().elidedText(m_channelName, Qt::ElideRight, nameWidth));
    drawShadowed(painter, texts, Qt::AlignRight | Qt::AlignTop, m_clockText);
    painter.setFont(plain);
    if (!m_note.isEmpty())
        paintNote(painter, picture);
}

} // namespace vemo_base
