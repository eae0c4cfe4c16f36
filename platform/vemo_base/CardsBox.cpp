#include "CardsBox.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QScrollArea>

#include <algorithm>

namespace vemo_base {

namespace {

constexpr int rowsBeyondView = 1; ///< so that pictures are asked for before they are seen

} // namespace

CardsBox::CardsBox(const QSize& cardSize, int spacing, QWidget* parent)
    : QWidget(parent)
    , m_cardSize(cardSize)
    , m_spacing(spacing)
{
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    setFocusPolicy(Qt::TabFocus);
}

int CardsBox::columnsFor(int width) const
{
    return qMax(1, (width + m_spacing) / (m_cardSize.width() + m_spacing));
}

int CardsBox::columnCount() const
{
    return columnsFor(width());
}

QRect CardsBox::cardRect(int index) const
{
    const int columns = columnCount();
    const int column = index % columns;
    const int x = column * (m_cardSize.width() + m_spacing);
    const int y = index / columns * (m_cardSize.height() + m_spacing);
    return {{layoutDirection() == Qt::RightToLeft ? width() - x - m_cardSize.width() : x, y}, m_cardSize};
}

QSize CardsBox::sizeHint() const
{
    return {width(), heightForWidth(width())};
}

QSize CardsBox::minimumSizeHint() const
{
    return {m_cardSize.width(), 0};
}

int CardsBox::heightForWidth(int width) const
{
    const int columns = columnsFor(width);
    const int rows = (m_count + columns - 1) / columns;
    return rows == 0 ? 0 : rows * (m_cardSize.height() + m_spacing) - m_spacing;
}

int CardsBox::indexOf(const QWidget* card) const
{
    return m_cards.key(const_cast<QWidget*>(card), -1);
}

void CardsBox::setCardCount(int count)
{
    putAllAway();
    m_count = count;
    m_current = 0;
    updateGeometry();
    updateCards();
}

void CardsBox::removeCards(const QVector<int>& indexes)
{
    const bool hadFocus = isAncestorOf(QApplication::focusWidget());
    putAllAway();
    const auto before = std::lower_bound(indexes.cbegin(), indexes.cend(), m_current) - indexes.cbegin();
    m_count -= indexes.size();
    m_current = qBound(0, m_current - static_cast<int>(before), qMax(0, m_count - 1));
    updateGeometry();
    updateCards();
    if (hadFocus && card(m_current))
        card(m_current)->setFocus();
}

void CardsBox::focusCard(int index)
{
    if (index < 0 || index >= m_count)
        return;
    m_current = index;
    const QRect place = cardRect(index);
    if (m_area && m_area->widget()) {
        const QPoint middle = mapTo(m_area->widget(), place.center());
        m_area->ensureVisible(middle.x(), middle.y(), place.width() / 2 + m_spacing, place.height() / 2 + m_spacing);
    }
    updateCards();
    if (QWidget* shown = card(index))
        shown->setFocus(Qt::TabFocusReason);
}

QRect CardsBox::partInView() const
{
    if (!m_area)
        return rect();
    const QWidget* viewport = m_area->viewport();
    return viewport->rect().translated(-mapTo(m_area->viewport(), QPoint())) & rect();
}

void CardsBox::updateCards()
{
    const QRect part = partInView();
    const int rowHeight = m_cardSize.height() + m_spacing;
    const int columns = columnCount();
    int first = 0;
    int last = -1;
    if (isVisible() && !part.isEmpty()) {
        first = qMax(0, part.top() / rowHeight - rowsBeyondView) * columns;
        last = qMin(m_count, (part.bottom() / rowHeight + 1 + rowsBeyondView) * columns) - 1;
    }
    const QList<int> shown = m_cards.keys();
    for (const int index : shown) {
        if (index < first || index > last)
            putAway(index);
    }
    // The first one last: of what is asked for, the newest comes first.
    for (int index = last; index >= first; --index)
        showCard(index);
    if (m_cards.isEmpty()) {
        for (QWidget* spare : qAsConst(m_spare))
            spare->deleteLater();
        m_spare.clear();
    }
}

void CardsBox::showCard(int index)
{
    if (QWidget* shown = m_cards.value(index)) {
        shown->setGeometry(cardRect(index));
        return;
    }
    QWidget* card = nullptr;
    if (m_spare.isEmpty()) {
        card = createCard();
        card->installEventFilter(this);
    } else {
        card = m_spare.takeLast();
    }
    m_cards.insert(index, card);
    card->setGeometry(cardRect(index));
    fillCard(card, index);
    card->show();
    if (index == m_current && hasFocus())
        card->setFocus();
}

void CardsBox::putAway(int index)
{
    QWidget* card = m_cards.take(index);
    // The focus waits here until the card is in view again, or else it would go on to some other place.
    if (card == QApplication::focusWidget() || card->isAncestorOf(QApplication::focusWidget()))
        setFocus();
    releaseCard(card, index);
    card->hide();
    m_spare.append(card);
}

void CardsBox::putAllAway()
{
    const QList<int> shown = m_cards.keys();
    for (const int index : shown)
        putAway(index);
}

bool CardsBox::eventFilter(QObject* watched, QEvent* event)
{
    if (m_area && (watched == m_area->viewport() || watched == m_area->widget())) {
        if (event->type() == QEvent::Move || event->type() == QEvent::Resize)
            updateCards();
        return false;
    }
    if (event->type() == QEvent::FocusIn) {
        // While a card has the focus, going back leads out of the box, not to the box.
        setFocusPolicy(Qt::NoFocus);
        const int index = indexOf(static_cast<QWidget*>(watched));
        if (index >= 0)
            m_current = index;
    } else if (event->type() == QEvent::FocusOut) {
        setFocusPolicy(Qt::TabFocus);
    }
    return false;
}

void CardsBox::follow(QScrollArea* area)
{
    if (m_area == area || !area)
        return;
    m_area = area;
    area->viewport()->installEventFilter(this);
    if (area->widget())
        area->widget()->installEventFilter(this);
}

void CardsBox::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    for (QWidget* parent = parentWidget(); parent; parent = parent->parentWidget()) {
        if (auto* area = qobject_cast<QScrollArea*>(parent)) {
            follow(area);
            break;
        }
    }
    updateCards();
}

void CardsBox::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    updateCards();
}

void CardsBox::moveEvent(QMoveEvent* event)
{
    QWidget::moveEvent(event);
    updateCards();
}

void CardsBox::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason)
        focusCard(m_current);
}

void CardsBox::keyPressEvent(QKeyEvent* event)
{
    const int columns = columnCount();
    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    const int page = qMax(1, partInView().height() / (m_cardSize.height() + m_spacing)) * columns;
    int target = m_current;
    switch (event->key()) {
    case Qt::Key_Left:
        target += mirrored ? 1 : -1;
        break;
    case Qt::Key_Right:
        target += mirrored ? -1 : 1;
        break;
    case Qt::Key_Up:
        target -= columns;
        break;
    case Qt::Key_Down:
        // From the row above the last one to the last card, also where the last row is shorter.
        target = m_current / columns < (m_count - 1) / columns ? qMin(target + columns, m_count - 1) : target + columns;
        break;
    case Qt::Key_PageUp:
        target = qMax(m_current % columns, target - page);
        break;
    case Qt::Key_PageDown:
        target = qMin(m_count - 1, target + page);
        break;
    case Qt::Key_Home:
        target = 0;
        break;
    case Qt::Key_End:
        target = m_count - 1;
        break;
    default:
        QWidget::keyPressEvent(event);
        return;
    }
    if (target >= 0 && target < m_count)
        focusCard(target);
    else
        emit signalLeft(target < 0 ? -1 : 1, m_current % columns);
}

} // namespace vemo_base
