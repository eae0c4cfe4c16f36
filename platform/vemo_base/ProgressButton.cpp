#include "ProgressButton.h"

#include "StylePainter.h"
#include "Theme.h"

#include <QPainter>

namespace vemo_base {

namespace {

constexpr int whole = 100;
constexpr int barHeight = 3;
constexpr int inset = 6;
constexpr int barBottom = 3;

} // namespace

ProgressButton::ProgressButton(QWidget* parent)
    : QPushButton(parent)
{
    hide();
}

void ProgressButton::startWorking(const QString& text)
{
    m_words = text;
    m_percent = 0;
    m_isWorking = true;
    showText();
    show();
}

void ProgressButton::stopWorking()
{
    m_isWorking = false;
    hide();
}

void ProgressButton::setProgress(int percent)
{
    const int bounded = qBound(0, percent, whole);
    if (!m_isWorking || bounded <= m_percent)
        return;
    m_percent = bounded;
    showText();
}

void ProgressButton::showText()
{
    setText(tr("%1 %2%").arg(m_words).arg(m_percent));
    setAccessibleName(text());
}

/// As wide as it gets, so that its neighbours stay where they are.
QSize ProgressButton::sizeHint() const
{
    const QSize now = QPushButton::sizeHint();
    const QString widest = tr("%1 %2%").arg(m_words).arg(whole);
    const int more = fontMetrics().horizontalAdvance(widest) - fontMetrics().horizontalAdvance(text());
    return now.grownBy(QMargins(0, 0, qMax(0, more), 0));
}

void ProgressButton::paintEvent(QPaintEvent* event)
{
    QPushButton::paintEvent(event);
    if (!m_isWorking)
        return;
    const Theme& theme = Theme::instance();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    StylePainter::progress(&painter, QRectF(inset, height() - barBottom - barHeight, width() - 2 * inset, barHeight),
                           double(m_percent) / whole, theme.color(Token::Track), theme.color(Token::Progress));
}

} // namespace vemo_base
