#include "MessageLine.h"

#include <Icons.h>
#include <Theme.h>

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QStyle>

namespace vemo_client {

namespace {

using vemo_base::Token;

constexpr int iconExtent = 14;
constexpr int iconGap = 8;
constexpr int wordsPixels = 12;
constexpr int leastHeight = 18;

QString iconOf(MessageLine::Tone tone)
{
    switch (tone) {
    case MessageLine::Tone::Success:
        return QStringLiteral("success");
    case MessageLine::Tone::Warning:
        return QStringLiteral("warning");
    case MessageLine::Tone::Error:
        return QStringLiteral("error");
    default:
        return QStringLiteral("info");
    }
}

} // namespace

MessageLine::MessageLine(QWidget* parent)
    : QWidget(parent)
    , m_words(new QLabel(this))
{
    QFont small = m_words->font();
    small.setPixelSize(wordsPixels);
    m_words->setFont(small);
    m_words->setTextFormat(Qt::PlainText);
    m_words->setWordWrap(true);
    m_words->setMinimumHeight(leastHeight);
    m_words->setAlignment(Qt::AlignLeading | Qt::AlignTop);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(iconExtent + iconGap, 0, 0, 0);
    layout->addWidget(m_words);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void MessageLine::tell(Tone tone, const QString& text, const QString& icon)
{
    m_tone = tone;
    m_icon = icon.isEmpty() ? iconOf(tone) : icon;
    m_words->setText(text);
    m_words->setAccessibleName(text);
    tint();
}

void MessageLine::clear()
{
    tell(Tone::Plain, QString());
}

QString MessageLine::text() const
{
    return m_words->text();
}

Token MessageLine::token() const
{
    switch (m_tone) {
    case Tone::Success:
        return Token::Success;
    case Tone::Warning:
        return Token::Warning;
    case Tone::Error:
        return Token::Error;
    default:
        return Token::Text2;
    }
}

void MessageLine::tint()
{
    QPalette palette = m_words->palette();
    palette.setColor(QPalette::WindowText, vemo_base::Theme::instance().color(token()));
    m_words->setPalette(palette);
    update();
}

void MessageLine::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        tint();
}

void MessageLine::paintEvent(QPaintEvent*)
{
    if (m_words->text().isEmpty())
        return;
    QPainter painter(this);
    const QRect place = QStyle::visualRect(layoutDirection(), rect(), QRect(0, 1, iconExtent, iconExtent));
    const QColor color = vemo_base::Theme::instance().color(token());
    painter.drawPixmap(place, vemo_base::Icons::pixmap(m_icon, iconExtent, color, devicePixelRatioF()));
}

} // namespace vemo_client
