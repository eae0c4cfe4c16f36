#include "ToastWt.h"

#include "Icons.h"
#include "NoticeFace.h"
#include "StylePainter.h"

#include <QAccessible>
#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QToolButton>

namespace vemo_base {

namespace {

constexpr int cardWidth = 380;
constexpr int shadow = 12;
constexpr int padding = 16;
constexpr int stateIcon = 18;
constexpr int iconGap = 12;
constexpr int edge = 3;
constexpr double radius = 8;
constexpr int textPixels = 12;
constexpr int closeSize = 24;
constexpr int closeIcon = 16;

/// Words that act, in the colour of links.
class ActionButton final : public QToolButton
{
public:
    ActionButton(const QString& text, QWidget* parent)
        : QToolButton(parent)
    {
        setText(text);
        setFocusPolicy(Qt::NoFocus);
        setCursor(Qt::PointingHandCursor);
        QFont words = font();
        words.setWeight(QFont::DemiBold);
        setFont(words);
    }

    QSize sizeHint() const override { return {fontMetrics().horizontalAdvance(text()), fontMetrics().height() + 4}; }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        QFont words = font();
        words.setUnderline(underMouse());
        painter.setFont(words);
        painter.setPen(themeColor(StylePainter::modeOf(palette()), Token::AccentText));
        painter.drawText(rect(), Qt::AlignLeading | Qt::AlignVCenter | Qt::TextSingleLine, text());
    }
};

} // namespace

ToastWt::ToastWt(const Notice& notice, int shownMs, QWidget* parent)
    : QWidget(parent)
    , m_shownMs(shownMs)
    , m_title(new QLabel(this))
    , m_text(new QLabel(this))
    , m_actions(new QHBoxLayout)
{
    setFocusPolicy(Qt::NoFocus);
    setFixedWidth(cardWidth + 2 * shadow);
    m_title->setTextFormat(Qt::PlainText);
    m_title->setWordWrap(true);
    QFont titleFont = m_title->font();
    titleFont.setWeight(QFont::DemiBold);
    m_title->setFont(titleFont);
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);
    QFont textFont = m_text->font();
    textFont.setPixelSize(textPixels);
    m_text->setFont(textFont);
    m_text->setForegroundRole(QPalette::PlaceholderText);

    auto* close = new QToolButton(this);
    close->setIcon(Icons::icon(QStringLiteral("close")));
    close->setIconSize({closeIcon, closeIcon});
    close->setAutoRaise(true);
    close->setFocusPolicy(Qt::NoFocus);
    close->setFixedSize(closeSize, closeSize);
    close->setToolTip(tr("Close"));
    close->setAccessibleName(tr("Close"));
    connect(close, &QToolButton::clicked, this, &ToastWt::signalClosed);

    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(shadow + padding + edge + stateIcon + iconGap, shadow + padding, shadow + padding,
                               shadow + padding);
    layout->setHorizontalSpacing(padding / 2);
    layout->setVerticalSpacing(4);
    layout->setColumnStretch(0, 1);
    layout->addWidget(m_title, 0, 0);
    layout->addWidget(close, 0, 1, 2, 1, Qt::AlignTop);
    layout->addWidget(m_text, 1, 0);
    layout->addLayout(m_actions, 2, 0, 1, 2);
    m_actions->setSpacing(padding);

    m_clock.setSingleShot(true);
    connect(&m_clock, &QTimer::timeout, this, &ToastWt::signalClosed);
    setNotice(notice);
}

void ToastWt::setNotice(const Notice& notice)
{
    m_notice = notice;
    m_title->setText(notice.repeats > 1 ? tr("%1 (%2 times)").arg(notice.title).arg(notice.repeats) : notice.title);
    m_text->setText(notice.text);
    m_text->setVisible(!notice.text.isEmpty());
    fillActions();
    setAccessibleName(m_title->text());
    setAccessibleDescription(notice.text);
    if (staysUntilClosed())
        m_clock.stop();
    else if (!underMouse())
        m_clock.start(m_shownMs);
    QAccessibleEvent event(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
    update();
}

void ToastWt::fillActions()
{
    while (QLayoutItem* item = m_actions->takeAt(0)) {
        if (item->widget())
            item->widget()->deleteLater();
        delete item;
    }
    for (const Notice::Action& action : qAsConst(m_notice.actions)) {
        auto* button = new ActionButton(action.text, this);
        connect(button, &QToolButton::clicked, this, [this, run = action.run] {
            emit signalClosed();
            if (run)
                run();
        });
        m_actions->addWidget(button);
        button->show();
    }
    m_actions->addStretch();
}

void ToastWt::fitHeight()
{
    const int wordsWidth = cardWidth - edge - stateIcon - iconGap - 2 * padding - padding / 2 - closeSize;
    for (QLabel* label : {m_title, m_text})
        label->setFixedHeight(qMax(0, label->heightForWidth(wordsWidth)));
    layout()->activate();
    resize(width(), layout()->sizeHint().height());
}

QRect ToastWt::cardRect() const
{
    return rect().adjusted(shadow, shadow, -shadow, -shadow);
}

bool ToastWt::event(QEvent* event)
{
    if (event->type() == QEvent::Enter)
        m_clock.stop();
    else if (event->type() == QEvent::Leave && !staysUntilClosed())
        m_clock.start(m_shownMs);
    return QWidget::event(event);
}

void ToastWt::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const ThemeMode mode = StylePainter::modeOf(palette());
    const QRectF card = cardRect();
    const double strength = mode == ThemeMode::Dark ? 0.05 : 0.02;
    for (int spread = shadow; spread > 0; spread -= 2) {
        QColor dark(Qt::black);
        dark.setAlphaF(strength);
        StylePainter::box(&painter, card.adjusted(-spread, 4 - spread, spread, spread), radius + spread, dark,
                          QColor());
    }
    StylePainter::box(&painter, card, radius, themeColor(mode, Token::Overlay), themeColor(mode, Token::Border));

    const NoticeFace face = NoticeFace::of(m_notice.kind);
    const QColor color = themeColor(mode, face.token);
    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    QPainterPath shape;
    shape.addRoundedRect(card, radius, radius);
    painter.save();
    painter.setClipRect(mirrored ? QRectF(card.right() - edge, card.y(), edge, card.height())
                                 : QRectF(card.x(), card.y(), edge, card.height()));
    painter.fillPath(shape, color);
    painter.restore();

    const QRect icon(shadow + edge + padding, shadow + padding, stateIcon, stateIcon);
    painter.drawPixmap(QStyle::visualRect(layoutDirection(), rect(), icon),
                       Icons::pixmap(face.icon, stateIcon, color, devicePixelRatioF()));
}

} // namespace vemo_base
