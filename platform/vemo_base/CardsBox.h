#pragma once

#include "vemo_base_global.h"

#include <QHash>
#include <QPointer>
#include <QSize>
#include <QVector>
#include <QWidget>

class QScrollArea;

namespace vemo_base {

/// Cards of one size, flowing from the leading edge into as many columns as there is room for. GUI thread.
///
/// The box keeps places, not widgets: a card is a widget only while it is in view of the scroll area around the box,
/// and the widgets are used again as others come into view, so that thousands of cards cost what a screenful does. A
/// subclass keeps what the cards show and fills them. The box is one stop of Tab, which leads to the current card;
/// arrows, Home, End, Page Up and Down move in the grid.
class VEMO_BASE_EXPORT CardsBox : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(CardsBox)

public:
    CardsBox(const QSize& cardSize, int spacing, QWidget* parent = nullptr);

    int cardCount() const { return m_count; }
    int currentIndex() const { return m_current; }
    /// Makes a card the current one, brings it into view and gives it the focus.
    void focusCard(int index);
    /// nullptr while the card is not in view.
    QWidget* card(int index) const { return m_cards.value(index); }
    /// -1 when it is none of the cards in view.
    int indexOf(const QWidget* card) const;
    QList<QWidget*> cardsInView() const { return m_cards.values(); }
    QRect cardRect(int index) const;
    /// What of the box the scroll area shows; cards a row beyond it are made as well.
    QRect partInView() const;
    int columnCount() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    /// An arrow key led out of the grid, up (-1) or down (1), from so many columns off the leading edge.
    void signalLeft(int direction, int column);

protected:
    /// Another content: every card in view is filled anew.
    void setCardCount(int count);
    void removeCards(const QVector<int>& indexes); ///< ascending

    /// A widget that fillCard() makes a card of; its parent is the box.
    virtual QWidget* createCard() = 0;
    virtual void fillCard(QWidget* card, int index) = 0;
    /// It goes out of view and may be filled as another one.
    virtual void releaseCard(QWidget* card, int index) = 0;

    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    int columnsFor(int width) const;
    void follow(QScrollArea* area);
    void updateCards();
    void putAway(int index);
    void putAllAway();
    void showCard(int index);

    const QSize m_cardSize;
    const int m_spacing;
    int m_count = 0;
    int m_current = 0;
    QHash<int, QWidget*> m_cards; ///< in view, by index
    QVector<QWidget*> m_spare;
    QPointer<QScrollArea> m_area;
};

} // namespace vemo_base
