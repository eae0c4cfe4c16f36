#include "TableQuietEdit.h"

#include <QTableWidget>

namespace vemo_base {

TableQuietEdit::TableQuietEdit(QTableWidget* table)
    : m_table(table)
    , m_quiet(table->model())
{}

void TableQuietEdit::change(int row, int column, const std::function<void(QTableWidgetItem*)>& change)
{
    QTableWidgetItem* item = m_table->takeItem(row, column);
    if (!item)
        return;
    change(item);
    m_table->setItem(row, column, item);
}

void TableQuietEdit::reorder(QTableWidget* table, const QVector<int>& order)
{
    QVector<int> places(order.size());
    for (int place = 0; place < order.size(); ++place)
        places[order.at(place)] = place;
    // The model alone can carry selection, current row and hidden rows along, and it sorts by what a column displays.
    // In column 0 nobody sees that: for a moment the wanted places stand there.
    {
        TableQuietEdit edit(table);
        for (int row = 0; row < places.size(); ++row) {
            if (!table->item(row, 0))
                table->setItem(row, 0, new QTableWidgetItem);
            edit.change(row, 0, [&](QTableWidgetItem* item) { item->setData(Qt::DisplayRole, places.at(row)); });
        }
    }
    table->model()->sort(0, Qt::AscendingOrder);
    TableQuietEdit edit(table);
    for (int row = 0; row < places.size(); ++row)
        edit.change(row, 0, [](QTableWidgetItem* item) { item->setData(Qt::DisplayRole, QVariant()); });
}

} // namespace vemo_base
