#include "DisabledWaitingWt.h"

#include "DisabledWaitingWtManager.h"
#include "StylePainter.h"

#include <QApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPushButton>
#include <QTimer>

namespace vemo_base {

namespace {

constexpr int patienceMs = 150;
constexpr int turnMs = 40;
constexpr int turnDegrees = 15;
constexpr int ringSize = 18;
constexpr double ringWidth = 2;
constexpr int ringDegrees = 100;
constexpr int cardPadding = 16;
constexpr int cardRing = 12;     ///< between ring and words
constexpr int roundingSlack = 2; ///< widths of text are rounded
constexpr int cardHeight = 44;
constexpr int secondHeight = 20;
constexpr int secondPixels = 12;
constexpr int buttonGap = 16;
constexpr double cardRadius = 8;
constexpr double darkShare = 0.66;
constexpr double lightShare = 0.76;

} // namespace

DisabledWaitingWt::DisabledWaitingWt(QWidget* parent, const QString& text, const QString& second, bool cancellable)
    : QWidget(parent)
    , m_uuid(QUuid::createUuid())
    , m_text(text)
    , m_second(second)
{
    setVisible(false);
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(text);
    if (cancellable) {
        m_cancel = new QPushButton(tr("Cancel"), this);
        m_cancel->hide();
        connect(m_cancel, &QPushButton::clicked, this, &DisabledWaitingWt::cancel);
    }
    if (parent)
        parent->installEventFilter(this);
    DisabledWaitingWtManager::instance().add(this);
}

DisabledWaitingWt::~DisabledWaitingWt()
{
    DisabledWaitingWtManager::instance().remove(m_uuid);
    const QWidget* focused = QApplication::focusWidget();
    if (m_focusBefore && (!focused || focused == this || isAncestorOf(focused)))
        m_focusBefore->setFocus();
}

void DisabledWaitingWt::show()
{
    if (parentWidget())
        setGeometry(parentWidget()->rect());
    // What has the focus in this window, which itself may be active only in a moment: a dialog was just closed.
    QWidget* focused = window()->focusWidget();
    const QWidget* covered = parentWidget();
    const bool takesFocus = !focused || !covered || focused == covered || covered->isAncestorOf(focused);
    if (takesFocus)
        m_focusBefore = focused;
    setVisible(true);
    raise();
    if (takesFocus)
        setFocus();
    QTimer::singleShot(patienceMs, this, [this] {
        m_isVeiling = true;
        m_turnTimer = startTimer(turnMs);
        if (m_cancel) {
            placeCancel();
            m_cancel->show();
        }
        update();
    });
}

void DisabledWaitingWt::setDescription(const QString& text)
{
    m_text = text;
    setAccessibleName(text);
    placeCancel();
    update();
}

QRect DisabledWaitingWt::cardRect() const
{
    QFont small = font();
    small.setPixelSize(secondPixels);
    const int words = qMax(fontMetrics().horizontalAdvance(m_text), QFontMetrics(small).horizontalAdvance(m_second));
    const int button = m_cancel ? buttonGap + m_cancel->sizeHint().width() : 0;
    // It never gets narrower, or it would twitch while figures change in it.
    const int needed = 2 * cardPadding + ringSize + cardRing + words + roundingSlack + button;
    const int width = qMin(qMax(needed, m_widestCard), qMax(0, this->width() - 2 * cardPadding));
    const int height = cardHeight + (m_second.isEmpty() ? 0 : secondHeight) + (m_cancel ? 8 : 0);
    return {(this->width() - width) / 2, (this->height() - height) / 2, width, height};
}

void DisabledWaitingWt::placeCancel()
{
    m_widestCard = qMax(m_widestCard, cardRect().width());
    if (!m_cancel)
        return;
    const QRect card = cardRect();
    const QSize size = m_cancel->sizeHint();
    const QRect place(card.right() + 1 - cardPadding - size.width(), card.y() + (card.height() - size.height()) / 2,
                      size.width(), size.height());
    m_cancel->setGeometry(QStyle::visualRect(layoutDirection(), card, place));
}

void DisabledWaitingWt::cancel()
{
    if (!m_cancel || !m_cancel->isEnabled())
        return;
    m_cancel->setEnabled(false);
    setFocus();
    emit signalCancelled(m_uuid);
}

bool DisabledWaitingWt::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == parent()) {
        if (event->type() == QEvent::Resize)
            setGeometry(parentWidget()->rect());
        else if (event->type() == QEvent::ChildAdded)
            QTimer::singleShot(0, this, [this] { raise(); });
    }
    return QWidget::eventFilter(watched, event);
}

bool DisabledWaitingWt::event(QEvent* event)
{
    switch (event->type()) {
    // What reaches it goes no further, and Tab does not lead below it.
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
        event->accept();
        return true;
    case QEvent::ShortcutOverride:
        event->accept();
        return true;
    default:
        return QWidget::event(event);
    }
}

void DisabledWaitingWt::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        cancel();
    event->accept();
}

void DisabledWaitingWt::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    m_widestCard = 0;
    placeCancel();
}

void DisabledWaitingWt::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_turnTimer) {
        QWidget::timerEvent(event);
        return;
    }
    m_angle = (m_angle + turnDegrees) % 360;
    update(cardRect());
}

void DisabledWaitingWt::paintEvent(QPaintEvent*)
{
    if (!m_isVeiling)
        return;
    QPainter painter(this);
    const ThemeMode mode = StylePainter::modeOf(palette());
    QColor veil = themeColor(mode, Token::Base);
    veil.setAlphaF(mode == ThemeMode::Light ? lightShare : darkShare);
    painter.fillRect(rect(), veil);

    const QRect card = cardRect();
    painter.setRenderHint(QPainter::Antialiasing);
    StylePainter::box(&painter, card, cardRadius, themeColor(mode, Token::Overlay), themeColor(mode, Token::Border));

    const auto visual = [this, &card](const QRect& part) { return QStyle::visualRect(layoutDirection(), card, part); };
    const QRectF ring =
        QRectF(visual({card.x() + cardPadding, card.y() + (card.height() - ringSize) / 2, ringSize, ringSize}))
            .adjusted(ringWidth, ringWidth, -ringWidth, -ringWidth);
    constexpr int sixteenths = 16;
    painter.setPen(QPen(themeColor(mode, Token::Track), ringWidth));
    painter.drawEllipse(ring);
    painter.setPen(QPen(themeColor(mode, Token::AccentText), ringWidth, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(ring, -m_angle * sixteenths, -ringDegrees * sixteenths);

    const int wordsLeft = card.x() + cardPadding + ringSize + cardRing;
    const int button = m_cancel ? buttonGap + m_cancel->width() : 0;
    const int wordsWidth = qMax(0, card.right() + 1 - cardPadding - button - wordsLeft);
    const int line = m_second.isEmpty() ? card.height() : card.height() - secondHeight - cardPadding / 2;
    const int leading = static_cast<int>(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft)) |
                        static_cast<int>(Qt::AlignVCenter) | static_cast<int>(Qt::TextSingleLine);
    painter.setPen(themeColor(mode, Token::Text));
    painter.drawText(visual({wordsLeft, card.y(), wordsWidth, line}), leading,
                     fontMetrics().elidedText(m_text, Qt::ElideMiddle, wordsWidth));
    if (!m_second.isEmpty()) {
        QFont small = font();
        small.setPixelSize(secondPixels);
        painter.setFont(small);
        painter.setPen(themeColor(mode, Token::Text2));
        painter.drawText(visual({wordsLeft, card.y() + line - cardPadding / 2, wordsWidth, secondHeight}), leading,
                         QFontMetrics(small).elidedText(m_second, Qt::ElideMiddle, wordsWidth));
    }
}

} // namespace vemo_base
