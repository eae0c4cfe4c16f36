#include "TableRowDelegate.h"

#include "Chip.h"
#include "PlainToolTips.h"
#include "StylePainter.h"
#include "TableMetrics.h"
#include "TableWidget.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace vemo_base {

namespace {

constexpr int faultGap = 8;
constexpr int leastNameBesideFault = 80;

QRect textRoom(const QRect& cell)
{
    return cell.adjusted(TableMetrics::cellPadding, 0, -TableMetrics::cellPadding, 0);
}

Token toneOf(const TableWidget* table, const QModelIndex& index)
{
    bool isSet = false;
    const int tone = index.data(TableWidget::ToneRole).toInt(&isSet);
    if (isSet && tone >= 0 && tone < static_cast<int>(Token::Count))
        return static_cast<Token>(tone);
    return table->columnTone(index.column());
}

} // namespace

TableRowDelegate::TableRowDelegate(TableWidget* table)
    : QStyledItemDelegate(table)
    , m_table(table)
{}

QRect TableRowDelegate::checkBoxRect(const QRect& cell, Qt::LayoutDirection direction)
{
    const QRect box(cell.x() + TableMetrics::checkBoxInset, cell.y() + (cell.height() - TableMetrics::checkBoxSize) / 2,
                    TableMetrics::checkBoxSize, TableMetrics::checkBoxSize);
    return QStyle::visualRect(direction, cell, box);
}

void TableRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const ThemeMode mode = StylePainter::modeOf(option.palette);
    const bool selected = option.state & QStyle::State_Selected;
    const bool hover = index.row() == m_table->hoveredRow();
    if (selected || hover)
        painter->fillRect(option.rect, themeColor(mode, selected ? Token::Select : Token::Hover));
    const bool isLast = index.row() == m_table->rowCount() - 1;
    if (!isLast)
        StylePainter::hairline(painter, option.rect, Qt::BottomEdge, mode);

    if (index.column() == 0) {
        paintFirst(painter, option, index);
        return;
    }
    const QString text = index.data().toString();
    if (text.isEmpty())
        return;
    const QRect room = textRoom(option.rect);
    const Token tone = toneOf(m_table, index);
    if (m_table->isChipColumn(index.column())) {
        Chip::paint(painter, room, index.data(TableWidget::IconRole).toString(), text, tone,
                    selected ? Chip::Ground::Plain : Chip::Ground::Tinted, option.font, option.palette);
        return;
    }
    const QString fault = index.data(TableWidget::FaultRole).toString();
    if (!fault.isEmpty()) {
        paintFault(painter, option, room, text, fault);
        return;
    }
    painter->setFont(option.font);
    painter->setPen(themeColor(mode, tone));
    painter->drawText(room, Qt::AlignCenter | Qt::TextSingleLine,
                      option.fontMetrics.elidedText(text, m_table->columnElide(index.column()), room.width()));
}

void TableRowDelegate::paintFault(QPainter* painter, const QStyleOptionViewItem& option, const QRect& room,
                                  const QString& text, const QString& fault) const
{
    const QString icon = QStringLiteral("error");
    constexpr int slack = 2; // widths of text are rounded
    const int whole = Chip::widthOf(icon, fault, option.font) + slack;
    // Where it is narrow the name is worth more than the chip's word.
    const QString word = room.width() - whole < leastNameBesideFault ? QString() : fault;
    const int chip = word.isEmpty() ? Chip::widthOf(icon, word, option.font) : whole;
    const QString shown = option.fontMetrics.elidedText(text, Qt::ElideRight, qMax(0, room.width() - chip - faultGap));
    const int words = option.fontMetrics.horizontalAdvance(shown);
    const QRect content(room.x() + (room.width() - words - faultGap - chip) / 2, room.y(), words + faultGap + chip,
                        room.height());
    const auto visual = [&option, &content](const QRect& part) {
        return QStyle::visualRect(option.direction, content, part);
    };
    painter->setFont(option.font);
    painter->setPen(themeColor(StylePainter::modeOf(option.palette), Token::Text));
    painter->drawText(visual({content.x(), content.y(), words, content.height()}), Qt::AlignCenter | Qt::TextSingleLine,
                      shown);
    const bool selected = option.state & QStyle::State_Selected;
    Chip::paint(painter, visual({content.x() + words + faultGap, content.y(), chip, content.height()}), icon, word,
                Token::Error, selected ? Chip::Ground::Plain : Chip::Ground::Tinted, option.font, option.palette);
}

void TableRowDelegate::paintFirst(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const ThemeMode mode = StylePainter::modeOf(option.palette);
    if (option.state & QStyle::State_Selected) {
        const QRect bar(option.rect.x(), option.rect.y(), TableMetrics::selectionBar, option.rect.height());
        painter->fillRect(QStyle::visualRect(option.direction, option.rect, bar), themeColor(mode, Token::AccentText));
    }
    int start = TableMetrics::checkBoxInset;
    if (index.data(Qt::CheckStateRole).isValid()) {
        const QRect box = checkBoxRect(option.rect, option.direction);
        const bool checked = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
        QStyle::State state = QStyle::State_Enabled | (checked ? QStyle::State_On : QStyle::State_Off);
        if (index.row() == m_table->hoveredRow() && box.contains(m_table->viewport()->mapFromGlobal(QCursor::pos())))
            state |= QStyle::State_MouseOver;
        StylePainter::checkBox(painter, box, state, mode);
        start += TableMetrics::checkBoxSize + TableMetrics::checkBoxGap;
    }
    QFont font = option.font;
    font.setPixelSize(TableMetrics::smallPixels);
    painter->setFont(font);
    painter->setPen(themeColor(mode, Token::Text2));
    const QRect words = QStyle::visualRect(option.direction, option.rect, option.rect.adjusted(start, 0, 0, 0));
    const Qt::Alignment leading = QStyle::visualAlignment(option.direction, Qt::AlignLeft);
    painter->drawText(words, static_cast<int>(leading) | Qt::AlignVCenter | Qt::TextSingleLine,
                      QString::number(index.row() + m_table->firstOrderNumber()));
}

QSize TableRowDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    return {option.fontMetrics.horizontalAdvance(index.data().toString()) + 2 * TableMetrics::cellPadding,
            TableMetrics::rowHeight};
}

bool TableRowDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                                 const QModelIndex& index)
{
    if (event->type() != QEvent::ToolTip || index.data(Qt::ToolTipRole).isValid())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    const QString text = index.data().toString();
    const QString shown = PlainToolTips::shown(text);
    const QRect cell = view->visualRect(index);
    const bool isElided = option.fontMetrics.horizontalAdvance(text) > textRoom(cell).width();
    QToolTip::showText(event->globalPos(), isElided && index.column() > 0 ? shown : QString(), view, cell);
    return true;
}

} // namespace vemo_base
