#include "TableCellWidgets.h"

#include "TableOperWt.h"

#include <QTableView>

namespace vemo_base {

TableCellWidgets::TableCellWidgets(QTableView* view)
    : m_view(view)
{}

void TableCellWidgets::setFactory(int column, Factory factory)
{
    for (Row& row : m_rows)
        drop(row.widgets.take(column));
    m_factories.insert(column, std::move(factory));
}

QWidget* TableCellWidgets::widget(int row, int column) const
{
    for (const Row& entry : m_rows) {
        if (entry.index.isValid() && entry.index.row() == row)
            return entry.widgets.value(column);
    }
    return nullptr;
}

void TableCellWidgets::place()
{
    // A factory or a widget's show event may change the table; the change brings a layout of its own.
    if (m_isPlacing || m_factories.isEmpty())
        return;
    m_isPlacing = true;
    const int rows = m_view->model()->rowCount();
    const int first = qMax(0, m_view->rowAt(0));
    int last = m_view->rowAt(qMax(0, m_view->viewport()->height() - 1));
    last = rows == 0 ? -1 : last < 0 ? rows - 1 : last;

    QHash<int, Row> present;
    for (Row& entry : m_rows) {
        const int row = entry.index.isValid() ? entry.index.row() : -1;
        if (row >= first && row <= last && !m_view->isRowHidden(row)) {
            present.insert(row, std::move(entry));
        } else {
            for (const QPointer<QWidget>& widget : qAsConst(entry.widgets))
                drop(widget);
        }
    }
    m_rows.clear();
    for (int row = first; row <= last; ++row) {
        if (m_view->isRowHidden(row))
            continue;
        Row entry = present.take(row);
        if (!entry.index.isValid())
            entry.index = m_view->model()->index(row, 0);
        fill(&entry);
        m_rows.append(entry);
    }
    m_isPlacing = false;
}

void TableCellWidgets::refresh(int row, int column)
{
    for (Row& entry : m_rows) {
        if (entry.index.isValid() && entry.index.row() == row) {
            drop(entry.widgets.take(column));
            fill(&entry);
            return;
        }
    }
}

void TableCellWidgets::setStyles(int hoveredRow)
{
    for (const Row& entry : qAsConst(m_rows)) {
        if (!entry.index.isValid())
            continue;
        const int row = entry.index.row();
        const TableOperWtStyle::Style style = m_view->selectionModel()->isRowSelected(row, QModelIndex())
                                                  ? TableOperWtStyle::Style::Selected
                                              : row == hoveredRow ? TableOperWtStyle::Style::Hover
                                                                  : TableOperWtStyle::Style::Rest;
        for (const QPointer<QWidget>& widget : entry.widgets) {
            if (auto* cell = qobject_cast<TableOperWt*>(widget.data()))
                cell->setCurStyle(style);
        }
    }
}

void TableCellWidgets::fill(Row* row)
{
    for (auto factory = m_factories.cbegin(); factory != m_factories.cend(); ++factory) {
        QPointer<QWidget>& widget = row->widgets[factory.key()];
        const bool isNew = !widget;
        if (isNew) {
            widget = factory.value()(row->index.row());
            if (!widget)
                continue;
            widget->setParent(m_view->viewport());
        }
        const QRect cell = m_view->visualRect(row->index.sibling(row->index.row(), factory.key()));
        if (widget->geometry() != cell)
            widget->setGeometry(cell);
        if (isNew)
            widget->show();
    }
}

void TableCellWidgets::drop(QWidget* widget)
{
    if (!widget)
        return;
    // It may be the sender of the signal that led here.
    widget->hide();
    widget->deleteLater();
}

} // namespace vemo_base
