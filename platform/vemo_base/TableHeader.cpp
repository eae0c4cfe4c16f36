#include "TableHeader.h"

#include "Icons.h"
#include "StylePainter.h"
#include "TableMetrics.h"
#include "TableRowDelegate.h"
#include "TableWidget.h"

#include <QPainter>

namespace vemo_base {

namespace {

constexpr int arrowSize = 12;
constexpr int arrowGap = 4;

} // namespace

TableHeader::TableHeader(TableWidget* table)
    : QHeaderView(Qt::Horizontal, table)
    , m_table(table)
{
    setSectionsClickable(true);
    setHighlightSections(false);
    setDefaultAlignment(Qt::AlignCenter);
    setSectionResizeMode(QHeaderView::Stretch);
    setFocusPolicy(Qt::NoFocus);
}

Qt::CheckState TableHeader::checkState() const
{
    const int checked = m_table->checkedCount();
    if (checked == 0)
        return Qt::Unchecked;
    return checked == m_table->shownCount() ? Qt::Checked : Qt::PartiallyChecked;
}

QSize TableHeader::sizeHint() const
{
    return {QHeaderView::sizeHint().width(), TableMetrics::headerHeight};
}

void TableHeader::paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const
{
    const ThemeMode mode = StylePainter::modeOf(palette());
    painter->save();
    painter->fillRect(rect, themeColor(mode, Token::Raised));
    StylePainter::hairline(painter, rect, Qt::BottomEdge, mode);
    QFont font = this->font();
    font.setPixelSize(TableMetrics::smallPixels);
    font.setWeight(QFont::DemiBold);
    painter->setFont(font);
    painter->setPen(themeColor(mode, Token::Text2));
    const QString text = model()->headerData(logicalIndex, Qt::Horizontal).toString();
    if (logicalIndex == 0 && m_hasCheckBox) {
        paintCheckBox(painter, rect, text);
        painter->restore();
        return;
    }
    const bool sorted = m_table->sortedColumn() == logicalIndex;
    const int arrowRoom = sorted ? arrowSize + arrowGap : 0;
    const QRect room = rect.adjusted(TableMetrics::cellPadding, 0, -TableMetrics::cellPadding, 0);
    const QFontMetrics metrics(font);
    const QString shown = metrics.elidedText(text, Qt::ElideRight, room.width() - arrowRoom);
    const int width = metrics.horizontalAdvance(shown) + arrowRoom;
    const QRect content(room.x() + (room.width() - width) / 2, room.y(), width, room.height());
    const QRect words = QStyle::visualRect(layoutDirection(), content, content.adjusted(0, 0, -arrowRoom, 0));
    painter->drawText(words, Qt::AlignCenter | Qt::TextSingleLine, shown);
    if (sorted) {
        const QRect arrow = QStyle::visualRect(
            layoutDirection(), content,
            QRect(content.right() + 1 - arrowSize, content.center().y() - arrowSize / 2 + 1, arrowSize, arrowSize));
        const bool up = m_table->sortedOrder() == Qt::AscendingOrder;
        Icons::icon(up ? QStringLiteral("chev-up") : QStringLiteral("chev-down"))
            .paint(painter, arrow, Qt::AlignCenter, QIcon::Selected);
    }
    painter->restore();
}

void TableHeader::paintCheckBox(QPainter* painter, const QRect& rect, const QString& text) const
{
    const ThemeMode mode = StylePainter::modeOf(palette());
    const QRect box = TableRowDelegate::checkBoxRect(rect, layoutDirection());
    QStyle::State state = QStyle::State_None;
    if (m_table->shownCount() > 0)
        state |= QStyle::State_Enabled;
    switch (checkState()) {
    case Qt::Checked:
        state |= QStyle::State_On;
        break;
    case Qt::PartiallyChecked:
        state |= QStyle::State_NoChange;
        break;
    case Qt::Unchecked:
        state |= QStyle::State_Off;
        break;
    }
    if (underMouse() && box.adjusted(-4, -4, 4, 4).contains(mapFromGlobal(QCursor::pos())))
        state |= QStyle::State_MouseOver;
    if (m_paintsCheckBox)
        StylePainter::checkBox(painter, box, state, mode);
    const int start = TableMetrics::checkBoxInset + TableMetrics::checkBoxSize + TableMetrics::checkBoxGap;
    const QRect words = QStyle::visualRect(layoutDirection(), rect, rect.adjusted(start, 0, 0, 0));
    const Qt::Alignment leading = QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft);
    painter->drawText(words, static_cast<int>(leading) | Qt::AlignVCenter | Qt::TextSingleLine,
                      painter->fontMetrics().elidedText(text, Qt::ElideRight, words.width()));
}

void TableHeader::paintEvent(QPaintEvent* event)
{
    QHeaderView::paintEvent(event);
    QPainter painter(viewport());
    const QRect panel = m_table->rect().translated(-viewport()->mapTo(m_table, QPoint()));
    StylePainter::panelCorner(&painter, panel, Qt::TopLeftCorner, palette());
    StylePainter::panelCorner(&painter, panel, Qt::TopRightCorner, palette());
}

} // namespace vemo_base
