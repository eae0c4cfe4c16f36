#include "PlayerTitleBar.h"

#include "Icons.h"
#include "StylePainter.h"
#include "TransportButton.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QWindow>

namespace vemo_base {

namespace {

constexpr int leading = 20;
constexpr int iconExtent = 20;
constexpr int iconGap = 8;
constexpr int titlePixels = 14;
constexpr int factsPixels = 12;

} // namespace

PlayerTitleBar::PlayerTitleBar(QWidget* parent)
    : QWidget(parent)
    , m_titleLabel(new QLabel(this))
    , m_factsLabel(new QLabel(this))
{
    setFixedHeight(barHeight);
    m_factsLabel->setObjectName(QStringLiteral("playerFacts"));
    QFont titleFont = font();
    titleFont.setPixelSize(titlePixels);
    titleFont.setWeight(QFont::DemiBold);
    m_titleLabel->setFont(titleFont);
    m_titleLabel->setTextFormat(Qt::PlainText);
    m_titleLabel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    QFont factsFont = font();
    factsFont.setPixelSize(factsPixels);
    m_factsLabel->setFont(factsFont);
    m_factsLabel->setTextFormat(Qt::PlainText);
    m_factsLabel->setForegroundRole(QPalette::PlaceholderText);

    auto* close = new TransportButton(TransportButton::Kind::Quiet, QStringLiteral("close"), tr("Close (Esc)"), this);
    connect(close, &TransportButton::clicked, this, &PlayerTitleBar::signalCloseRequested);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(leading + iconExtent + iconGap, 0, 12, 0);
    layout->setSpacing(16);
    layout->addWidget(m_titleLabel, 1);
    layout->addWidget(m_factsLabel);
    layout->addWidget(close);
}

void PlayerTitleBar::setIcon(const QString& iconName)
{
    m_iconName = iconName;
    update();
}

void PlayerTitleBar::setTitle(const QString& title)
{
    m_title = title;
    elide();
}

void PlayerTitleBar::setFacts(const QString& facts)
{
    m_factsLabel->setText(facts);
}

void PlayerTitleBar::elide()
{
    const QString shown = m_titleLabel->fontMetrics().elidedText(m_title, Qt::ElideRight, m_titleLabel->width());
    m_titleLabel->setText(shown);
    m_titleLabel->setToolTip(shown == m_title ? QString() : m_title);
}

void PlayerTitleBar::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    // The layout gives the label its width after this.
    QMetaObject::invokeMethod(this, &PlayerTitleBar::elide, Qt::QueuedConnection);
}

void PlayerTitleBar::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && window()->windowHandle())
        window()->windowHandle()->startSystemMove();
}

void PlayerTitleBar::mouseDoubleClickEvent(QMouseEvent* event)
{
    event->accept();
}

void PlayerTitleBar::paintEvent(QPaintEvent*)
{
    const ThemeMode mode = StylePainter::modeOf(palette());
    QPainter painter(this);
    const QRect icon(layoutDirection() == Qt::RightToLeft ? width() - leading - iconExtent : leading,
                     (height() - iconExtent) / 2, iconExtent, iconExtent);
    painter.drawPixmap(icon,
                       Icons::pixmap(m_iconName, iconExtent, themeColor(mode, Token::AccentText), devicePixelRatioF()));
    StylePainter::hairline(&painter, rect(), Qt::BottomEdge, mode);
}

} // namespace vemo_base
