#pragma once

#include <QHash>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QVector>
#include <QWidget>

#include <functional>

class QTableView;

namespace vemo_base {

/// The cell widgets of the rows in view. They are children of the viewport, which moves them when it scrolls; a row is
/// known by its persistent index, so insertions, removals and sorting need no word. GUI thread, owned by the table.
class TableCellWidgets final
{
    Q_DISABLE_COPY_MOVE(TableCellWidgets)

public:
    using Factory = std::function<QWidget*(int row)>;

    explicit TableCellWidgets(QTableView* view);
    ~TableCellWidgets() = default;

    void setFactory(int column, Factory factory);
    bool isEmpty() const { return m_factories.isEmpty(); }
    QWidget* widget(int row, int column) const;
    /// Makes what rows in view lack, deletes what other rows have, and moves all to its cell.
    void place();
    /// Asks the factory again for a cell that has a widget.
    void refresh(int row, int column);
    /// Gives each widget the style of its row.
    void setStyles(int hoveredRow);

private:
    struct Row
    {
        QPersistentModelIndex index;
        QHash<int, QPointer<QWidget>> widgets;
    };

    void fill(Row* row);
    static void drop(QWidget* widget);

    QTableView* m_view;
    QHash<int, Factory> m_factories;
    QVector<Row> m_rows;
    bool m_isPlacing = false;
};

} // namespace vemo_base
