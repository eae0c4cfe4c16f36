#pragma once

#include <QSignalBlocker>
#include <QVector>

#include <functional>

class QTableWidget;
class QTableWidgetItem;

namespace vemo_base {

/// Changes many items of a table at the cost of few. An item inside of a table is searched for among all items at every
/// change; here it is taken out for the moment of the change. While one exists the model tells nothing: the caller
/// repaints or tells of the whole range afterwards. GUI thread.
class TableQuietEdit final
{
    Q_DISABLE_COPY_MOVE(TableQuietEdit)

public:
    explicit TableQuietEdit(QTableWidget* table);

    /// Calls `change` with the item of the cell; not at all when it has none.
    void change(int row, int column, const std::function<void(QTableWidgetItem*)>& change);

    /// Row i becomes what row order[i] was; selection, current row and hidden rows go along.
    static void reorder(QTableWidget* table, const QVector<int>& order);

private:
    QTableWidget* m_table;
    QSignalBlocker m_quiet;
};

} // namespace vemo_base
