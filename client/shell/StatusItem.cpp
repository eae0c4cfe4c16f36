#include "StatusItem.h"

#include <Icons.h>
#include <StylePainter.h>
#include <Theme.h>

#include <QPainter>
#include <QStyle>

namespace vemo_client {

namespace {

constexpr int itemHeight = 27;
constexpr int padding = 8;
constexpr int iconExtent = 16;
constexpr int gap = 6;
constexpr int barWidth = 72;
constexpr int barHeight = 4;
constexpr int wordsPixels = 12;

} // namespace

StatusItem::StatusItem(const QString& iconName, QWidget* parent)
    : QAbstractButton(parent)
    , m_iconName(iconName)
{
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QFont StatusItem::wordsFont() const
{
    QFont wordsFont = font();
    wordsFont.setPixelSize(wordsPixels);
    if (m_strong)
        wordsFont.setWeight(QFont::DemiBold);
    return wordsFont;
}

void StatusItem::setCaption(const QString& caption)
{
    m_caption = caption;
    updateGeometry();
}

int StatusItem::captionWidth() const
{
    if (m_caption.isEmpty())
        return 0;
    QFont captionFont = wordsFont();
    captionFont.setWeight(QFont::Normal);
    return QFontMetrics(captionFont).horizontalAdvance(m_caption) + gap;
}

void StatusItem::setSample(const QString& sample)
{
    m_sample = sample;
    updateGeometry();
}

void StatusItem::setStrong(bool strong)
{
    m_strong = strong;
    updateGeometry();
    update();
}

void StatusItem::setTone(vemo_base::Token tone)
{
    m_tone = tone;
    update();
}

void StatusItem::setWords(const QString& words)
{
    if (words == text())
        return;
    setText(words);
    updateGeometry();
    update();
}

void StatusItem::setFraction(double fraction)
{
    m_fraction = fraction;
    updateGeometry();
    update();
}

QSize StatusItem::sizeHint() const
{
    const QFontMetrics metrics(wordsFont());
    const int words = qMax(metrics.horizontalAdvance(text()), metrics.horizontalAdvance(m_sample));
    const int bar = m_fraction < 0 ? 0 : gap + barWidth;
    return QSize(2 * padding + iconExtent + gap + captionWidth() + words + bar, itemHeight);
}

void StatusItem::paintEvent(QPaintEvent*)
{
    const vemo_base::Theme& theme = vemo_base::Theme::instance();
    const QColor color = theme.color(m_tone);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (underMouse())
        vemo_base::StylePainter::box(&painter, QRectF(rect()).adjusted(1, 2, -1, -2), 4,
                                     theme.color(vemo_base::Token::Hover), QColor());
    const auto mirrored = [this](const QRect& logical) {
        return QStyle::visualRect(layoutDirection(), rect(), logical);
    };

    const QPixmap icon =
        vemo_base::Icons::pixmap(m_iconName, iconExtent, m_strong ? theme.color(vemo_base::Token::Text2) : color,
                                 painter.device()->devicePixelRatioF());
    painter.drawPixmap(mirrored(QRect(padding, (height() - iconExtent) / 2, iconExtent, iconExtent)), icon);
    int x = padding + iconExtent + gap;
    if (!m_caption.isEmpty()) {
        QFont captionFont = wordsFont();
        captionFont.setWeight(QFont::Normal);
        painter.setFont(captionFont);
        painter.setPen(theme.color(vemo_base::Token::Text2));
        painter.drawText(mirrored(QRect(x, 0, captionWidth(), height())), Qt::AlignVCenter | Qt::TextSingleLine,
                         m_caption);
        x += captionWidth();
    }
    painter.setFont(wordsFont());
    painter.setPen(color);
    const int wordsWidth = QFontMetrics(painter.font()).horizontalAdvance(text());
    const QRect words = mirrored(QRect(x, 0, wordsWidth, height()));
    painter.drawText(words, Qt::AlignVCenter | Qt::TextSingleLine, text());
    if (m_fraction >= 0) {
        const QRect bar(x + wordsWidth + gap, (height() - barHeight) / 2, barWidth, barHeight);
        const vemo_base::Token fill = m_tone == vemo_base::Token::Text2 ? vemo_base::Token::Progress : m_tone;
        vemo_base::StylePainter::progress(&painter, mirrored(bar), m_fraction, theme.color(vemo_base::Token::Track),
                                          theme.color(fill));
    }
    if (hasFocus())
        vemo_base::StylePainter::focusRingInside(&painter, QRectF(rect()).adjusted(1, 2, -1, -2), 4);
}

} // namespace vemo_client
