#pragma once

#include <QStyledItemDelegate>

namespace vemo_base {

class TableWidget;

/// Paints the cells of a TableWidget: ground and selection bar of the row, check box and order number, text or chip,
/// the hairline below. Shows the elided text as tool tip where an item has none. GUI thread.
class TableRowDelegate final : public QStyledItemDelegate
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(TableRowDelegate)

public:
    explicit TableRowDelegate(TableWidget* table);

    /// Where the check box of a row stands in its cell of column 0.
    static QRect checkBoxRect(const QRect& cell, Qt::LayoutDirection direction);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

private:
    void paintFault(QPainter* painter, const QStyleOptionViewItem& option, const QRect& room, const QString& text,
                    const QString& fault) const;
    void paintFirst(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;

    TableWidget* m_table;
};

} // namespace vemo_base
